/* Asking the user for a file.
 *
 * On Windows by the system's file dialogs. Elsewhere on the console, when standard input is a
 * terminal or the host has described itself as a console application; otherwise, as in a program
 * without a user, the question counts as cancelled. */
#ifndef NUV64_CORE_FILE_DIALOG_H
#define NUV64_CORE_FILE_DIALOG_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Lets the user choose a file.
 *
 * title: what is asked; may be null. folder: where the dialog starts: null for the folder of the
 * last choice, empty for the desktop; after a choice made with a null or empty folder, the folder
 * of the choice is remembered, for the process. defaultExtension: appended to a name without one;
 * may be null. filter: pairs of description and pattern with "|" behind each, as in
 * "Text files|*.txt|All files|*.*|"; null for "All:|*.*|". flags:
 *   0x1      save dialog, for a file that may not exist yet
 *   0x2      the file must exist
 *   0x20000  no beep; without it a beep starts the dialog
 *   0x40000  ask before an existing file is chosen for saving
 *   0x80000  do not follow links
 *   0x100000 with a non-null extra: take the system's options from *extra instead
 *   0x200000 several files may be chosen
 * owner: the parent window, 0 for the active one. extra (may be null) receives flags, with 0x400000
 * added when several files were chosen.
 *
 * Result: a new text, owned by the caller: the full path, or for several files the folder and the
 * bare names, each with its terminator and one more behind the last. Null when the user cancelled
 * (last-error slot 0), the dialog failed (its code is there) or memory is short. On the console
 * one file can be chosen. */
NUV64_API char16_t* NewOsFileSelectDialog(const char16_t* title, const char16_t* folder,
                                          const char16_t* defaultExtension, const char16_t* filter,
                                          uint32_t flags, int64_t owner,
                                          uint32_t* extra) NUV64_NOEXCEPT;
NUV64_API char* NewOsFileSelectDialogA(const char* title, const char* folder,
                                       const char* defaultExtension, const char* filter,
                                       uint32_t flags, int64_t owner,
                                       uint32_t* extra) NUV64_NOEXCEPT;

/* Lets the user name a new file, in a save dialog with the pattern "*.txt" that starts in the
 * folder of the last choice, and creates it for writing. title: what is asked; may be null. path
 * (may be null) receives the full path as a new text, owned by the caller. The result is the handle
 * of the open file; -1 with *path null when the user cancelled, when the file exists already or
 * can't be created (the system's code is in the last-error slot), or memory is short. */
NUV64_API int64_t OsOpenNewFile(const char16_t* title, char16_t** path) NUV64_NOEXCEPT;
NUV64_API int64_t OsOpenNewFileA(const char* title, char** path) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
