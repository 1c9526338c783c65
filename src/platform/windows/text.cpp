#include "platform/utf_text.h"
#include "platform/windows/native.h"

namespace nuv64::platform {

static_assert(kErrorInvalidHandle == ERROR_INVALID_HANDLE);
static_assert(kErrorOutOfMemory == ERROR_NOT_ENOUGH_MEMORY);
static_assert(kErrorInvalidArgument == ERROR_INVALID_PARAMETER);
static_assert(kErrorFileExists == ERROR_FILE_EXISTS);

std::uint32_t lastError() noexcept {
    return ::GetLastError();
}

void setLastError(std::uint32_t code) noexcept {
    ::SetLastError(code);
}

std::string utf8FromWide(std::u16string_view text) {
    return encodeUtf8(text, BadBytes::kReplace);
}

std::u16string wideFromUtf8(std::string_view text) {
    return decodeUtf8(text, BadBytes::kReplace);
}

}  // namespace nuv64::platform
