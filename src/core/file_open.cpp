#include "core/file_open.h"

#include <array>

#include "nuv64/core/system.h"
#include "platform/platform.h"

namespace nuv64 {

namespace {

using platform::Disposition;

constexpr std::uint32_t kShareWrite = 0x40;
constexpr std::uint32_t kShareBoth = 0x80;
constexpr std::uint32_t kShareNone = 0x100;
constexpr std::uint32_t kAnyAttribute = 0x1FE00;
constexpr std::uint32_t kWarning = 2;  // kind of OsMessage

struct AttributeBit {
    std::uint32_t mode;
    std::uint32_t attribute;
};

// 0x2000 has no attribute, but counts as asking for some.
constexpr std::array kAttributeBits = {
    AttributeBit{0x200, platform::kAttributeReadOnly},
    AttributeBit{0x400, platform::kAttributeHidden},
    AttributeBit{0x800, platform::kAttributeSystem},
    AttributeBit{0x1000, platform::kAttributeArchive},
    AttributeBit{0x4000, platform::kAttributeCompressed},
    AttributeBit{0x8000, platform::kAttributeTemporary},
    AttributeBit{0x10000, platform::kAttributeOffline},
};

Disposition disposition(std::uint32_t mode) noexcept {
    if (mode & kOpenNew) return Disposition::kCreateNew;
    if (mode & kOpenTruncate)
        return mode & kOpenExisting ? Disposition::kTruncateExisting : Disposition::kReplace;
    return mode & kOpenExisting ? Disposition::kOpenExisting : Disposition::kOpenOrCreate;
}

std::uint32_t attributes(std::uint32_t mode) noexcept {
    if ((mode & kAnyAttribute) == 0) return platform::kAttributeNormal;
    std::uint32_t wanted = 0;
    for (const AttributeBit& bit : kAttributeBits)
        if (mode & bit.mode) wanted |= bit.attribute;
    return wanted;
}

}  // namespace

std::int64_t openFileByMode(const char16_t* path, std::uint32_t mode) {
    platform::OpenRequest request;
    request.disposition = disposition(mode);
    request.write = (mode & kOpenWrite) != 0;
    if (request.disposition == Disposition::kTruncateExisting && !request.write) {
        // Some systems would cut the file all the same.
        platform::setLastError(platform::kErrorInvalidArgument);
        return platform::kBadHandle;
    }
    const bool none = (mode & kShareNone) != 0;
    const bool both = !none && (mode & kShareBoth);
    const bool onlyWrite = !none && !both && (mode & kShareWrite);
    request.shareWrite = both || onlyWrite;
    request.shareRead = !none && !onlyWrite;
    request.attributes = attributes(mode);
    const std::int64_t handle = platform::openFile(path, request);
    if (platform::isHandle(handle) && (mode & kOpenAtEnd))
        platform::seekFile(handle, 0, platform::Origin::kEnd, nullptr);
    return handle;
}

std::int64_t openFileReporting(const char16_t* path, std::uint32_t mode,
                               const char16_t* cannotCreate) {
    const std::int64_t handle = openFileByMode(path, mode);
    if (platform::isHandle(handle) || !(mode & kOpenReport)) return handle;
    const std::uint32_t code = platform::lastError();
    const bool present = platform::fileAttributes(path) != platform::kNoAttributes;
    OsMessage(kWarning, present ? u"File already exists" : cannotCreate, nullptr);
    platform::setLastError(code);
    return handle;
}

}  // namespace nuv64
