/* Services of the operating system: its texts and folders, messages to the user, opening things the
 * way the desktop does.
 *
 * New texts belong to the caller (KillString). Paths are written with backslashes on every system.
 * 8-bit text is UTF-8 on its way to and from the system. */
#ifndef NUV64_CORE_SYSTEM_H
#define NUV64_CORE_SYSTEM_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* A text of the system as a new text, by kind:
 *   1 the Windows folder, 2 the system folder; the root folder on other systems
 *   3 the desktop folder, with a closing separator
 *   4 the temporary folder, with a closing separator
 *   5 the current folder
 *   6 the path of the host's executable; 7 its folder with the closing separator, 8 its file name,
 *     9 that name without extension
 *   10 the command line
 * Null for another kind, and when the system doesn't tell or memory is short. */
NUV64_API char16_t* OsStringNewCopy(uint32_t kind) NUV64_NOEXCEPT;
NUV64_API char* OsStringNewCopyA(uint32_t kind) NUV64_NOEXCEPT;

/* The value of an environment variable as a new text; null when there is none of that name. */
NUV64_API char16_t* OsEnvironmentVariableNewCopy(const char16_t* name) NUV64_NOEXCEPT;
NUV64_API char* OsEnvironmentVariableNewCopyA(const char* name) NUV64_NOEXCEPT;

/* Sets an environment variable of the process; a null value removes it. Other threads must not read
 * the environment meanwhile. On Windows the C runtime's own copy doesn't follow. False for a null
 * or empty name, for one that holds "=", and when the system refuses. */
NUV64_API bool OsSetEnvironmentVariable(const char16_t* name, const char16_t* value) NUV64_NOEXCEPT;
NUV64_API bool OsSetEnvironmentVariableA(const char* name, const char* value) NUV64_NOEXCEPT;

/* Shows a message to the user and returns the answer.
 *
 * kind: 0 information, 1 error, 2 warning, each with one button; 3 yes or no, 4 OK or cancel,
 * 5 yes, no or cancel, 6 retry or cancel; any other is 0. text: null counts as empty. title: null
 * stands for the name of the host's executable without extension.
 *
 * Result: 1 for OK, yes and retry, 0 for no (and for cancel where there is no "no"), 2 for the
 * cancel of kind 5, all ones when no box could be shown. Where the system has no boxes, the message
 * goes to standard error, and a question is asked on the console when standard input is a terminal
 * or the host has described itself as a console application. Otherwise, and at the end of the
 * input, the result is all ones. */
NUV64_API uint32_t OsMessage(uint32_t kind, const char16_t* text,
                             const char16_t* title) NUV64_NOEXCEPT;
NUV64_API uint32_t OsMessageA(uint32_t kind, const char* text, const char* title) NUV64_NOEXCEPT;

/* OsMessage with a text made by the module's formatter (NewSprintf) and the usual title. All ones
 * when the text can't be made. */
NUV64_API uint32_t OsMessagef(uint32_t kind, const char16_t* format, ...) NUV64_NOEXCEPT;
NUV64_API uint32_t OsMessagefA(uint32_t kind, const char* format, ...) NUV64_NOEXCEPT;

/* Sounds a tone of duration milliseconds and frequency hertz, and waits for its end. Off Windows
 * the bell of the terminal, if standard error is one. Whether there was a sound. */
NUV64_API bool OsBeep(uint32_t duration, uint32_t frequency) NUV64_NOEXCEPT;

/* Opens a file, a folder or a link with the program that the user's desktop has for it, and does
 * not wait. No shell stands in between: the text is one argument, whatever it holds. Status 0; 63
 * for a null or empty path, 4 when there is nothing to open it with, 0x80001. */
NUV64_API uint32_t OsShellOpen(const char16_t* path) NUV64_NOEXCEPT;
NUV64_API uint32_t OsShellOpenA(const char* path) NUV64_NOEXCEPT;

/* OsShellOpen of a web address, with "http://" in front unless it starts with exactly that: a text
 * that starts with "https://" gets it too, as hosts have always had to give addresses without it.
 * 63 for null, otherwise as OsShellOpen. */
NUV64_API uint32_t OsOpenUrl(const char16_t* url) NUV64_NOEXCEPT;
NUV64_API uint32_t OsOpenUrlA(const char* url) NUV64_NOEXCEPT;

/* Opens a new mail with the user's mail program: OsShellOpen of "mailto:" (unless address starts
 * with exactly that), address, and with a subject that is not null or empty "?subject=" and
 * subject. Nothing is escaped: a subject has to have "%20" for blanks where the mail program wants
 * that. Status 22 for a null or empty address, 0x80001, otherwise as OsShellOpen. */
NUV64_API uint32_t OsMailTo(const char16_t* address, const char16_t* subject) NUV64_NOEXCEPT;
NUV64_API uint32_t OsMailToA(const char* address, const char* subject) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
