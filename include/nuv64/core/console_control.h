/* The screen behind the standard output stream: clearing, the cursor, colours and the title.
 *
 * All of it works on a terminal only; where standard output is redirected nothing is sent and
 * nothing happens. Off Windows the terminal gets the control sequences of ECMA-48, unless the
 * environment calls it "dumb". Columns and rows count from 0 at the top left of the screen, on
 * Windows of the screen buffer. Colour and cursor belong to the process. */
#ifndef NUV64_CORE_CONSOLE_CONTROL_H
#define NUV64_CORE_CONSOLE_CONTROL_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Clears the screen and puts the cursor at its top left. */
NUV64_API void ConClear(void) NUV64_NOEXCEPT;

/* Clears from the cursor on, to the end of its line or of the screen. The cursor stays. */
NUV64_API void ConClearEndOfLine(void) NUV64_NOEXCEPT;
NUV64_API void ConClearEndOfScreen(void) NUV64_NOEXCEPT;

/* Fills a rectangle, edges included, with one character; its part outside of the screen is left
 * out, and control characters (0 too) count as the blank. The cursor stays. */
NUV64_API void ConClearSection(int32_t left, int32_t top, int32_t right, int32_t bottom,
                               char16_t fill) NUV64_NOEXCEPT;
NUV64_API void ConClearSectionA(int32_t left, int32_t top, int32_t right, int32_t bottom,
                                char fill) NUV64_NOEXCEPT;

/* Where the cursor is (get not 0; x and y may be null) or shall go (get 0; a place outside of the
 * screen is moved to its edge). Off Windows the terminal is asked for the place, so standard input
 * must be one too. Status 0; 22 for a null x or y with get 0; 5 without a terminal, and when it
 * doesn't answer within a second. */
NUV64_API uint32_t ConGetOrSetCursorLocation(int32_t* x, int32_t* y, uint32_t get) NUV64_NOEXCEPT;

/* The colour of the text to come, on black: 1 bright red (errors), 2 bright green, 3 bright blue,
 * 4 bright yellow (prompts, menu keys), 5 bright cyan (menu titles, typed input), 6 bright magenta,
 * 7 light grey, 0 and any other bright white, the normal one. */
NUV64_API void ConSetTextColorID(uint32_t id) NUV64_NOEXCEPT;

/* Obeys a control text, by its first character; anything else does nothing.
 *   "C", a letter, text  sets a colour ("e" 1, "g" 7, "h" 2, "i" and "m" 5, "p" 4, anything else,
 *                        or nothing, 0) and prints the text, if there is any
 *   "S", a command       hands the command to the system's command processor and waits for it
 *   "T", a title         makes it the title of the console's window
 *   "Xs"                 ConClear
 * The command of "S" may do whatever the user may: never give it a text from elsewhere.
 * Result: for "S" what the command processor gives (the exit code; off Windows 128 more than a
 * signal that ended it), -1 when there is none; otherwise 0, also for null. */
NUV64_API int32_t ConScipio(const char16_t* control) NUV64_NOEXCEPT;
NUV64_API int32_t ConScipioA(const char* control) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
