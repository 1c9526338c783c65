#include "platform/windows/native.h"

namespace nuv64::platform {

static_assert(kAttributeReadOnly == FILE_ATTRIBUTE_READONLY);
static_assert(kAttributeHidden == FILE_ATTRIBUTE_HIDDEN);
static_assert(kAttributeSystem == FILE_ATTRIBUTE_SYSTEM);
static_assert(kAttributeDirectory == FILE_ATTRIBUTE_DIRECTORY);
static_assert(kAttributeArchive == FILE_ATTRIBUTE_ARCHIVE);
static_assert(kAttributeNormal == FILE_ATTRIBUTE_NORMAL);
static_assert(kAttributeTemporary == FILE_ATTRIBUTE_TEMPORARY);
static_assert(kAttributeCompressed == FILE_ATTRIBUTE_COMPRESSED);
static_assert(kAttributeOffline == FILE_ATTRIBUTE_OFFLINE);
static_assert(kNoAttributes == INVALID_FILE_ATTRIBUTES);

std::uint32_t fileAttributes(const char16_t* path) {
    return ::GetFileAttributesW(wide(path ? path : u""));
}

bool copyFile(const char16_t* source, const char16_t* target, bool failIfExists) {
    return ::CopyFileW(wide(source ? source : u""), wide(target ? target : u""), failIfExists) != 0;
}

bool deleteFile(const char16_t* path) {
    return ::DeleteFileW(wide(path ? path : u"")) != 0;
}

}  // namespace nuv64::platform
