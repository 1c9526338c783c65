// A named file with a read-ahead window, a line reader and a discriminator line.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/object.h"
#include "core/owned.h"

struct cKoFile : cKoObject {
    static constexpr std::int64_t kNoHandle = -1;
    static constexpr std::int64_t kUnknownSize = INT64_MIN;

    cKoFile() noexcept = default;
    cKoFile(const char16_t* name, const char16_t* folder, const char16_t* defaultExtension);
    ~cKoFile() override;

    void Reset() noexcept;
    bool SetPath(const char16_t* name, const char16_t* folder, const char16_t* defaultExtension);
    bool Open(std::uint32_t mode);
    bool OpenExisting(std::uint32_t extraMode, std::uint32_t report);
    bool Overwrite(std::uint32_t extraMode, std::uint32_t report);
    bool Create(std::uint32_t extraMode, std::uint32_t report);
    bool Close() noexcept;
    std::int32_t CheckDiscriminator(const char* text, std::uint32_t report);
    std::int32_t CreateWithDiscriminator(const char* text, std::uint32_t report);
    std::int64_t Read(void* buffer, std::int64_t bytes);
    std::int64_t ReadLine(char** text);
    std::int64_t ReadLineAndDrop();
    bool Write(const void* data, std::int64_t bytes);
    bool WriteLine(const char* a, const char* b, const char* c, const char* d, const char* e);
    bool WriteNewLine();
    bool Seek(std::int64_t offset);
    bool SeekRelative(std::int64_t distance);
    bool SeekEnd();
    bool LineStart();
    bool PreviousLineStart();
    std::int64_t QuerySize();
    std::int64_t Locate(const char* text, std::uint32_t flags, std::int64_t length,
                        std::uint32_t ignoreCase);
    bool DeleteBytes(std::int64_t offset, std::int64_t count);
    bool InsertBytes(std::int64_t offset, const void* data, std::int64_t count);
    bool ReplaceBytes(std::int64_t offset, std::int64_t oldCount, const void* data,
                      std::int64_t newCount);
    bool SelectFile(const char16_t* title, const char16_t* folder, const char16_t* extension,
                    const char16_t* filter, std::uint32_t flags, std::int64_t owner,
                    std::uint32_t* extra);

    // ReadLine without a copy: line views the window (or a spill buffer when the line crosses its
    // end) and is valid until the next call on this object. Same results, same line rules.
    std::int64_t ReadLineView(std::string_view& line);

    std::uint32_t flags = 0;
    std::int64_t handle = kNoHandle;
    nuv64::OwnedWideText path;
    std::uint32_t lastError = 0;
    std::int64_t size = 0;
    std::int64_t position = 0;
    std::int64_t findHandle = -1;
    std::int64_t windowSize = 0;
    std::int64_t windowFilled = 0;
    std::int64_t windowOffset = 0;
    nuv64::Owned<unsigned char> window;
    nuv64::OwnedText spill;  // a line that crosses the window's end, for ReadLineView
    std::int64_t spillCapacity = 0;
};
