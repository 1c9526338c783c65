#include "platform/posix/spawn.h"

#include <signal.h>
#include <spawn.h>
#include <unistd.h>

#include <array>
#include <new>

#include "platform/posix/native.h"

namespace nuv64::platform {

namespace {

class SpawnActions {
  public:
    SpawnActions() {
        if (::posix_spawn_file_actions_init(&actions_) != 0) throw std::bad_alloc();
    }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;
    ~SpawnActions() { ::posix_spawn_file_actions_destroy(&actions_); }

    void changeFolder(const std::string& folder) {
        if (!folder.empty())
            check(::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str()));
    }
    void redirect(int from, int to) {
        if (from >= 0) check(::posix_spawn_file_actions_adddup2(&actions_, from, to));
    }
    const posix_spawn_file_actions_t* get() const noexcept { return &actions_; }

  private:
    static void check(int result) {
        if (result != 0) throw std::bad_alloc();  // nothing else can fail here
    }
    posix_spawn_file_actions_t actions_;
};

// A program starts with no signal blocked, and with the usual answer to those that hosts often
// ignore.
class SpawnAttributes {
  public:
    SpawnAttributes() {
        if (::posix_spawnattr_init(&attributes_) != 0) throw std::bad_alloc();
        sigset_t signals;
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes_, &signals);
        ::sigaddset(&signals, SIGPIPE);
        ::sigaddset(&signals, SIGCHLD);
        ::posix_spawnattr_setsigdefault(&attributes_, &signals);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;
    ~SpawnAttributes() { ::posix_spawnattr_destroy(&attributes_); }
    const posix_spawnattr_t* get() const noexcept { return &attributes_; }

  private:
    posix_spawnattr_t attributes_;
};

// A path below the current folder still means that after the change of folder.
std::string programPath(const std::string& word) {
    if (word.find('/') == word.npos || word[0] == '/') return word;
    return nativePath(currentFolder()) + '/' + word;
}

}  // namespace

pid_t spawnProgram(std::vector<std::string> words, const std::string& folder,
                   const Streams& streams) {
    if (words.empty() || words[0].empty()) return noteError(ENOENT), -1;
    SpawnActions actions;
    actions.changeFolder(folder);
    actions.redirect(streams.input, STDIN_FILENO);
    actions.redirect(streams.output, STDOUT_FILENO);
    actions.redirect(streams.error, STDERR_FILENO);
    const SpawnAttributes attributes;
    const std::string program = programPath(words[0]);
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t id = -1;
    const int code = ::posix_spawnp(&id, program.c_str(), actions.get(), attributes.get(),
                                    arguments.data(), environ);
    if (code != 0) return noteError(code), -1;
    return id;
}

}  // namespace nuv64::platform
