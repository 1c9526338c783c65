// What the Windows files share.
#pragma once

// clang-format off
#include <windows.h>
// clang-format on

#include <string>

#include "platform/platform.h"

namespace nuv64::platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

// wchar_t is UTF-16 here, but a type of its own.
inline const wchar_t* wide(const char16_t* text) noexcept {
    return reinterpret_cast<const wchar_t*>(text);
}
inline wchar_t* wide(char16_t* text) noexcept {
    return reinterpret_cast<wchar_t*>(text);
}

inline std::u16string fromWide(const wchar_t* text) {
    return reinterpret_cast<const char16_t*>(text);
}

inline HANDLE asHandle(std::int64_t handle) noexcept {
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(handle));
}

inline std::int64_t asNumber(HANDLE handle) noexcept {
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(handle));
}

// 100 ns units.
inline std::uint64_t asNumber(const FILETIME& time) noexcept {
    return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

// The text of a call that takes (buffer, capacity) and gives the length, or the capacity that it
// needs when that is too small, or 0 for a failure.
template <class Call>
std::u16string grownText(Call call) {
    std::u16string text(MAX_PATH, u'\0');
    for (;;) {
        const auto capacity = static_cast<DWORD>(text.size());
        const DWORD length = call(wide(text.data()), capacity);
        if (length < capacity) {
            text.resize(length);
            return text;
        }
        // Some calls only tell that it was cut.
        text.resize(length > capacity ? length : 2 * capacity);
    }
}

inline void closeFolder(std::u16string& folder) {
    if (!folder.empty() && folder.back() != u'\\') folder += u'\\';
}

}  // namespace nuv64::platform
