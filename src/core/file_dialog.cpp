#include "nuv64/core/file_dialog.h"

#include <algorithm>
#include <string>

#include "core/console_host.h"
#include "core/file_open.h"
#include "core/guard.h"
#include "core/owned.h"
#include "core/path_text.h"
#include "core/system_text.h"
#include "platform/platform.h"

namespace nuv64 {

namespace {

constexpr std::uint32_t kSave = 0x1;
constexpr std::uint32_t kMustExist = 0x2;
constexpr std::uint32_t kNoBeep = 0x20000;
constexpr std::uint32_t kAskBeforeOverwrite = 0x40000;
constexpr std::uint32_t kNoLinks = 0x80000;
constexpr std::uint32_t kOptionsInExtra = 0x100000;
constexpr std::uint32_t kSeveralFiles = 0x200000;
constexpr std::uint32_t kSeveralChosen = 0x400000;

// The system's option word.
constexpr std::uint32_t kBaseOptions = 0x22080C;  // path must exist, hide read-only, keep the
                                                  // current folder, long names, no network
constexpr std::uint32_t kOptionOverwritePrompt = 0x2;
constexpr std::uint32_t kOptionAllowSeveral = 0x200;
constexpr std::uint32_t kOptionFileMustExist = 0x1000;
constexpr std::uint32_t kOptionNoReadOnlyReturn = 0x8000;
constexpr std::uint32_t kOptionNoLinks = 0x100000;

constexpr std::uint32_t kBeepMilliseconds = 100;
constexpr std::uint32_t kBeepHertz = 880;

struct Question {
    const char16_t* title;
    const char16_t* folder;
    const char16_t* defaultExtension;
    const char16_t* filter;
    std::uint32_t flags;
    std::int64_t owner;
    const std::uint32_t* extra;
};

// The folder of the last choice, for the process.
std::u16string& rememberedFolder() {
    static std::u16string folder;
    return folder;
}

std::uint32_t systemOptions(const Question& question) noexcept {
    if ((question.flags & kOptionsInExtra) && question.extra) return *question.extra;
    const auto option = [&](std::uint32_t flag, std::uint32_t bit) {
        return question.flags & flag ? bit : 0u;
    };
    return kBaseOptions | option(kSave, kOptionNoReadOnlyReturn) |
           option(kMustExist, kOptionFileMustExist) |
           option(kAskBeforeOverwrite, kOptionOverwritePrompt) | option(kNoLinks, kOptionNoLinks) |
           option(kSeveralFiles, kOptionAllowSeveral);
}

std::u16string startFolder(const char16_t* folder) {
    if (!folder) return rememberedFolder();
    return *folder ? folder : platform::desktopFolder();
}

// Terminators for the "|" of the filter, one more behind the last.
std::u16string systemFilter(const char16_t* filter) {
    std::u16string text = filter ? filter : u"All:|*.*|";
    if (text.empty() || text.back() != u'|') text += u'|';
    std::replace(text.begin(), text.end(), u'|', u'\0');
    return text + u'\0';
}

std::u16string askSystem(const Question& question) {
    const std::u16string folder = startFolder(question.folder);
    const std::u16string filter = systemFilter(question.filter);
    platform::FileDialog dialog;
    dialog.save = (question.flags & kSave) != 0;
    dialog.options = systemOptions(question);
    dialog.title = question.title;
    dialog.folder = folder.empty() ? nullptr : folder.c_str();
    dialog.defaultExtension = question.defaultExtension;
    dialog.filter = filter.c_str();
    dialog.owner = question.owner;
    return platform::fileDialog(dialog);
}

std::u16string trimmed(const std::u16string& text) {
    const std::size_t first = text.find_first_not_of(u" \t");
    if (first == text.npos) return u"";
    return text.substr(first, text.find_last_not_of(u" \t") - first + 1);
}

bool isAbsolute(std::u16string_view path) {
    return !path.empty() && (isSeparator(path[0]) || path.find(u':') != path.npos);
}

// What was typed as a full path: inside the folder of the question unless it is absolute, with the
// default extension unless it has one.
std::u16string typedPath(std::u16string name, const Question& question) {
    std::replace(name.begin(), name.end(), u'/', u'\\');
    if (!isAbsolute(name)) {
        std::u16string folder = startFolder(question.folder);
        if (folder.empty()) folder = platform::currentFolder();
        if (folder.empty() || !isSeparator(folder.back())) folder += u'\\';
        name = folder + name;
    }
    const char16_t* extension = question.defaultExtension;
    if (extension && *extension && extensionDot<char16_t>(name) == name.npos) {
        if (*extension != u'.') name += u'.';
        name += extension;
    }
    return name;
}

// Why a path can't be chosen; null when it can.
const char16_t* objection(const std::u16string& path, const Question& question) {
    const std::uint32_t attributes = platform::fileAttributes(path.c_str());
    const bool present = attributes != platform::kNoAttributes;
    if (present && (attributes & platform::kAttributeDirectory)) return u"That is a folder.\n";
    if (!present && (question.flags & kMustExist)) return u"There is no such file.\n";
    return nullptr;
}

bool confirmed(const std::u16string& path, const Question& question) {
    if (!(question.flags & kAskBeforeOverwrite)) return true;
    if (platform::fileAttributes(path.c_str()) == platform::kNoAttributes) return true;
    platform::writeStandardError(u"The file exists. Replace it? (y/n) ");
    std::u16string answer;
    return platform::readInputLine(answer) && !answer.empty() &&
           (answer[0] == u'y' || answer[0] == u'Y');
}

// The same question on the console. An empty line or the end of the input cancels.
std::u16string askConsole(const Question& question) {
    const std::u16string title = question.title ? question.title : u"Specify a file";
    for (;;) {
        platform::writeStandardError(title + u" (empty to cancel): ");
        std::u16string name;
        if (!platform::readInputLine(name)) return u"";
        name = trimmed(name);
        if (name.empty()) return u"";
        const std::u16string path = typedPath(name, question);
        if (const char16_t* reason = objection(path, question))
            platform::writeStandardError(reason);
        else if (confirmed(path, question))
            return path + std::u16string(2, u'\0');
    }
}

std::u16string ask(const Question& question) {
    if (platform::hasUserInterface()) return askSystem(question);
    const std::u16string chosen = consoleMayAsk() ? askConsole(question) : u"";
    platform::setLastError(0);  // what was asked of the system on the way is no failure
    return chosen;
}

// Several names come as the folder and the bare names, each terminated; a single one is followed by
// two terminators.
bool holdsSeveral(const std::u16string& chosen) {
    const std::size_t end = chosen.find(u'\0');
    return end + 1 < chosen.size() && chosen[end + 1] != 0;
}

std::u16string chosenFolder(const std::u16string& chosen) {
    const std::u16string first = chosen.c_str();
    return holdsSeveral(chosen) ? first : first.substr(0, cleanNameOffset<char16_t>(first));
}

// Without the terminator that copyText adds.
std::u16string_view resultText(const std::u16string& chosen) {
    const std::u16string_view all(chosen);
    return holdsSeveral(chosen) ? all.substr(0, all.size() - 1) : all.substr(0, all.find(u'\0'));
}

std::u16string select(const Question& question, std::uint32_t* extra) {
    platform::setLastError(0);
    if (!(question.flags & kNoBeep) && (platform::hasUserInterface() || consoleMayAsk()))
        platform::beep(kBeepMilliseconds, kBeepHertz);
    std::u16string chosen = ask(question);
    if (extra) *extra = question.flags;
    if (chosen.empty()) return chosen;
    if (extra && holdsSeveral(chosen)) *extra |= kSeveralChosen;
    if (!question.folder || !*question.folder) rememberedFolder() = chosenFolder(chosen);
    return chosen;
}

template <class Ch>
Ch* newSelection(const Ch* title, const Ch* folder, const Ch* defaultExtension, const Ch* filter,
                 std::uint32_t flags, std::int64_t owner, std::uint32_t* extra) noexcept {
    return guardValue<Ch*>(nullptr, [&]() -> Ch* {
        const SystemText titleText(title);
        const SystemText folderText(folder);
        const SystemText extensionText(defaultExtension);
        const SystemText filterText(filter);
        const std::u16string chosen =
            select({titleText.get(), folderText.get(), extensionText.get(), filterText.get(), flags,
                    owner, extra},
                   extra);
        if (chosen.empty()) return nullptr;
        return ownedText<Ch>(resultText(chosen)).release();
    });
}

// Mode word of FileOpen for a file that must be new.
constexpr std::uint32_t kNewFile = kOpenNew | kOpenWrite;

template <class Ch>
std::int64_t openNewFile(const Ch* title, Ch** path) noexcept {
    if (path) *path = nullptr;
    return guardValue(platform::kBadHandle, [&] {
        const SystemText titleText(title);
        const std::u16string chosen = select(
            {titleText.get(), nullptr, nullptr, u"Text files|*.txt|", kSave, 0, nullptr}, nullptr);
        if (chosen.empty()) return platform::kBadHandle;
        Owned<Ch> name = ownedText<Ch>(resultText(chosen));
        platform::setLastError(0);
        const std::int64_t handle = openFileByMode(chosen.c_str(), kNewFile);
        if (platform::isHandle(handle) && path) *path = name.release();
        return handle;
    });
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

char16_t* NewOsFileSelectDialog(const char16_t* title, const char16_t* folder,
                                const char16_t* defaultExtension, const char16_t* filter,
                                uint32_t flags, int64_t owner, uint32_t* extra) noexcept {
    return newSelection(title, folder, defaultExtension, filter, flags, owner, extra);
}

char* NewOsFileSelectDialogA(const char* title, const char* folder, const char* defaultExtension,
                             const char* filter, uint32_t flags, int64_t owner,
                             uint32_t* extra) noexcept {
    return newSelection(title, folder, defaultExtension, filter, flags, owner, extra);
}

int64_t OsOpenNewFile(const char16_t* title, char16_t** path) noexcept {
    return openNewFile(title, path);
}

int64_t OsOpenNewFileA(const char* title, char** path) noexcept {
    return openNewFile(title, path);
}
