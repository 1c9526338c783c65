#include "nuv64/core/process.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>

#include "core/owned_result.h"
#include "nuv64/core/file_time.h"
#include "nuv64/core/system.h"
#include "nuv64/core/thread.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

#ifndef _WIN32
#include <signal.h>
#include <sys/wait.h>
#endif

namespace {

constexpr std::uint32_t kStillActive = 259;
constexpr std::uint32_t kForEver = 0xFFFFFFFF;
constexpr std::uint32_t kAllOnes = 0xFFFFFFFF;
constexpr const char* kTask = "NUV64_TEST_CHILD";

void pause(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

// The program of these tests is their child too: with a task in its environment it does that
// instead of any test.
bool startsWith(const char* text, const char* start) {
    return std::strncmp(text, start, std::strlen(start)) == 0;
}

int actAsChild() {
    const char* task = std::getenv(kTask);
    if (!task || !*task) return 0;
    if (startsWith(task, "exit")) std::_Exit(std::atoi(task + 4));
    if (startsWith(task, "wait")) {
        pause(std::atoi(task + 4));
        std::_Exit(8);
    }
    if (startsWith(task, "tell")) {
        std::ofstream("told.txt", std::ios::binary) << *taken(OsStringNewCopyA(10));
        std::_Exit(0);
    }
    if (startsWith(task, "burn")) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(150);
        while (std::chrono::steady_clock::now() < end) continue;
        std::_Exit(0);
    }
#ifndef _WIN32
    if (startsWith(task, "kill")) ::raise(SIGKILL);
#endif
    std::_Exit(99);
}
[[maybe_unused]] const int childResult = actAsChild();

class Task {
  public:
    explicit Task(const char* task) { EXPECT_TRUE(OsSetEnvironmentVariableA(kTask, task)); }
    ~Task() { EXPECT_TRUE(OsSetEnvironmentVariableA(kTask, nullptr)); }
};

std::u16string ownPath() {
    return *taken(OsStringNewCopy(6));
}

// Detaches at the end of the test.
class Launched {
  public:
    explicit Launched(const char* task, const char16_t* arguments = nullptr) {
        const Task set(task);
        record_ = OsProcessLaunch(ownPath().c_str(), arguments, nullptr);
        EXPECT_NE(record_, nullptr);
    }
    ~Launched() {
        OsProcessDetach(&record_);
        EXPECT_EQ(record_, nullptr);
    }
    OsProcess* get() const { return record_; }
    OsProcess* operator->() const { return record_; }

  private:
    OsProcess* record_ = nullptr;
};

TEST(OsProcessLaunch, GivesARecordOfTheRunningProgram) {
    const Launched child("wait600");
    ASSERT_NE(child.get(), nullptr);
    EXPECT_NE(child->process, 0);
    EXPECT_NE(child->thread, 0);
    EXPECT_NE(child->process, child->thread);
    EXPECT_EQ(child->exitCode, kStillActive);
    EXPECT_TRUE(OsProcessTest(child.get()));
    EXPECT_TRUE(OsThreadIsActive(child->thread));
    EXPECT_EQ(OsProcessWaitForTermination(child.get(), 10), kStillActive);
    EXPECT_EQ(child->exitCode, kStillActive);
    EXPECT_EQ(OsProcessWaitForTermination(child.get(), kForEver), 8u);
    EXPECT_EQ(child->exitCode, 8u);
    EXPECT_FALSE(OsProcessTest(child.get()));
    EXPECT_FALSE(OsThreadIsActive(child->thread));
    EXPECT_EQ(OsProcessWaitForTermination(child.get(), 0), 8u) << "as often as one likes";
}

TEST(OsProcessLaunch, ATimedWaitSeesTheEnd) {
    const Launched child("exit5");
    EXPECT_EQ(OsProcessWaitForTermination(child.get(), 60000), 5u);
    const Launched same("exit259");
    while (OsProcessTest(same.get())) pause(5);
    const std::uint32_t code = same->exitCode;
#ifdef _WIN32
    EXPECT_EQ(code, kStillActive) << "an exit code like any other";
#else
    EXPECT_EQ(code, kStillActive % 256);
#endif
}

TEST(OsProcessLaunch, FailsWithoutAProgram) {
    EXPECT_EQ(OsProcessLaunch(nullptr, nullptr, nullptr), nullptr);
    EXPECT_EQ(OsProcessLaunch(u"", u"", u""), nullptr);
    EXPECT_EQ(OsProcessLaunch(u"  ", u"x", nullptr), nullptr);
    EXPECT_EQ(OsProcessLaunch(u"\"", u"x", nullptr), nullptr);
    EXPECT_EQ(OsProcessLaunch(u"C:\\no such folder\\no such program", nullptr, nullptr), nullptr);
    EXPECT_NE(nuv64::platform::lastError(), 0u);
    EXPECT_EQ(OsProcessLaunch(ownPath().c_str(), nullptr, u"C:\\no such folder"), nullptr);
}

TEST(OsProcessDetach, TakesNoRecord) {
    OsProcessDetach(nullptr);
    OsProcess* none = nullptr;
    OsProcessDetach(&none);
    EXPECT_FALSE(OsProcessTest(nullptr));
    EXPECT_EQ(OsProcessWaitForTermination(nullptr, 0), kAllOnes);
    OsProcess empty{0, 0, 3};
    EXPECT_FALSE(OsProcessTest(&empty));
    EXPECT_EQ(OsProcessWaitForTermination(&empty, 0), kAllOnes);
    OsProcess wrong{0x123456789ABC, -1, 3};
    EXPECT_FALSE(OsProcessTest(&wrong));
    EXPECT_EQ(OsProcessWaitForTermination(&wrong, kForEver), kAllOnes);
    EXPECT_EQ(wrong.exitCode, 3u);
}

#ifndef _WIN32
// A child that has ended and that nobody has waited for yet; 0 for none.
pid_t endedChild() {
    siginfo_t info{};
    ::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT);
    return info.si_pid;
}

// Detached programs go on, and none stays in the system's table once another one was started.
TEST(OsProcessDetach, LeavesNoZombies) {
    for (int i = 0; i < 3; ++i) const Launched child("wait30");
    for (int i = 0; i < 400 && endedChild() == 0; ++i) pause(5);
    pause(100);
    for (int i = 0; i < 200 && endedChild() != 0; ++i) {
        const Launched next("exit0");
        OsProcessWaitForTermination(next.get(), kForEver);
    }
    EXPECT_EQ(endedChild(), 0);
}

TEST(OsProcessLaunch, TellsASignalAsAShellDoes) {
    const Launched child("kill");
    EXPECT_EQ(OsProcessWaitForTermination(child.get(), kForEver), 128u + SIGKILL);
}

// A host that ignores its children takes their exit codes from everyone.
TEST(OsProcessLaunch, AHostThatIgnoresItsChildren) {
    const auto old = ::signal(SIGCHLD, SIG_IGN);
    {
        const Launched child("exit4");
        EXPECT_EQ(OsProcessWaitForTermination(child.get(), kForEver), kAllOnes);
        EXPECT_FALSE(OsProcessTest(child.get()));
    }
    ::signal(SIGCHLD, old);
}
#endif

std::uint32_t run(const char* task, const std::u16string& path, const char16_t* arguments,
                  const char16_t* folder, std::uint32_t* exitCode) {
    const Task set(task);
    return OsRunApplication(path.c_str(), arguments, folder, 1, exitCode);
}

TEST(OsRunApplication, WaitsForTheExitCode) {
    std::uint32_t code = 77;
    EXPECT_EQ(run("exit7", ownPath(), nullptr, nullptr, &code), 0u);
    EXPECT_EQ(code, 7u);
    EXPECT_EQ(run("exit9", u"  " + ownPath() + u" ", u"", u"", &code), 0u) << "groomed";
    EXPECT_EQ(code, 9u);
    EXPECT_EQ(run("exit3", u"\"" + ownPath() + u"\" -more", u"and more", nullptr, &code), 0u);
    EXPECT_EQ(code, 3u);
}

TEST(OsRunApplication, ReturnsAtOnceWithoutOne) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(run("wait3000", ownPath(), nullptr, nullptr, nullptr), 0u);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

TEST(OsRunApplication, PassesArgumentsAndFolder) {
    const TempFolder folder;
    const std::u16string place = folder.wide("");
    std::uint32_t code = 77;
    EXPECT_EQ(run("tell", ownPath(), u"one \"two  blanks\" $(three) ; four", place.c_str(), &code),
              0u);
    EXPECT_EQ(code, 0u);
    const std::string told = folder.read("told.txt");
    EXPECT_NE(told.find(" one \"two  blanks\" $(three) ; four"), std::string::npos) << told;
}

TEST(OsRunApplication, TellsThatItFailed) {
    std::uint32_t code = 77;
    testing::internal::CaptureStderr();
    EXPECT_EQ(OsRunApplication(u" no such program ", nullptr, nullptr, 0, &code), 1u);
    const std::string shown = testing::internal::GetCapturedStderr();
    EXPECT_NE(shown.find("Failed to launch\nno such program\n"), std::string::npos) << shown;
    testing::internal::CaptureStderr();
    EXPECT_EQ(OsRunApplication(u"no such program", nullptr, nullptr, 1, &code), 1u);
    EXPECT_EQ(OsRunApplication(u"", nullptr, nullptr, 1, &code), 1u);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(code, 77u);
}

TEST(OsRunApplication, ACancelledDialogGivesAllOnes) {
    if (nuv64::platform::hasUserInterface() || nuv64::platform::inputIsTerminal())
        GTEST_SKIP() << "there is a user";
    std::uint32_t code = 77;
    EXPECT_EQ(OsRunApplication(nullptr, nullptr, nullptr, 0, &code), kAllOnes);
    EXPECT_EQ(code, 77u);
}

TEST(OsProcessTimes, OfThisProcess) {
    std::uint64_t now = 0;
    tOsSystemTimeAsFileTime(&now);
    std::uint64_t created = 0, exited = 1, kernel = 0, user = 0;
    ASSERT_TRUE(OsProcessTimes(OsCurrentProcess(), &created, &exited, &kernel, &user));
    EXPECT_LE(created, now + 10'000'000);
    EXPECT_GT(created, now - 36'000'000'000);
    EXPECT_EQ(exited, 0u);
    EXPECT_GT(kernel + user, 0u);
    EXPECT_TRUE(OsProcessTimes(OsCurrentProcess(), nullptr, nullptr, nullptr, nullptr));
}

TEST(OsProcessTimes, OfAnotherProgram) {
    std::uint64_t before = 0, after = 0;
    tOsSystemTimeAsFileTime(&before);
    const Launched child("burn");
    std::uint64_t created = 0, exited = 1, kernel = 0, user = 0;
    ASSERT_TRUE(OsProcessTimes(child->process, &created, &exited, &kernel, &user));
    EXPECT_EQ(exited, 0u);
    OsProcessWaitForTermination(child.get(), kForEver);
    tOsSystemTimeAsFileTime(&after);
    ASSERT_TRUE(OsProcessTimes(child->process, &created, &exited, &kernel, &user));
    EXPECT_GE(created + 1'000'000, before);
    EXPECT_LE(created, exited);
    EXPECT_LE(exited, after + 1'000'000);
    EXPECT_GT(kernel + user, 100'000u) << "of 150 ms of work, on a machine that others use too";
    std::uint64_t threadCreated = 0;
    EXPECT_TRUE(OsThreadTimes(child->thread, &threadCreated, nullptr, nullptr, nullptr));
}

TEST(OsProcessTimes, LeavesAllAloneForNoProcess) {
    std::uint64_t created = 1, exited = 2, kernel = 3, user = 4;
    for (const std::int64_t handle : {std::int64_t{0}, std::int64_t{0x7FFFFFFF12345678}})
        EXPECT_FALSE(OsProcessTimes(handle, &created, &exited, &kernel, &user));
    EXPECT_EQ(created + exited + kernel + user, 10u);
}

TEST(OsProcessors, AreSomeAndThreadsHaveNoMessages) {
    EXPECT_GE(OsProcessors(), 1u);
    EXPECT_LE(OsProcessors(), 100000u);
    OsProcessQueuedMessages();
    EXPECT_EQ(OsProcessQueuedMessages(), 0u);
}

}  // namespace
