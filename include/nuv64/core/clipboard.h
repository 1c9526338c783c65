/* Text on the clipboard. Off Windows through the tool of the user's session: wl-copy and wl-paste
 * where WAYLAND_DISPLAY is set, xclip or xsel where DISPLAY is; without one, or when it gives no
 * answer within five seconds, the calls fail. */
#ifndef NUV64_CORE_CLIPBOARD_H
#define NUV64_CORE_CLIPBOARD_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Puts a text in the place of what is on the clipboard. False on failure and for a null text, which
 * leaves the clipboard alone. 8-bit text is UTF-8. */
NUV64_API bool OsTextToClipboard(const char16_t* text) NUV64_NOEXCEPT;
NUV64_API bool OsTextToClipboardA(const char* text) NUV64_NOEXCEPT;

/* The text on the clipboard as a new text, owned by the caller (KillString). Null when it holds no
 * text, on failure and when memory is short. */
NUV64_API char16_t* NewOsTextFromClipboard(void) NUV64_NOEXCEPT;
NUV64_API char* NewOsTextFromClipboardA(void) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
