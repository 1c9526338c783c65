#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "platform/posix/native.h"

namespace nuv64::platform {

namespace {

constexpr const char* kOpener = "xdg-open";

bool isLink(std::u16string_view target) noexcept {
    const auto isSchemeChar = [](char16_t c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
               c == u'+' || c == u'-' || c == u'.';
    };
    // A single letter before the colon is a drive.
    const auto colon = std::find_if_not(target.begin(), target.end(), isSchemeChar);
    return colon != target.end() && *colon == u':' && colon - target.begin() > 1;
}

// Runs in the child: a grandchild becomes the opener, so that nobody has to wait for it; a failure
// to start goes into the pipe, which a success closes. Only calls that are safe behind a fork.
[[noreturn]] void becomeOpener(const char* opener, const char* target, int report) noexcept {
    const pid_t grandchild = ::fork();
    if (grandchild > 0) ::_exit(0);
    if (grandchild == 0) {
        ::setsid();
        ::execlp(opener, opener, target, static_cast<char*>(nullptr));
    }
    const int code = errno;
    [[maybe_unused]] const ssize_t written = ::write(report, &code, sizeof code);
    ::_exit(1);
}

bool start(const char* opener, const char* target) noexcept {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return noteError();
    const Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    const pid_t child = ::fork();
    if (child < 0) return noteError();
    if (child == 0) becomeOpener(opener, target, writing.get());
    ::close(writing.release());
    int status = 0;
    retried([&] { return ::waitpid(child, &status, 0); });
    int code = 0;
    if (readFile(reading.get(), &code, sizeof code) == sizeof code) return noteError(code);
    return true;
}

}  // namespace

// Boxes and file dialogs belong to the desktop environment, not to the system: callers ask on the
// console instead.
bool hasUserInterface() noexcept {
    return false;
}

Answer messageBox(const char16_t*, const char16_t*, Buttons, Icon) {
    return Answer::kFailed;
}

std::u16string fileDialog(const FileDialog&) {
    return u"";
}

bool shellOpen(const char16_t* target) {
    std::string native = isLink(target) ? utf8FromWide(target) : nativePath(target);
    if (native.empty()) return noteError(ENOENT);
    if (native[0] == '-') native.insert(0, "./");  // never an option of the opener
    return start(kOpener, native.c_str());
}

}  // namespace nuv64::platform
