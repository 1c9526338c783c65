// Writing to the named file, searching it, and changing its middle in place.
#include "core/data_file.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "core/sub_string.h"
#include "platform/platform.h"

using namespace nuv64;

namespace {

constexpr std::int64_t kChunk = 32768;  // bytes moved at once
constexpr std::int64_t kSmallestSearchBuffer = 32768;
constexpr std::int64_t kLongestSearchText = 0x1000000;
constexpr std::uint32_t kSearchFromStart = 16;
constexpr std::uint32_t kSearchGoBehind = 64;

}  // namespace

bool cKoFile::Write(const void* data, std::int64_t bytes) {
    if (!IsOpen()) return fail(platform::kErrorInvalidHandle);
    lastError = 0;
    if (!data || bytes <= 0) return true;
    DropWindow();
    if (!note(platform::writeFile(handle, data, static_cast<std::uint64_t>(bytes)) &&
              platform::flushFile(handle))) {
        platform::seekFile(handle, position, platform::Origin::kStart, nullptr);
        return false;
    }
    position += bytes;
    if (size > 0) size = std::max(size, position);
    return true;
}

bool cKoFile::WriteLine(const char* a, const char* b, const char* c, const char* d, const char* e) {
    std::string line;
    for (const char* text : std::array{a, b, c, d, e})
        if (text) line += text;
    line += "\r\n";
    return Write(line.data(), static_cast<std::int64_t>(line.size()));
}

bool cKoFile::WriteNewLine() {
    return Write("\r\n", 2);
}

std::int64_t cKoFile::Locate(const char* text, std::uint32_t searchFlags, std::int64_t length,
                             std::uint32_t ignoreCase) {
    if (!text || *text == 0) return 1;
    if (!IsOpen()) return fail(platform::kErrorInvalidHandle), -1;
    std::string_view sub(text);
    if (length > 0) sub = sub.substr(0, static_cast<std::size_t>(length));
    const auto subLength = static_cast<std::int64_t>(sub.size());
    if (subLength > kLongestSearchText) return fail(platform::kErrorOutOfMemory), -2;
    if ((searchFlags & kSearchFromStart) && !Seek(0)) return -1;
    const SubString<char> wanted(sub, ignoreCase != 0, 0);
    std::vector<char> chunk(
        static_cast<std::size_t>(std::max(2 * subLength, kSmallestSearchBuffer)));
    for (;;) {
        const std::int64_t start = position;
        const auto capacity = static_cast<std::int64_t>(chunk.size());
        const std::int64_t got = Read(chunk.data(), capacity);
        if (got < 0) return got;
        const std::size_t hit = wanted.find({chunk.data(), static_cast<std::size_t>(got)});
        if (hit != wanted.npos) {
            const std::int64_t match = start + static_cast<std::int64_t>(hit);
            return Seek(searchFlags & kSearchGoBehind ? match + subLength : match) ? 1 : -1;
        }
        if (got < capacity) return 0;
        position -= subLength - 1;  // a match may cross the seam
    }
}

bool cKoFile::readAt(std::int64_t offset, void* buffer, std::int64_t bytes) noexcept {
    return platform::seekFile(handle, offset, platform::Origin::kStart, nullptr) &&
           platform::readFile(handle, buffer, static_cast<std::uint64_t>(bytes)) == bytes;
}

bool cKoFile::writeAt(std::int64_t offset, const void* data, std::int64_t bytes) noexcept {
    return platform::seekFile(handle, offset, platform::Origin::kStart, nullptr) &&
           platform::writeFile(handle, data, static_cast<std::uint64_t>(bytes));
}

// Drops the window, which is about to be out of date, and asks the size. Fails where the file could
// not take that many more bytes.
bool cKoFile::prepareEdit(std::int64_t offset, std::int64_t added) noexcept {
    if (!IsOpen()) return fail(platform::kErrorInvalidHandle);
    if (offset < 0) return fail(platform::kErrorInvalidArgument);
    DropWindow();
    platform::setLastError(0);
    if (!note(platform::fileSize(handle, &size))) return false;
    return added <= INT64_MAX - std::max(size, offset) || fail(platform::kErrorInvalidArgument);
}

bool cKoFile::finishEdit(bool succeeded, std::int64_t newPosition, std::int64_t newSize) noexcept {
    if (!note(succeeded && platform::flushFile(handle))) {
        // The pointer stands somewhere in the middle: back to where position says.
        platform::seekFile(handle, position, platform::Origin::kStart, nullptr);
        return false;
    }
    size = newSize;
    return Seek(newPosition);
}

// Moves what stands from `from` to the end of the file down to `to`, front to back.
bool cKoFile::moveTailForward(std::int64_t from, std::int64_t to) {
    std::vector<char> chunk(kChunk);
    while (from < size) {
        const std::int64_t bytes = std::min(kChunk, size - from);
        if (!readAt(from, chunk.data(), bytes) || !writeAt(to, chunk.data(), bytes)) return false;
        from += bytes;
        to += bytes;
    }
    return true;
}

// Moves what stands from offset to the end of the file up by distance, from the end to the front.
bool cKoFile::moveTailBack(std::int64_t offset, std::int64_t distance) {
    std::vector<char> chunk(kChunk);
    for (std::int64_t end = size; end > offset;) {
        const std::int64_t bytes = std::min(kChunk, end - offset);
        end -= bytes;
        if (!readAt(end, chunk.data(), bytes) || !writeAt(end + distance, chunk.data(), bytes))
            return false;
    }
    return true;
}

bool cKoFile::DeleteBytes(std::int64_t offset, std::int64_t count) {
    if (count == 0) return true;
    if (count < 0) return fail(platform::kErrorInvalidArgument);
    if (!prepareEdit(offset, 0)) return false;
    if (offset >= size) return true;
    const std::int64_t removed = std::min(count, size - offset);
    const std::int64_t newSize = size - removed;
    const bool moved = moveTailForward(offset + removed, offset) &&
                       platform::seekFile(handle, newSize, platform::Origin::kStart, nullptr) &&
                       platform::truncateFile(handle);
    return finishEdit(moved, newSize, newSize);
}

bool cKoFile::InsertBytes(std::int64_t offset, const void* data, std::int64_t count) {
    if (!data || count == 0) return true;
    if (count < 0) return fail(platform::kErrorInvalidArgument);
    if (!prepareEdit(offset, count)) return false;
    const bool moved = moveTailBack(offset, count) && writeAt(offset, data, count);
    return finishEdit(moved, offset + count, std::max(size, offset) + count);
}

bool cKoFile::overwriteBytes(std::int64_t offset, const void* data, std::int64_t count) noexcept {
    if (!prepareEdit(offset, count)) return false;
    return finishEdit(writeAt(offset, data, count), offset + count, std::max(size, offset + count));
}

bool cKoFile::ReplaceBytes(std::int64_t offset, std::int64_t oldCount, const void* data,
                           std::int64_t newCount) {
    if (!data || newCount == 0) return DeleteBytes(offset, oldCount);
    if (oldCount < 0 || newCount < 0) return fail(platform::kErrorInvalidArgument);
    const std::int64_t common = std::min(oldCount, newCount);
    if (common > 0 && !overwriteBytes(offset, data, common)) return false;
    if (newCount < oldCount)
        return DeleteBytes(offset + newCount, oldCount - newCount) && Seek(offset + newCount);
    return InsertBytes(offset + common, static_cast<const char*>(data) + common, newCount - common);
}
