#include "nuv64/core/thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <thread>
#include <vector>

#include "nuv64/core/critical_section.h"
#include "nuv64/core/disk.h"
#include "nuv64/core/file.h"
#include "nuv64/core/file_time.h"
#include "nuv64/core/process.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

namespace {

constexpr std::uint32_t kSuspended = 0x4;
constexpr std::uint32_t kNoCount = 0xFFFFFFFF;
constexpr std::int32_t kNoPriority = 0x7FFFFFFF;
constexpr std::int64_t kNoHandles[] = {0, -1, 0x123456789ABC, INT64_MAX, INT64_MIN};

void pause(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void waitForEnd(std::int64_t thread) {
    while (OsThreadIsActive(thread)) pause(1);
}

struct Job {
    std::atomic<int> calls{0};
    std::atomic<bool> goOn{false};
    std::atomic<std::uint32_t> threadId{0};
};

std::uint32_t count(void* context) {
    auto& job = *static_cast<Job*>(context);
    std::uint32_t id = 0;
    OsThisThreadInfo(&id);
    job.threadId = id;
    ++job.calls;
    return 17;
}

std::uint32_t waitForJob(void* context) {
    const auto& job = *static_cast<Job*>(context);
    while (!job.goOn) pause(1);
    return count(context);
}

// A thread that runs until the test ends.
class WaitingThread {
  public:
    WaitingThread() : handle_(OsThreadCreate(&waitForJob, &job_, 0, &id_)) {
        EXPECT_NE(handle_, 0);
    }
    ~WaitingThread() {
        end();
        EXPECT_TRUE(OsKillHandle(&handle_));
        EXPECT_EQ(handle_, 0);
    }
    void end() {
        job_.goOn = true;
        waitForEnd(handle_);
        EXPECT_EQ(job_.calls, 1);
    }
    std::int64_t handle() const { return handle_; }
    std::uint32_t id() const { return id_; }

  private:
    Job job_;
    std::uint32_t id_ = 0;
    std::int64_t handle_;
};

TEST(OsThreadCreate, RunsTheFunctionInAThreadOfItsOwn) {
    Job job;
    std::uint32_t id = 0, own = 0;
    std::int64_t thread = OsThreadCreate(&count, &job, 0, &id);
    ASSERT_NE(thread, 0);
    waitForEnd(thread);
    EXPECT_EQ(job.calls, 1);
    EXPECT_EQ(job.threadId, id);
    OsThisThreadInfo(&own);
    EXPECT_NE(id, own);
    EXPECT_TRUE(OsKillHandle(&thread));
    EXPECT_EQ(thread, 0);
}

TEST(OsThreadCreate, AThreadGoesOnWithoutItsHandle) {
    Job job;
    std::int64_t thread = OsThreadCreate(&waitForJob, &job, 0, nullptr);
    EXPECT_TRUE(OsKillHandle(&thread));
    job.goOn = true;
    while (job.calls == 0) pause(1);
    pause(50);
}

TEST(OsThreadCreate, ManyAtOnce) {
    Job job;
    std::vector<std::int64_t> threads;
    for (int i = 0; i < 50; ++i) threads.push_back(OsThreadCreate(&count, &job, 0, nullptr));
    for (std::int64_t& thread : threads) {
        ASSERT_NE(thread, 0);
        waitForEnd(thread);
        EXPECT_TRUE(OsKillHandle(&thread));
    }
    EXPECT_EQ(job.calls, 50);
}

TEST(OsThreadCreate, RefusesNoFunction) {
    std::uint32_t id = 5;
    EXPECT_EQ(OsThreadCreate(nullptr, nullptr, 0, &id), 0);
    EXPECT_EQ(id, 0u);
    EXPECT_NE(nuv64::platform::lastError(), 0u);
}

TEST(OsThreadResume, LetsAWaitingThreadGoOn) {
    Job job;
    std::int64_t thread = OsThreadCreate(&count, &job, kSuspended, nullptr);
    ASSERT_NE(thread, 0);
    pause(30);
    EXPECT_EQ(job.calls, 0);
    EXPECT_TRUE(OsThreadIsActive(thread));
    EXPECT_EQ(OsThreadResume(thread), 1u);
    waitForEnd(thread);
    EXPECT_EQ(job.calls, 1);
    EXPECT_TRUE(OsKillHandle(&thread));
    const WaitingThread running;
    EXPECT_EQ(OsThreadResume(running.handle()), 0u) << "it runs already";
}

TEST(OsThreadResume, ByAHandleThatWasOpenedLater) {
    Job job;
    std::uint32_t id = 0;
    std::int64_t thread = OsThreadCreate(&count, &job, kSuspended, &id);
    std::int64_t second = OsThreadOpen(id, 0);
    ASSERT_NE(second, 0);
    EXPECT_TRUE(OsThreadIsActive(second));
    EXPECT_EQ(OsThreadResume(second), 1u);
    waitForEnd(thread);
    EXPECT_FALSE(OsThreadIsActive(second));
    EXPECT_EQ(job.calls, 1);
    EXPECT_TRUE(OsKillHandle(&thread));
    EXPECT_TRUE(OsKillHandle(&second));
}

TEST(OsThreadOpen, OpensAThreadOfTheHost) {
    std::atomic<std::uint32_t> id{0};
    std::atomic<bool> goOn{false};
    std::thread other([&] {
        std::uint32_t own = 0;
        OsThisThreadInfo(&own);
        id = own;
        while (!goOn) pause(1);
    });
    while (id == 0) pause(1);
    std::int64_t thread = OsThreadOpen(id, 0);
    EXPECT_NE(thread, 0);
    EXPECT_TRUE(OsThreadIsActive(thread));
    EXPECT_EQ(OsThreadResume(thread), 0u);
    std::uint64_t created = 0, exited = 1;
    EXPECT_TRUE(OsThreadTimes(thread, &created, &exited, nullptr, nullptr));
    EXPECT_GT(created, 0u);
    EXPECT_EQ(exited, 0u);
    goOn = true;
    other.join();
    waitForEnd(thread);
    EXPECT_EQ(OsThreadPriority(thread), OsThreadPriority(thread));
    EXPECT_TRUE(OsKillHandle(&thread));
    EXPECT_EQ(OsThreadOpen(0, 0), 0);
    EXPECT_EQ(OsThreadOpen(0xFFFFFFFC, 0), 0);
}

TEST(OsThreadPriority, LevelsAreSetAndRead) {
    const WaitingThread thread;
    const std::int32_t normal = OsThreadPriority(thread.handle());
    EXPECT_EQ(normal, OsThreadPriority(OsThisThreadInfo(nullptr)));
    // Downwards needs no privilege.
    for (const std::int32_t level : {-1, -2, -15}) {
        EXPECT_TRUE(OsThreadSetPriority(thread.handle(), level)) << level;
        EXPECT_EQ(OsThreadPriority(thread.handle()), level);
    }
    if (OsThreadSetPriority(thread.handle(), 15)) {
        EXPECT_EQ(OsThreadPriority(thread.handle()), 15);
        for (const std::int32_t level : {0, 1, 2}) {
            EXPECT_TRUE(OsThreadSetPriority(thread.handle(), level)) << level;
            EXPECT_EQ(OsThreadPriority(thread.handle()), level);
        }
    }
    for (const std::int32_t level : {3, -3, 16, INT32_MAX, INT32_MIN})
        EXPECT_FALSE(OsThreadSetPriority(thread.handle(), level)) << level;
    EXPECT_EQ(OsThreadPriority(OsThisThreadInfo(nullptr)), normal) << "of that thread alone";
}

std::uint32_t lowerOwnPriority(void* context) {
    const bool set = OsThisThreadSetPriority(-2);
    *static_cast<bool*>(context) = set && OsThreadPriority(OsThisThreadInfo(nullptr)) == -2;
    return 0;
}

TEST(OsThisThreadSetPriority, SetsTheCallersOwn) {
    bool right = false;
    std::int64_t thread = OsThreadCreate(&lowerOwnPriority, &right, 0, nullptr);
    waitForEnd(thread);
    EXPECT_TRUE(right);
    EXPECT_TRUE(OsKillHandle(&thread));
    EXPECT_FALSE(OsThisThreadSetPriority(77));
}

TEST(OsThreadSetAffinity, GivesTheFormerMask) {
    const WaitingThread thread;
    const std::uint64_t mask = OsThreadSetAffinity(thread.handle(), 1);
    if (mask == 0) GTEST_SKIP() << "the first processor is not for this process";
    EXPECT_TRUE(mask & 1);
    EXPECT_EQ(OsThreadSetAffinity(thread.handle(), mask), 1u);
    EXPECT_EQ(OsThreadSetAffinity(thread.handle(), mask), mask);
    EXPECT_EQ(OsThreadSetAffinity(thread.handle(), 0), 0u);
    EXPECT_EQ(OsThreadSetAffinity(thread.handle(), mask), mask) << "nothing was changed";
}

std::uint32_t burn(void* context) {
    const auto& job = *static_cast<Job*>(context);
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(150);
    while (std::chrono::steady_clock::now() < end) continue;
    while (!job.goOn) pause(1);
    return 0;
}

TEST(OsThreadTimes, TellsTheLifeOfAThread) {
    std::uint64_t before = 0, after = 0;
    std::uint64_t created = 0, exited = 1, kernel = 0, user = 0;
    tOsSystemTimeAsFileTime(&before);
    Job job;
    std::int64_t thread = OsThreadCreate(&burn, &job, 0, nullptr);
    ASSERT_TRUE(OsThreadTimes(thread, &created, &exited, &kernel, &user));
    EXPECT_EQ(exited, 0u);
    EXPECT_GE(created + 1'000'000, before);
    job.goOn = true;
    waitForEnd(thread);
    tOsSystemTimeAsFileTime(&after);
    ASSERT_TRUE(OsThreadTimes(thread, &created, &exited, &kernel, &user));
    EXPECT_GE(exited, created);
    EXPECT_LE(exited, after + 1'000'000);
#ifndef _WIN32
    EXPECT_GT(kernel + user, 100'000u) << "of 150 ms of work, on a machine that others use too";
#endif
    EXPECT_TRUE(OsThreadTimes(thread, nullptr, nullptr, nullptr, nullptr));
    EXPECT_TRUE(OsKillHandle(&thread));
    EXPECT_TRUE(OsThreadTimes(OsThisThreadInfo(nullptr), &created, &exited, &kernel, &user));
    EXPECT_EQ(exited, 0u);
}

TEST(OsThreadIsActive, CallsOnAnEndedThreadFail) {
    WaitingThread thread;
    thread.end();
    EXPECT_FALSE(OsThreadIsActive(thread.handle()));
#ifndef _WIN32
    EXPECT_EQ(OsThreadPriority(thread.handle()), kNoPriority);
    EXPECT_FALSE(OsThreadSetPriority(thread.handle(), 0));
    EXPECT_EQ(OsThreadSetAffinity(thread.handle(), 1), 0u);
    EXPECT_EQ(OsThreadOpen(thread.id(), 0), 0);
#endif
}

TEST(Threads, NoHandleIsTaken) {
    for (const std::int64_t handle : kNoHandles) {
        std::uint64_t created = 1;
        EXPECT_FALSE(OsThreadIsActive(handle)) << handle;
        EXPECT_EQ(OsThreadResume(handle), kNoCount) << handle;
        EXPECT_EQ(OsThreadPriority(handle), kNoPriority) << handle;
        EXPECT_FALSE(OsThreadSetPriority(handle, 0)) << handle;
        EXPECT_EQ(OsThreadSetAffinity(handle, 1), 0u) << handle;
        EXPECT_FALSE(OsThreadTimes(handle, &created, nullptr, nullptr, nullptr)) << handle;
        EXPECT_EQ(created, 1u);
        EXPECT_NE(nuv64::platform::lastError(), 0u);
    }
}

TEST(OsKillHandle, TakesHandlesOfAnyKind) {
    EXPECT_TRUE(OsKillHandle(nullptr));
    std::int64_t handle = 0;
    EXPECT_TRUE(OsKillHandle(&handle));
    handle = -1;
    EXPECT_TRUE(OsKillHandle(&handle));
    EXPECT_EQ(handle, 0);
    handle = OsThisThreadInfo(nullptr);
    EXPECT_TRUE(OsKillHandle(&handle)) << "nothing to release";
    EXPECT_EQ(handle, 0);
    EXPECT_TRUE(OsThreadIsActive(OsThisThreadInfo(nullptr)));
    handle = 0x123456789ABC;
    EXPECT_FALSE(OsKillHandle(&handle));
    EXPECT_EQ(handle, 0);
    const TempFolder folder;
    handle = FileOpen(folder.write("file", "x").c_str(), 0);
    const std::int64_t file = handle;
    EXPECT_TRUE(OsKillHandle(&handle));
    char byte = 0;
    EXPECT_EQ(FileReadBinary(file, &byte, 1), -1) << "it is closed";
}

// The low half of a handle of a thread may be the number of an open file.
TEST(Threads, AHandleIsNoFile) {
    const TempFolder folder;
    std::int64_t file = FileOpen(folder.wide("file").c_str(), 1);
    const std::int64_t other = file + (std::int64_t{1} << 32);
    EXPECT_FALSE(FileWriteA(other, "text"));
    EXPECT_FALSE(OsFlushFileOrPortBuffers(other));
    EXPECT_NE(nuv64::platform::lastError(), 0u);
    char byte = 0;
    EXPECT_EQ(FileReadBinary(other, &byte, 1), -1);
    std::int64_t closed = other;
    EXPECT_FALSE(FileClose(&closed, 0));
    EXPECT_TRUE(FileWriteA(file, "x")) << "still open";
    EXPECT_TRUE(FileClose(&file, 0));
    EXPECT_EQ(folder.read("file"), "x");
}

struct Counter {
    void* section = nullptr;
    int value = 0;  // guarded by the section
};

std::uint32_t countInSection(void* context) {
    auto& counter = *static_cast<Counter*>(context);
    for (int i = 0; i < 2000; ++i) {
        OsEnterCriticalSection(counter.section);
        OsEnterCriticalSection(counter.section);
        const int value = counter.value;
        if (i % 16 == 0) std::this_thread::yield();
        counter.value = value + 1;
        OsLeaveCriticalSection(counter.section);
        OsLeaveCriticalSection(counter.section);
    }
    return 0;
}

TEST(CriticalSection, LetsOneThreadInAtATime) {
    Counter counter;
    counter.section = OsMakeCriticalSection();
    ASSERT_NE(counter.section, nullptr);
    std::int64_t threads[4];
    for (std::int64_t& thread : threads)
        thread = OsThreadCreate(&countInSection, &counter, 0, nullptr);
    for (std::int64_t& thread : threads) {
        waitForEnd(thread);
        EXPECT_TRUE(OsKillHandle(&thread));
    }
    OsEnterCriticalSection(counter.section);
    EXPECT_EQ(counter.value, 8000);
    OsLeaveCriticalSection(counter.section);
    OsDeleteCriticalSection(counter.section);
}

std::uint32_t tryToEnter(void* section) {
    return OsTryEnterCriticalSection(section);
}

TEST(CriticalSection, IsTriedWithoutWaiting) {
    void* section = OsMakeCriticalSection();
    EXPECT_TRUE(OsTryEnterCriticalSection(section));
    EXPECT_TRUE(OsTryEnterCriticalSection(section)) << "by its holder";
    bool entered = true;
    std::thread([&] { entered = tryToEnter(section) != 0; }).join();
    EXPECT_FALSE(entered);
    OsLeaveCriticalSection(section);
    std::thread([&] { entered = tryToEnter(section) != 0; }).join();
    EXPECT_FALSE(entered) << "entered twice, left once";
    OsLeaveCriticalSection(section);
    std::thread([&] {
        entered = tryToEnter(section) != 0;
        OsLeaveCriticalSection(section);
    }).join();
    EXPECT_TRUE(entered);
    OsDeleteCriticalSection(section);
}

TEST(CriticalSection, NoneIsTaken) {
    OsEnterCriticalSection(nullptr);
    EXPECT_FALSE(OsTryEnterCriticalSection(nullptr));
    OsLeaveCriticalSection(nullptr);
    OsDeleteCriticalSection(nullptr);
}

}  // namespace
