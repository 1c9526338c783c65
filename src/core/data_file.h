// A named file with a read-ahead window, a line reader and a discriminator line.
//
// A cKoFile belongs to one thread. An operation that fails gives false or a negative count and
// leaves the system's code in lastError; it shows a message only where its report argument asks for
// one. SetPath, the ways of opening, SelectFile, Locate and the edits may throw std::bad_alloc,
// with the object intact; reading and writing never throw.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/object.h"
#include "core/owned.h"

struct cKoFile : cKoObject {
    static constexpr std::int64_t kNoHandle = -1;
    static constexpr std::int64_t kUnknownSize = INT64_MIN;
    static constexpr std::int64_t kLargestWindow = 0x800002;

    cKoFile() noexcept = default;
    cKoFile(const char16_t* name, const char16_t* folder, const char16_t* defaultExtension);
    ~cKoFile() override;

    // Closes the file, frees the path and the window, and zeroes all state.
    void Reset() noexcept;

    // Resolves a name to a full path. "/" is turned to "\\", white space at the ends goes, and a
    // name without a dot gets defaultExtension. folder is put before a name that has no folder of
    // its own or that starts with the mark "%", which is taken off; an empty folder is that of the
    // executable. A bare name without folder (null) is looked up along the search path. Without a
    // name the path becomes that of a new temporary file, which doesn't exist yet. On failure,
    // above all for a path with one of * ? | < > ", the object is left empty.
    bool SetPath(const char16_t* name, const char16_t* folder, const char16_t* defaultExtension);

    // Opens path with a mode word of FileOpen. A file that is open is closed first.
    bool Open(std::uint32_t mode);
    bool OpenExisting(std::uint32_t extraMode, std::uint32_t report);
    bool Overwrite(std::uint32_t extraMode, std::uint32_t report);
    bool Create(std::uint32_t extraMode, std::uint32_t report);
    bool Close() noexcept;

    // The first line of a data file that tells its kind. CheckDiscriminator opens the existing file
    // and gives 0 when it starts with text (white space before either doesn't count; a text longer
    // than 100 bytes never matches); the file is then open at its start. Otherwise -1 and the file
    // is closed. An empty text matches any file.
    std::int32_t CheckDiscriminator(const char* text, std::uint32_t report);
    // Creates the file with that line: 0, -1 when it can't be created, 1 when it can't be written.
    std::int32_t CreateWithDiscriminator(const char* text, std::uint32_t report);

    // Reads at position through the window; a null buffer skips. The bytes read (0 at the end of
    // the file), -1 on failure, -2 when memory is short. A count of zero or below is returned.
    std::int64_t Read(void* buffer, std::int64_t bytes);
    // The next line as a new text; the old text at *text is released first. The bytes consumed with
    // the line end; 0 at the end of the file, where a last line without line end still stands in
    // *text (null when there is none); -1 and -2 as Read.
    std::int64_t ReadLine(char** text);
    std::int64_t ReadLineAndDrop();
    // ReadLine without a copy: line views the window (or a spill buffer when the line crosses its
    // end) and is valid until the next call on this object. Same results, same line rules.
    std::int64_t ReadLineView(std::string_view& line);

    // Writes at position and flushes, so that what was written is on the disk.
    bool Write(const void* data, std::int64_t bytes);
    // The non-null texts, then CR LF, in one Write.
    bool WriteLine(const char* a, const char* b, const char* c, const char* d, const char* e);
    bool WriteNewLine();

    bool Seek(std::int64_t offset);
    bool SeekRelative(std::int64_t distance);
    bool SeekEnd();
    // Moves back to the byte behind the nearest CR or LF before position, or to the start.
    bool LineStart();
    // LineStart, one byte back, LineStart. Between CR and LF the second move stops at once.
    bool PreviousLineStart();

    std::int64_t QuerySize();

    // Finds text from position on (from the start with flag 16): 1 and position on the match, or
    // behind it with flag 64; 0 when it isn't found, with position at the end of the file; negative
    // as Read. length 0 is the whole text; an empty text gives 1.
    std::int64_t Locate(const char* text, std::uint32_t flags, std::int64_t length,
                        std::uint32_t ignoreCase);

    // Changes in the middle of the file. position is afterwards at the file's new end for
    // DeleteBytes, behind the bytes written for the others.
    bool DeleteBytes(std::int64_t offset, std::int64_t count);
    bool InsertBytes(std::int64_t offset, const void* data, std::int64_t count);
    bool ReplaceBytes(std::int64_t offset, std::int64_t oldCount, const void* data,
                      std::int64_t newCount);

    // Asks the user for a file and sets the path to it; the arguments of NewOsFileSelectDialog.
    bool SelectFile(const char16_t* title, const char16_t* folder, const char16_t* extension,
                    const char16_t* filter, std::uint32_t flags, std::int64_t owner,
                    std::uint32_t* extra);

    bool IsOpen() const noexcept { return handle != 0 && handle != kNoHandle; }
    // Frees the window and puts the system's file pointer at position, where it always is while
    // there is no window.
    void DropWindow() noexcept;

    std::uint32_t flags = 0;
    std::int64_t handle = kNoHandle;
    nuv64::OwnedWideText path;
    std::uint32_t lastError = 0;
    std::int64_t size = 0;  // as last asked; 0 for not asked yet, kUnknownSize for a failed query
    std::int64_t position = 0;
    std::int64_t findHandle = kNoHandle;  // of a running directory search
    std::int64_t windowSize = 0;
    std::int64_t windowFilled = 0;
    std::int64_t windowOffset = 0;
    nuv64::Owned<unsigned char> window;
    nuv64::OwnedText spill;  // a line that crosses the window's end, for ReadLineView
    std::int64_t spillCapacity = 0;
    std::int64_t windowLimit = kLargestWindow;  // smaller in tests of the window's moves

  private:
    bool note(bool succeeded) noexcept;
    bool fail(std::uint32_t code) noexcept;
    void freeWindow() noexcept;
    bool present() const;
    void report(const char* error) const;
    std::int64_t startWindow() noexcept;
    std::int64_t newWindow(std::int64_t bytes) noexcept;
    std::int64_t refillWindow() noexcept;
    std::int64_t slideWindow() noexcept;
    std::int64_t fillWindow(std::int64_t kept) noexcept;
    std::int64_t moveWindow(std::int64_t bytes) noexcept;
    std::int64_t ensureWindow() noexcept;
    std::int64_t endOfFileInLine(std::string_view& line, std::int64_t spilled) noexcept;
    bool appendToSpill(std::int64_t spilled, std::string_view piece) noexcept;
    bool startsWithLine(const char* text);
    std::int64_t bytesBack() noexcept;
    bool readAt(std::int64_t offset, void* buffer, std::int64_t bytes) noexcept;
    bool writeAt(std::int64_t offset, const void* data, std::int64_t bytes) noexcept;
    bool prepareEdit(std::int64_t offset, std::int64_t added) noexcept;
    bool finishEdit(bool succeeded, std::int64_t newPosition, std::int64_t newSize) noexcept;
    bool moveTailForward(std::int64_t from, std::int64_t to);
    bool moveTailBack(std::int64_t offset, std::int64_t distance);
    bool overwriteBytes(std::int64_t offset, const void* data, std::int64_t count) noexcept;
};
