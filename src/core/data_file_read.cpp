// The read-ahead window of the named file and the readers that stand on it.
//
// The window holds the windowFilled bytes of the file that begin at windowOffset. It is always
// filled as far as the file goes, so windowFilled below windowSize says that the file ends there.
#include "core/data_file.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>

#include "core/line_scan.h"
#include "core/path_text.h"
#include "platform/platform.h"

using namespace nuv64;

namespace {

constexpr std::int64_t kOutOfMemory = -2;
constexpr std::int64_t kFailure = -1;
constexpr std::size_t kSmallestLineBlock = 128;  // bytes of a line's text that is handed out
constexpr std::int64_t kBackwardStep = 32768;    // bytes that a backward scan brings in at once

}  // namespace

void cKoFile::freeWindow() noexcept {
    window.reset();
    windowSize = 0;
    windowFilled = 0;
    windowOffset = 0;
}

void cKoFile::DropWindow() noexcept {
    if (window && IsOpen()) platform::seekFile(handle, position, platform::Origin::kStart, nullptr);
    freeWindow();
}

// Reads behind the first kept bytes of the window.
std::int64_t cKoFile::fillWindow(std::int64_t kept) noexcept {
    std::int64_t got = kFailure;
    if (platform::seekFile(handle, windowOffset + kept, platform::Origin::kStart, nullptr))
        got = platform::readFile(handle, window.get() + kept,
                                 static_cast<std::uint64_t>(windowSize - kept));
    if (got < 0) {
        note(false);
        DropWindow();
        return kFailure;
    }
    windowFilled = kept + got;
    return 1;
}

std::int64_t cKoFile::newWindow(std::int64_t bytes) noexcept {
    freeWindow();
    if (bytes < INT64_MAX - 2)
        window = tryAllocate<unsigned char>(static_cast<std::uint64_t>(bytes) + 2);
    if (!window) {
        fail(platform::kErrorOutOfMemory);
        return kOutOfMemory;
    }
    windowSize = bytes;
    return refillWindow();
}

std::int64_t cKoFile::refillWindow() noexcept {
    windowOffset = position;
    return fillWindow(0);
}

std::int64_t cKoFile::slideWindow() noexcept {
    const std::int64_t delta = position - windowOffset;
    const std::int64_t kept = windowFilled - delta;
    std::memmove(window.get(), window.get() + delta, static_cast<std::size_t>(kept));
    windowOffset = position;
    return fillWindow(kept);
}

std::int64_t cKoFile::startWindow() noexcept {
    if (window) return 1;
    if (size == 0) QuerySize();
    if (size == kUnknownSize) return kFailure;
    if (size == 0) return 0;
    return newWindow(size < windowLimit - 2 ? size + 2 : windowLimit);
}

// Moves the window until it holds what there is of the bytes at position. bytes when it does, 0 at
// the end of the file, negative on failure.
std::int64_t cKoFile::moveWindow(std::int64_t bytes) noexcept {
    for (;;) {
        const std::int64_t delta = position - windowOffset;
        const bool fileEnded = windowFilled < windowSize;
        std::int64_t moved = 0;
        if (bytes > windowSize) {
            moved = bytes < INT64_MAX - 2 ? newWindow(bytes + 2) : newWindow(bytes);
        } else if (delta < 0) {
            const std::int64_t end = delta + bytes;
            moved = end > 0 && end > windowFilled ? newWindow(bytes + 2) : refillWindow();
        } else if (bytes <= windowSize - delta) {
            return bytes;
        } else if (delta < windowFilled) {
            if (fileEnded) return bytes;
            moved = slideWindow();
        } else {
            if (fileEnded) return 0;
            moved = refillWindow();
        }
        if (moved < 0) return moved;
    }
}

std::int64_t cKoFile::Read(void* buffer, std::int64_t bytes) {
    lastError = 0;
    if (bytes <= 0) return bytes;
    if (!IsOpen() || position < 0) return fail(platform::kErrorInvalidHandle), kFailure;
    const std::int64_t started = startWindow();
    if (started <= 0) return started;
    const std::int64_t result = moveWindow(bytes);
    if (result <= 0) return result;
    const std::int64_t delta = position - windowOffset;
    // Behind the end of the file nothing is left of the window.
    const std::int64_t count = std::clamp<std::int64_t>(windowFilled - delta, 0, bytes);
    if (buffer && count > 0)
        std::memcpy(buffer, window.get() + delta, static_cast<std::size_t>(count));
    position += count;
    return count;
}

// Makes the window hold the byte at position: 1, 0 at the end of the file, negative on failure.
std::int64_t cKoFile::ensureWindow() noexcept {
    const std::int64_t delta = position - windowOffset;
    if (window && delta >= 0 && delta < windowFilled) {
        lastError = 0;
        return 1;
    }
    const std::int64_t got = Read(nullptr, 1);
    if (got > 0) position -= got;
    return got;
}

bool cKoFile::appendToSpill(std::int64_t spilled, std::string_view piece) noexcept {
    const std::int64_t needed = spilled + static_cast<std::int64_t>(piece.size());
    if (needed > spillCapacity) {
        const std::int64_t capacity = std::max(needed, 2 * spillCapacity);
        void* grown = std::realloc(spill.get(), static_cast<std::size_t>(capacity));
        if (!grown) return fail(platform::kErrorOutOfMemory);
        static_cast<void>(spill.release());
        spill.reset(static_cast<char*>(grown));
        spillCapacity = capacity;
    }
    if (!piece.empty()) std::memcpy(spill.get() + spilled, piece.data(), piece.size());
    return true;
}

std::int64_t cKoFile::ReadLineView(std::string_view& line) {
    line = {};
    for (std::int64_t spilled = 0;;) {
        const std::int64_t ready = ensureWindow();
        if (ready < 0) return ready;
        if (ready == 0) {
            line = std::string_view(spill.get(), static_cast<std::size_t>(spilled));
            return 0;
        }
        const char* const base = reinterpret_cast<const char*>(window.get());
        const char* const first = base + (position - windowOffset);
        const char* const last = base + windowFilled;
        const char* const end = findLineEnd(first, last);
        const bool complete = end != last;
        std::string_view piece(first, static_cast<std::size_t>(end - first) + (complete ? 1 : 0));
        position += static_cast<std::int64_t>(piece.size());
        const bool fileEnded = windowFilled < windowSize;
        if (spilled != 0 || (!complete && !fileEnded)) {
            if (!appendToSpill(spilled, piece)) return kOutOfMemory;
            spilled += static_cast<std::int64_t>(piece.size());
            piece = std::string_view(spill.get(), static_cast<std::size_t>(spilled));
        }
        if (complete) {
            line = withoutLineEnd(piece);
            return static_cast<std::int64_t>(piece.size());
        }
        if (fileEnded) {
            line = piece;
            return 0;
        }
    }
}

std::int64_t cKoFile::ReadLine(char** text) {
    if (!text) return kOutOfMemory;
    OwnedText old(*text);
    *text = nullptr;
    std::string_view line;
    const std::int64_t result = ReadLineView(line);
    if (result < 0 || (result == 0 && line.empty())) return result;
    if (platform::blockCapacity(old.get()) <= line.size()) {
        // With room for the next lines too: mostly the block then serves again as it is.
        const std::size_t capacity = std::max(kSmallestLineBlock, std::bit_ceil(line.size() + 1));
        void* const block = std::realloc(old.get(), capacity);
        if (!block) return fail(platform::kErrorOutOfMemory), kOutOfMemory;
        static_cast<void>(old.release());
        old.reset(static_cast<char*>(block));
    }
    *text = old.release();
    if (!line.empty()) std::memcpy(*text, line.data(), line.size());
    (*text)[line.size()] = 0;
    return result;
}

std::int64_t cKoFile::ReadLineAndDrop() {
    std::string_view line;
    return ReadLineView(line);
}

bool cKoFile::Seek(std::int64_t offset) {
    if (!IsOpen()) return fail(platform::kErrorInvalidHandle);
    return note(platform::seekFile(handle, offset, platform::Origin::kStart, &position));
}

bool cKoFile::SeekRelative(std::int64_t distance) {
    // From position, not from the system's pointer, which stands behind the window.
    std::int64_t offset = 0;
    if (__builtin_add_overflow(position, distance, &offset))
        return fail(platform::kErrorInvalidArgument);
    return Seek(offset);
}

bool cKoFile::SeekEnd() {
    if (!IsOpen()) return fail(platform::kErrorInvalidHandle);
    return note(platform::seekFile(handle, 0, platform::Origin::kEnd, &position));
}

// Makes the window hold bytes before position: how many stand there, 0 at the start of the file,
// negative on failure. Brings in a whole step at once: the window reaches forward, and asking for
// one byte after the other would fill it anew for each.
std::int64_t cKoFile::bytesBack() noexcept {
    if (position == 0) return 0;
    const auto held = [this] { return std::min(position - windowOffset, windowFilled); };
    if (window && position > windowOffset && position - windowOffset <= windowFilled) return held();
    const std::int64_t target = position;
    position = std::max<std::int64_t>(0, target - std::min(kBackwardStep, windowLimit / 2 + 1));
    const std::int64_t got = Read(nullptr, target - position);
    const std::int64_t reached = position;
    position = target;
    if (got < 0) return got;
    return reached == target ? held() : kFailure;
}

bool cKoFile::LineStart() {
    for (;;) {
        const std::int64_t available = bytesBack();
        if (available <= 0) return available == 0;
        const unsigned char* const first = window.get();
        const unsigned char* byte = first + (position - windowOffset);
        while (byte != first && byte[-1] != '\r' && byte[-1] != '\n') --byte;
        position = windowOffset + (byte - first);
        if (byte != first) return true;
    }
}

bool cKoFile::PreviousLineStart() {
    if (!LineStart()) return false;
    if (position > 0) --position;
    return LineStart();
}

std::int64_t cKoFile::QuerySize() {
    platform::setLastError(0);
    if (IsOpen()) {
        size = kUnknownSize;
        note(platform::fileSize(handle, &size));
        return size;
    }
    size = 0;
    const std::int64_t probe =
        path ? platform::openFile(path.get(), platform::OpenRequest{}) : platform::kBadHandle;
    if (!note(platform::isHandle(probe) && platform::fileSize(probe, &size))) size = 0;
    if (platform::isHandle(probe)) platform::closeFile(probe);
    return size;
}
