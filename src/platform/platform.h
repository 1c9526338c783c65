// Everything the module asks of an operating system; implemented in posix/ and windows/, all system
// calls and nothing else. Paths arrive as UTF-16 with backslashes and are turned into native ones
// here; paths that leave have backslashes. What is not marked noexcept makes or takes texts and may
// throw std::bad_alloc, nothing else. A failed call leaves the system's code in the last-error
// slot.
#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/console.h"

namespace nuv64::platform {

// The thread's last-error slot: the system's code of the last failed call, 0 after a success.
std::uint32_t lastError() noexcept;
void setLastError(std::uint32_t code) noexcept;

// The system's codes for failures that are found before the system is asked.
#ifdef _WIN32
inline constexpr std::uint32_t kErrorInvalidHandle = 6;
inline constexpr std::uint32_t kErrorOutOfMemory = 8;
inline constexpr std::uint32_t kErrorInvalidArgument = 87;
inline constexpr std::uint32_t kErrorFileExists = 80;
#else
inline constexpr std::uint32_t kErrorInvalidHandle = EBADF;
inline constexpr std::uint32_t kErrorOutOfMemory = ENOMEM;
inline constexpr std::uint32_t kErrorInvalidArgument = EINVAL;
inline constexpr std::uint32_t kErrorFileExists = EEXIST;
#endif

// UTF-8 <-> UTF-16; an ill-formed sequence becomes U+FFFD.
std::string utf8FromWide(std::u16string_view text);
std::u16string wideFromUtf8(std::string_view text);

// Files. A handle is never 0 for an open file; 0 and -1 count as "not open" everywhere.
inline constexpr std::int64_t kBadHandle = -1;

constexpr bool isHandle(std::int64_t handle) noexcept {
    return handle != 0 && handle != kBadHandle;
}

enum class Disposition { kOpenOrCreate, kOpenExisting, kCreateNew, kTruncateExisting, kReplace };
enum class Origin : std::uint32_t { kStart = 0, kCurrent = 1, kEnd = 2 };

struct OpenRequest {
    Disposition disposition = Disposition::kOpenExisting;
    bool write = false;
    bool shareRead = true;  // sharing has no meaning on POSIX, where nothing is ever locked
    bool shareWrite = false;
    std::uint32_t attributes = 0;  // of a created file; POSIX honours read-only alone
};

// File attributes, by the bits that the exports promise on every system.
inline constexpr std::uint32_t kAttributeReadOnly = 0x1;
inline constexpr std::uint32_t kAttributeHidden = 0x2;
inline constexpr std::uint32_t kAttributeSystem = 0x4;
inline constexpr std::uint32_t kAttributeDirectory = 0x10;
inline constexpr std::uint32_t kAttributeArchive = 0x20;
inline constexpr std::uint32_t kAttributeNormal = 0x80;
inline constexpr std::uint32_t kAttributeTemporary = 0x100;
inline constexpr std::uint32_t kAttributeCompressed = 0x800;
inline constexpr std::uint32_t kAttributeOffline = 0x1000;
inline constexpr std::uint32_t kNoAttributes = 0xFFFFFFFF;

std::int64_t openFile(const char16_t* path, const OpenRequest& request);
bool closeFile(std::int64_t handle) noexcept;
bool flushFile(std::int64_t handle) noexcept;
// Reads until bytes are there or the file ends; the bytes read, or -1.
std::int64_t readFile(std::int64_t handle, void* buffer, std::uint64_t bytes) noexcept;
// True when all bytes were written.
bool writeFile(std::int64_t handle, const void* data, std::uint64_t bytes) noexcept;
// result may be null.
bool seekFile(std::int64_t handle, std::int64_t distance, Origin origin,
              std::int64_t* result) noexcept;
bool fileSize(std::int64_t handle, std::int64_t* size) noexcept;
bool truncateFile(std::int64_t handle) noexcept;

std::uint32_t fileAttributes(const char16_t* path);
bool copyFile(const char16_t* source, const char16_t* target, bool failIfExists);
bool deleteFile(const char16_t* path);
bool createFolder(const char16_t* path);
std::uint32_t diskDrives() noexcept;  // bit 0 for drive A and so on; 0 where drives have no letters

// Paths. An empty result is a failure.
#ifdef _WIN32
inline constexpr bool kSlashSeparates = false;
#else
inline constexpr bool kSlashSeparates = true;  // "/" beside "\\" where a path is taken apart
#endif

// name, with extension (dot included, may be null) when it has none, looked up in the folders of
// searchPath (separated by ";"), or for null along the system's search path.
std::u16string searchFile(const char16_t* name, const char16_t* extension,
                          const char16_t* searchPath);
// With unique 0 a new empty file with a name of its own; otherwise only the name made from unique.
std::u16string createTemporaryFile(const char16_t* folder, const char16_t* prefix,
                                   std::uint32_t unique);

std::u16string windowsFolder();
std::u16string systemFolder();
std::u16string desktopFolder();    // with a closing separator
std::u16string temporaryFolder();  // with a closing separator
std::u16string currentFolder();
std::u16string executablePath();
std::u16string commandLine();

std::optional<std::u16string> environmentVariable(const char16_t* name);
// A null value removes the variable.
bool setEnvironmentVariable(const char16_t* name, const char16_t* value);

// Clock.
struct CalendarTime {
    std::uint16_t year, month, dayOfWeek, day, hour, minute, second, millisecond;
};
CalendarTime localTime() noexcept;
CalendarTime universalTime() noexcept;
std::uint64_t performanceCount() noexcept;
std::uint64_t performanceFrequency() noexcept;  // counts in a second
std::uint64_t sessionMilliseconds() noexcept;   // since the system started
std::uint64_t fileTimeNow() noexcept;           // 100 ns units since the start of 1601, UTC
// The short date and the time of day in the form of the user's locale; empty on failure. The time
// must be a date from 1601 on, or a time of day.
std::u16string dateText(const CalendarTime& time);
std::u16string timeText(const CalendarTime& time);

// Blocks of the system's own allocators, beside the C runtime's: the process heap, and the global
// memory that clipboards take (fixed blocks). Both are the C runtime's heap where a system has
// neither. Null when there is none to be had; free accepts null.
void* heapAllocate(std::uint64_t bytes) noexcept;
void heapFree(void* block) noexcept;
void* globalAllocate(std::uint64_t bytes) noexcept;
void globalFree(void* block) noexcept;
// The bytes that a block of the C runtime's heap has room for, at least those asked for; 0 for
// null.
std::size_t blockCapacity(void* block) noexcept;

// Boxes and dialogs of the system's user interface. Where hasUserInterface is false the others fail
// at once.
enum class Buttons { kOk, kOkCancel, kYesNo, kYesNoCancel, kRetryCancel };
enum class Icon { kInformation, kWarning, kError, kQuestion };
enum class Answer { kFailed, kYes, kNo, kCancel };  // kYes also stands for OK and Retry

bool hasUserInterface() noexcept;
Answer messageBox(const char16_t* text, const char16_t* title, Buttons buttons, Icon icon);

struct FileDialog {
    bool save = false;
    std::uint32_t options = 0;  // the system's option word
    const char16_t* title = nullptr;
    const char16_t* folder = nullptr;
    const char16_t* defaultExtension = nullptr;
    const char16_t* filter = nullptr;  // pairs of terminated texts, an empty one behind the last
    std::int64_t owner = 0;            // a window, or 0 for the active one
};
// The texts that the dialog gave, each with its terminator, one more terminator behind the last;
// empty when cancelled or failed.
std::u16string fileDialog(const FileDialog& dialog);

// Opens a file, folder or link the way the desktop does, with no shell in between. False when there
// is nothing that could open it.
bool shellOpen(const char16_t* target);

}  // namespace nuv64::platform
