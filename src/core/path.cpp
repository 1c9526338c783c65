#include "nuv64/core/path.h"

#include <algorithm>
#include <string>

#include "core/guard.h"
#include "core/owned.h"
#include "core/path_text.h"
#include "core/system_text.h"
#include "core/text.h"
#include "platform/platform.h"

namespace nuv64 {

namespace {

constexpr std::size_t kTemporaryNameCapacity = 512;

template <class Ch>
Owned<Ch> ownedPiece(std::basic_string_view<Ch> text) {
    return copyText(text.data(), text.size());
}

template <class Ch>
Owned<Ch> pathFraction(std::basic_string_view<Ch> path, std::uint32_t part) {
    const std::size_t name = cleanNameOffset(path);
    const std::size_t dot = extensionDot(path);
    const std::size_t colon = path.find(Ch(':'));
    switch (part) {
        case 1:
            return dot == path.npos ? Owned<Ch>() : ownedPiece(path.substr(dot + 1));
        case 2:
            return ownedPiece(path.substr(0, dot).substr(name));
        case 3:
            return ownedPiece(path.substr(name));
        case 4:
            return name == 0 ? Owned<Ch>() : ownedPiece(path.substr(0, name));
        case 5:
            return colon == path.npos || colon == 0 ? Owned<Ch>()
                                                    : ownedPiece(path.substr(0, colon));
        default:
            return ownedPiece(path);
    }
}

template <class Ch>
Ch* newPathFraction(const Ch* path, std::uint32_t part) noexcept {
    return guardValue<Ch*>(nullptr, [&]() -> Ch* {
        return path ? pathFraction(viewOf(path), part).release() : nullptr;
    });
}

template <class Ch>
Ch* newPathCombination(const Ch* folder, const Ch* name) noexcept {
    return guardValue<Ch*>(nullptr, [&] {
        std::basic_string<Ch> path(viewOf(folder));
        if (path.empty() || !isSeparator(path.back())) path += Ch('\\');
        path += viewOf(name);
        return copyText(path.data(), path.size()).release();
    });
}

std::u16string locateFile(const char16_t* name, const char16_t* extension,
                          const char16_t* searchPath) {
    if (!extension || !*extension) return platform::searchFile(name, nullptr, searchPath);
    std::u16string dotted = *extension == u'.' ? u"" : u".";
    dotted += extension;
    return platform::searchFile(name, dotted.c_str(), searchPath);
}

template <class Ch>
Ch* newPathLocator(const Ch* name, const Ch* extension, const Ch* searchPath,
                   Ch** filePart) noexcept {
    if (filePart) *filePart = nullptr;
    return guardValue<Ch*>(nullptr, [&]() -> Ch* {
        platform::setLastError(0);
        Owned<Ch> path = ownedTextOrNull<Ch>(locateFile(
            SystemText(name).get(), SystemText(extension).get(), SystemText(searchPath).get()));
        if (!path) return nullptr;
        if (filePart) *filePart = path.get() + cleanNameOffset(viewOf<Ch>(path.get()));
        return path.release();
    });
}

template <class Ch>
Ch* newTemporaryFile(const Ch* folder, const Ch* prefix, std::uint32_t unique) noexcept {
    return guardValue<Ch*>(nullptr, [&]() -> Ch* {
        platform::setLastError(0);
        const std::u16string place =
            folder ? SystemText(folder).get() : platform::temporaryFolder();
        const std::u16string name =
            platform::createTemporaryFile(place.c_str(), SystemText(prefix).get(), unique);
        if (name.empty()) return nullptr;
        const Owned<Ch> text = ownedText<Ch>(name);
        const std::basic_string_view<Ch> view(text.get());
        Owned<Ch> block = allocate<Ch>(std::max(kTemporaryNameCapacity, view.size() + 1));
        *std::copy(view.begin(), view.end(), block.get()) = 0;
        return block.release();
    });
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

uint64_t OffsetToCleanNameInPath(const char16_t* path) noexcept {
    return cleanNameOffset(viewOf(path));
}

uint64_t OffsetToCleanNameInPathA(const char* path) noexcept {
    return cleanNameOffset(viewOf(path));
}

char16_t* NewFilePathFraction(const char16_t* path, uint32_t part) noexcept {
    return newPathFraction(path, part);
}

char* NewFilePathFractionA(const char* path, uint32_t part) noexcept {
    return newPathFraction(path, part);
}

char16_t* NewFilePathCombination(const char16_t* folder, const char16_t* name) noexcept {
    return newPathCombination(folder, name);
}

char* NewFilePathCombinationA(const char* folder, const char* name) noexcept {
    return newPathCombination(folder, name);
}

char16_t* NewFilePathLocator(const char16_t* name, const char16_t* extension,
                             const char16_t* searchPath, char16_t** filePart) noexcept {
    return newPathLocator(name, extension, searchPath, filePart);
}

char* NewFilePathLocatorA(const char* name, const char* extension, const char* searchPath,
                          char** filePart) noexcept {
    return newPathLocator(name, extension, searchPath, filePart);
}

char16_t* NewCreateTemporaryFile(const char16_t* folder, const char16_t* prefix,
                                 uint32_t unique) noexcept {
    return newTemporaryFile(folder, prefix, unique);
}

char* NewCreateTemporaryFileA(const char* folder, const char* prefix, uint32_t unique) noexcept {
    return newTemporaryFile(folder, prefix, unique);
}
