/* Values typed by the user: the standard input stream of the process, and its keyboard.
 *
 * A prompt (may be null) is shown in the colour of prompts with a blank before and behind it, and
 * the line is cleared from there to its end; what is typed appears in the colour of typed text.
 * Lines are read up to their end ("\n" or "\r\n"); 8-bit text is UTF-8. A redirected input is read
 * in the same way. At the end of the input every function returns at once: with no number, null, or
 * a status.
 *
 * Where flags stands last, it may be null and receives the NUM_ bits of number_reading.h; it is
 * NUM_UNDEFINED when nothing could be read. Numbers have the base 10. No input error ends a
 * program. The members of a pair differ in character width alone. */
#ifndef NUV64_CORE_CONSOLE_INPUT_H
#define NUV64_CORE_CONSOLE_INPUT_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Reads one line into a buffer of size characters, at most size - 1 of the line and the terminator;
 * the rest of a longer line is dropped. The text is then cleaned by StringGroom(buffer,
 * groomFlags). Status 0; 18 for a null buffer or size 0; 62 at the end of the input; 0x80001. The
 * buffer is empty whenever the status is not 0. */
NUV64_API uint32_t CinToBuffer(const char16_t* prompt, char16_t* buffer, uint64_t size,
                               uint32_t groomFlags) NUV64_NOEXCEPT;
NUV64_API uint32_t CinToBufferA(const char* prompt, char* buffer, uint64_t size,
                                uint32_t groomFlags) NUV64_NOEXCEPT;

/* The 16-bit code of a key, without waiting for the end of a line and without showing it.
 *
 * noWait: 0 waits for a key with a code that is not 0, so cursor and function keys are passed over;
 * otherwise the result is what the keyboard has, 0 for nothing.
 * Result: the code; Enter is 13; a character beyond 16 bits is U+FFFD. Where the input is
 * redirected, its next character, whatever it is. 26 at the end of the input, so that no loop over
 * keys runs on without a user. */
NUV64_API uint16_t CinGetKey(uint32_t noWait) NUV64_NOEXCEPT;

/* Prints the prompt, unless it is null, in the colour of prompts and as it stands, gets a key as
 * CinGetKey does, and shows it in the colour of typed text. Codes below 32 and the delete key are
 * not shown: to a terminal they are commands. Result: the code. */
NUV64_API uint16_t CinWaitKbHit(const char16_t* prompt, uint32_t noWait) NUV64_NOEXCEPT;
NUV64_API uint16_t CinWaitKbHitA(const char* prompt, uint32_t noWait) NUV64_NOEXCEPT;

/* A line as a new text, owned by the caller: at most 1023 characters. Null at the end of the input
 * and when memory is short. */
NUV64_API char16_t* CinNewString(const char16_t* prompt) NUV64_NOEXCEPT;
NUV64_API char* CinNewStringA(const char* prompt) NUV64_NOEXCEPT;

/* Bytes typed as digits, by MemFromAsci. length: the room at data on entry, the number of bytes on
 * exit, at most one less than the room; a zero byte follows them. radix: 1 or 2 for base 2 with
 * eight digits a byte, 3 or 16 for base 16 with two. Status 0; 9 for another base; 18 for a null
 * data or length; 62 at the end of the input; 0x80001. */
NUV64_API uint32_t CinMemA(const char* prompt, void* data, uint64_t* length,
                           uint32_t radix) NUV64_NOEXCEPT;

/* A number by StringToDword, StringToLong, StringToQword, StringToQlong or StringToReal. Without a
 * number the result is -1 (all ones), or ___NAN. */
NUV64_API uint32_t CinDword(const char16_t* prompt, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API uint32_t CinDwordA(const char* prompt, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API int32_t CinLong(const char16_t* prompt, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API int32_t CinLongA(const char* prompt, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API uint64_t CinQword(const char16_t* prompt, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API uint64_t CinQwordA(const char* prompt, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API int64_t CinQlong(const char16_t* prompt, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API int64_t CinQlongA(const char* prompt, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API double CinReal(const char16_t* prompt, uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API double CinRealA(const char* prompt, uint32_t* flags) NUV64_NOEXCEPT;

/* A number between min and max, by StringTestFor... of its type. An answer that won't do is asked
 * for again, three times at most:
 *   "    Illegal! Try again: "    the report has any bit of 0x30170 (integers), 0x130 (reals)
 *   "    Too large! Try again: "  it is above max
 *   "    Too small! Try again: "  it is below min
 * After that the last answer stands, be it good or bad: the result is the value that its test left
 * (0 or ___NAN when it held no number), and flags tells what is wrong with it. -1, or ___NAN, with
 * NUM_UNDEFINED when no line could be read at all. */
NUV64_API uint32_t CinDwordMm(const char16_t* prompt, uint32_t min, uint32_t max,
                              uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API uint32_t CinDwordMmA(const char* prompt, uint32_t min, uint32_t max,
                               uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API int32_t CinLongMm(const char16_t* prompt, int32_t min, int32_t max,
                            uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API int32_t CinLongMmA(const char* prompt, int32_t min, int32_t max,
                             uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API uint64_t CinQwordMm(const char16_t* prompt, uint64_t min, uint64_t max,
                              uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API uint64_t CinQwordMmA(const char* prompt, uint64_t min, uint64_t max,
                               uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API int64_t CinQlongMm(const char16_t* prompt, int64_t min, int64_t max,
                             uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API int64_t CinQlongMmA(const char* prompt, int64_t min, int64_t max,
                              uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API double CinRealMm(const char16_t* prompt, double min, double max,
                           uint32_t* flags) NUV64_NOEXCEPT;
NUV64_API double CinRealMmA(const char* prompt, double min, double max,
                            uint32_t* flags) NUV64_NOEXCEPT;

/* Asks by one key where a table shall be printed: 1 console, 2 file, 3 both, which any other key
 * stands for. */
NUV64_API uint32_t CinOutputDestination(void) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
