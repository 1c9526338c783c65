/* Windows on the screen.
 *
 * A window is a 64-bit handle, 0 for none. Places are pixels from the left top corner of the
 * screen; any pointer may be null, and all are set to 0 where there is no window. Off Windows the
 * windows belong to the desktop environment, and each call gives its failure value: 0 or false. */
#ifndef NUV64_CORE_SCREEN_H
#define NUV64_CORE_SCREEN_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The active window of the calling thread, the second form with its place and size. */
NUV64_API int64_t OsActiveWindow(void) NUV64_NOEXCEPT;
NUV64_API int64_t OsActiveWindowLocAndSize(int32_t* left, int32_t* top, int32_t* width,
                                           int32_t* height) NUV64_NOEXCEPT;

/* The window that the user works with, of whatever program. */
NUV64_API int64_t OsForegroundWindow(void) NUV64_NOEXCEPT;
NUV64_API int64_t OsForegroundWindowLocAndSize(int32_t* left, int32_t* top, int32_t* width,
                                               int32_t* height) NUV64_NOEXCEPT;

/* The window behind all others, as large as the main screen. */
NUV64_API int64_t OsDesktopWindow(void) NUV64_NOEXCEPT;

/* The number of colours of the main screen: 2 to the power of its bits for a pixel; 0 when there is
 * no screen. */
NUV64_API uint64_t OsDesktopColors(void) NUV64_NOEXCEPT;

/* The place and size of a window. False when there is no such window. */
NUV64_API bool OsWindowLocAndSize(int64_t window, int32_t* left, int32_t* top, int32_t* width,
                                  int32_t* height) NUV64_NOEXCEPT;

/* Whether there is a top-level window, seen or unseen, with exactly that title. False for a null or
 * empty title. */
NUV64_API bool OsIsWindowPresent(const char16_t* title) NUV64_NOEXCEPT;
NUV64_API bool OsIsWindowPresentA(const char* title) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
