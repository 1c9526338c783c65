#include "nuv64/core/file_locate.h"

#include <vector>

#include "core/file_calls.h"
#include "core/sub_string.h"
#include "core/text.h"

using namespace nuv64;

namespace {

constexpr std::uint32_t kIgnoreCase = 0x1;
constexpr std::uint32_t kFromStart = 0x10;
constexpr std::uint32_t kGoBehind = 0x40;
constexpr std::uint32_t kPassCtrlZ = 0x100;
constexpr std::uint64_t kLongestText = 0x1000000;
constexpr std::uint64_t kSmallestBuffer = 32768;  // characters
constexpr char kCtrlZ = 26;
constexpr std::int64_t kFailure = -1;
constexpr std::int64_t kOutOfMemory = -2;

// Reads as many whole characters as chunk holds; the number of them, negative on failure.
template <class Ch>
std::int64_t readChunk(std::int64_t handle, std::vector<Ch>& chunk) noexcept {
    const std::int64_t got = FileReadBinary(handle, chunk.data(), chunk.size() * sizeof(Ch));
    return got < 0 ? got : got / static_cast<std::int64_t>(sizeof(Ch));
}

// Moves the pointer to the character at index behind start.
template <class Ch>
bool goTo(std::int64_t handle, std::int64_t start, std::uint64_t index) noexcept {
    const auto bytes = static_cast<std::int64_t>(index * sizeof(Ch));
    return FileSetPointer(handle, start + bytes, 0, nullptr) == 1;
}

template <class Ch>
std::int64_t search(std::int64_t handle, std::basic_string_view<Ch> text, std::uint32_t flags,
                    Ch wildcard) {
    std::int64_t start = 0;
    if (!((flags & kFromStart) ? FileRewind(handle, &start) : FileGetPointer(handle, &start)))
        return kFailure;
    const SubString<Ch> wanted(text, (flags & kIgnoreCase) != 0, wildcard);
    std::vector<Ch> chunk(std::max<std::uint64_t>(2 * text.size(), kSmallestBuffer));
    for (;;) {
        const std::int64_t got = readChunk(handle, chunk);
        if (got < 0) return got;
        const auto count = static_cast<std::size_t>(got);
        std::basic_string_view<Ch> looked(chunk.data(), count);
        if ((flags & kPassCtrlZ) == 0) looked = looked.substr(0, looked.find(Ch{kCtrlZ}));
        const std::size_t place = wanted.find(looked);
        if (place != SubString<Ch>::npos) {
            const std::uint64_t behind = (flags & kGoBehind) ? text.size() : 0;
            return goTo<Ch>(handle, start, place + behind) ? 1 : kFailure;
        }
        if (count < chunk.size() || looked.size() < count) return 0;
        // A match may cross the seam.
        const std::uint64_t step = count - (text.size() - 1);
        if (!goTo<Ch>(handle, start, step)) return kFailure;
        start += static_cast<std::int64_t>(step * sizeof(Ch));
    }
}

template <class Ch>
std::int64_t locate(std::int64_t handle, const Ch* text, std::uint32_t flags, std::uint64_t length,
                    Ch wildcard) noexcept {
    const std::basic_string_view<Ch> whole = viewOf(text);
    if (whole.empty()) return platform::setLastError(0), 1;
    if (!isOpenFile(handle)) return kFailure;
    const std::basic_string_view<Ch> wanted = whole.substr(0, length != 0 ? length : whole.size());
    if (wanted.size() > kLongestText) {
        platform::setLastError(platform::kErrorInvalidArgument);
        return kOutOfMemory;
    }
    return fileCall(kOutOfMemory, [&] { return search(handle, wanted, flags, wildcard); });
}

}  // namespace

int64_t FileLocateString(int64_t handle, const char16_t* text, uint32_t flags, uint64_t length,
                         char16_t wildcard) noexcept {
    return locate(handle, text, flags, length, wildcard);
}

int64_t FileLocateStringA(int64_t handle, const char* text, uint32_t flags, uint64_t length,
                          char wildcard) noexcept {
    return locate(handle, text, flags, length, wildcard);
}
