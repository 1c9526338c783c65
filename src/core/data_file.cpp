// The named file: its path, opening and closing, the discriminator line.
#include "core/data_file.h"

#include <algorithm>
#include <string>

#include "core/file_open.h"
#include "core/path_text.h"
#include "nuv64/core/file_dialog.h"
#include "nuv64/core/file_find.h"
#include "nuv64/core/path.h"
#include "nuv64/core/system.h"
#include "nuv64/core/text_edit.h"
#include "nuv64/core/text_search.h"
#include "platform/platform.h"

using namespace nuv64;

namespace {

constexpr std::uint32_t kKeepBlankRuns = 8;  // mode of StringGroom
constexpr std::uint32_t kFlagReadOnly = 1;   // bit 0 of flags: opened without write access
constexpr std::uint32_t kFlagsOfOpenFile = 0xFFFF;
constexpr std::uint32_t kPromptBeforeOverwrite = 0x40000;
constexpr std::uint32_t kWarning = 2;              // kind of OsMessage
constexpr std::int64_t kDiscriminatorBytes = 100;  // of a file's start that are looked at

// A copy with the white at both ends taken off and "/" turned to "\\".
std::u16string groomed(std::u16string text) {
    StringGroom(text.data(), kKeepBlankRuns);
    text.resize(std::char_traits<char16_t>::length(text.c_str()));
    std::replace(text.begin(), text.end(), u'/', u'\\');
    return text;
}

std::u16string textOrEmpty(const char16_t* text) {
    return text ? text : u"";
}

bool hasFolder(std::u16string_view name) {
    return cleanNameOffset(name) > 0;
}

std::u16string withExtension(std::u16string name, const char16_t* extension) {
    if (!extension || name.find(u'.', cleanNameOffset<char16_t>(name)) != name.npos) return name;
    while (*extension == u' ') ++extension;
    if (*extension == 0) return name;
    if (*extension != u'.') name += u'.';
    return name + extension;
}

std::u16string takeText(char16_t* text) {
    const OwnedWideText owned(text);
    return textOrEmpty(text);
}

// The folder that SetPath puts in front; empty for none.
std::u16string resolvedFolder(const char16_t* folder) {
    if (!folder) return u"";
    std::u16string place = *folder ? groomed(folder) : takeText(OsStringNewCopy(7));
    if (!place.empty() && place.back() != u'\\' && place.back() != u':') place += u'\\';
    return place;
}

// The name of a file that doesn't exist yet; empty on failure.
std::u16string temporaryPath(const std::u16string& folder) {
    const std::u16string place = folder.empty() ? takeText(OsStringNewCopy(4)) : folder;
    if (place.empty()) return u"";
    const std::u16string path = platform::createTemporaryFile(place.c_str(), u"~KO", 0);
    if (!path.empty()) platform::deleteFile(path.c_str());
    return path;
}

std::u16string resolvedPath(const char16_t* name, const char16_t* folder,
                            const char16_t* defaultExtension) {
    std::u16string file = groomed(textOrEmpty(name));
    const bool marked = !file.empty() && file[0] == u'%';
    if (marked) file = groomed(file.substr(1));
    const std::u16string place = resolvedFolder(folder);
    if (file.empty()) return temporaryPath(place);
    file = withExtension(std::move(file), defaultExtension);
    if (!place.empty()) return hasFolder(file) && !marked ? file : place + file;
    if (hasFolder(file)) return file;
    return platform::searchFile(file.c_str(), nullptr, nullptr);
}

}  // namespace

cKoFile::cKoFile(const char16_t* name, const char16_t* folder, const char16_t* defaultExtension) {
    SetPath(name, folder, defaultExtension);
}

cKoFile::~cKoFile() {
    Reset();
}

void cKoFile::Reset() noexcept {
    if (findHandle != kNoHandle) FileFindClose(findHandle, 0);
    findHandle = kNoHandle;
    Close();
    path.reset();
    spill.reset();
    spillCapacity = 0;
    flags = 0;
    lastError = 0;
    size = 0;
    position = 0;
}

bool cKoFile::note(bool succeeded) noexcept {
    lastError = succeeded ? 0 : platform::lastError();
    return succeeded;
}

bool cKoFile::fail(std::uint32_t code) noexcept {
    platform::setLastError(code);
    lastError = code;
    return false;
}

bool cKoFile::SetPath(const char16_t* name, const char16_t* folder,
                      const char16_t* defaultExtension) {
    // The texts may be those of this object: resolve them before it is reset.
    const std::u16string resolved = resolvedPath(name, folder, defaultExtension);
    Reset();
    if (resolved.empty() || resolved.find_first_of(u"*?|<>\"") != resolved.npos) return false;
    path = copyText(resolved.data(), resolved.size());
    return true;
}

bool cKoFile::Open(std::uint32_t mode) {
    if (!Close()) return false;
    position = 0;
    size = 0;
    flags &= ~kFlagsOfOpenFile;
    if (!path || path[0] == 0) return fail(platform::kErrorInvalidArgument);
    platform::setLastError(0);
    handle = openFileReporting(path.get(), mode, u"Can't create file");
    if (!note(IsOpen())) return false;
    if (!(mode & kOpenWrite)) flags |= kFlagReadOnly;
    QuerySize();
    return !(mode & kOpenAtEnd) || SeekEnd();
}

bool cKoFile::present() const {
    return platform::fileAttributes(path.get()) != platform::kNoAttributes;
}

void cKoFile::report(const char* error) const {
    std::string text = "FILE HANDLING ERROR\n\nFile: ";
    if (path) text += platform::utf8FromWide(path.get());
    text += "\nError: ";
    text += error;
    OsMessageA(kWarning, text.c_str(), nullptr);
}

bool cKoFile::OpenExisting(std::uint32_t extraMode, std::uint32_t reporting) {
    if (Open(extraMode | kOpenExisting)) return true;
    if (reporting) report("Missing/inaccessible file");
    return false;
}

bool cKoFile::Overwrite(std::uint32_t extraMode, std::uint32_t reporting) {
    if (!present()) {
        if (reporting) report("File does not exist");
        return note(false);
    }
    if (Open(extraMode | kPromptBeforeOverwrite | kOpenTruncate | kOpenExisting | kOpenWrite))
        return true;
    if (reporting) report("Cant't open file");
    return false;
}

bool cKoFile::Create(std::uint32_t extraMode, std::uint32_t reporting) {
    if (present()) {
        if (reporting) report("File already exists");
        return fail(platform::kErrorFileExists);
    }
    if (Open(extraMode | kOpenNew | kOpenWrite)) return true;
    if (reporting) report("Cant't create file");
    return false;
}

bool cKoFile::Close() noexcept {
    freeWindow();
    if (!IsOpen()) return true;
    platform::setLastError(0);
    const bool flushed = (flags & kFlagReadOnly) || platform::flushFile(handle);
    const std::uint32_t flushError = platform::lastError();
    const bool closed = platform::closeFile(handle);
    handle = kNoHandle;
    flags &= ~kFlagsOfOpenFile;
    if (closed && !flushed) platform::setLastError(flushError);
    return note(closed && flushed);
}

std::int32_t cKoFile::CheckDiscriminator(const char* text, std::uint32_t) {
    if (!OpenExisting(0, 0)) return -1;
    if (StringIsEmptyA(text)) return 0;
    const std::int64_t saved = position;
    const bool matches = startsWithLine(text);
    if (!matches) Close();
    position = saved;
    DropWindow();
    return matches ? 0 : -1;
}

bool cKoFile::startsWithLine(const char* text) {
    char start[kDiscriminatorBytes + 2];
    if (!Seek(0)) return false;
    const std::int64_t got = Read(start, kDiscriminatorBytes);
    if (got <= 0) return false;
    start[got] = 0;
    return StringStartsWithA(start, text + StringIndex1stNonWhiteA(text), 1);
}

std::int32_t cKoFile::CreateWithDiscriminator(const char* text, std::uint32_t reporting) {
    if (!Create(0, 0)) {
        Close();
        return -1;
    }
    if (WriteLine(text, nullptr, nullptr, nullptr, nullptr)) return 0;
    const std::uint32_t code = lastError;
    if (reporting) report("Could not write the discriminator line");
    Close();
    fail(code);
    return 1;
}

bool cKoFile::SelectFile(const char16_t* title, const char16_t* folder, const char16_t* extension,
                         const char16_t* filter, std::uint32_t dialogFlags, std::int64_t owner,
                         std::uint32_t* extra) {
    const OwnedWideText choice(
        NewOsFileSelectDialog(title, folder, extension, filter, dialogFlags, owner, extra));
    return choice && SetPath(choice.get(), nullptr, extension);
}
