#include <algorithm>

#include "platform/posix/native.h"
#include "platform/utf_text.h"

namespace nuv64::platform {

namespace {

thread_local std::uint32_t lastErrorSlot = 0;

}  // namespace

std::uint32_t lastError() noexcept {
    return lastErrorSlot;
}

void setLastError(std::uint32_t code) noexcept {
    lastErrorSlot = code;
}

std::string utf8FromWide(std::u16string_view text) {
    return encodeUtf8(text, BadBytes::kReplace);
}

std::u16string wideFromUtf8(std::string_view text) {
    return decodeUtf8(text, BadBytes::kReplace);
}

std::string nativePath(std::u16string_view path) {
    std::string native = encodeUtf8(path, BadBytes::kEscape);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

std::u16string textPath(std::string_view native) {
    std::u16string path = decodeUtf8(native, BadBytes::kEscape);
    std::replace(path.begin(), path.end(), u'/', u'\\');
    return path;
}

}  // namespace nuv64::platform
