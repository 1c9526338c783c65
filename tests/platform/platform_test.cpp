#include "platform/platform.h"

#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <thread>

#include "platform/utf_text.h"
#include "support/temp_folder.h"

#ifndef _WIN32
#include <signal.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>
#endif

namespace platform = nuv64::platform;

namespace {

TEST(Unicode, EveryCodePointSurvivesTheRoundTrip) {
    std::u16string all;
    for (std::uint32_t c = 0; c <= 0x10FFFF; ++c)
        if (c < 0xD800 || c > 0xDFFF) platform::appendUtf16(all, c);
    const std::string narrow = platform::utf8FromWide(all);
    EXPECT_EQ(narrow.size(), 0x80u + 2 * 0x780u + 3 * (0xF800u - 0x800u) + 4 * 0x100000u);
    EXPECT_EQ(platform::wideFromUtf8(narrow), all);
}

TEST(Unicode, IllFormedTextBecomesReplacements) {
    EXPECT_EQ(platform::wideFromUtf8("a\x80z"), u"a\uFFFDz");
    EXPECT_EQ(platform::wideFromUtf8("\xC0\xAF"), u"\uFFFD\uFFFD") << "too long a form";
    EXPECT_EQ(platform::wideFromUtf8("\xE0\x80\xAF"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(platform::wideFromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD") << "a surrogate";
    EXPECT_EQ(platform::wideFromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(platform::wideFromUtf8("\xF1\x80\x80\xE1\x80\xC2"), u"\uFFFD\uFFFD\uFFFD")
        << "one for each maximal subpart";
    EXPECT_EQ(platform::wideFromUtf8("\xE2\x82"), u"\uFFFD") << "cut off";
    const char16_t lone[] = {u'a', 0xD800, u'b', 0xDC00, 0xDBFF, 0};
    EXPECT_EQ(platform::utf8FromWide(lone),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(platform::utf8FromWide({}), "");
    EXPECT_EQ(platform::wideFromUtf8({}), u"");
}

TEST(Unicode, AnyBytesSurviveInEscapedForm) {
    std::mt19937 random(5);
    for (int i = 0; i < 20000; ++i) {
        std::string bytes(random() % 12, ' ');
        for (char& c : bytes) c = static_cast<char>(random());
        const auto wide = platform::decodeUtf8(bytes, platform::BadBytes::kEscape);
        EXPECT_EQ(platform::encodeUtf8(wide, platform::BadBytes::kEscape), bytes);
        platform::wideFromUtf8(bytes);
    }
}

TEST(LastError, BelongsToTheThread) {
    // Starting and joining a thread are system calls too, so the slot is read in between.
    std::atomic<bool> begin{false};
    std::atomic<std::uint32_t> other{0};
    std::thread thread([&] {
        while (!begin) continue;
        platform::setLastError(8);
        other = platform::lastError();
    });
    platform::setLastError(7);
    begin = true;
    while (other == 0) continue;
    const std::uint32_t own = platform::lastError();
    thread.join();
    EXPECT_EQ(other, 8u);
    EXPECT_EQ(own, 7u);
    platform::setLastError(0);
}

TEST(FileHandles, AreNeverThoseOfNoFile) {
    EXPECT_FALSE(platform::isHandle(0));
    EXPECT_FALSE(platform::isHandle(-1));
    EXPECT_TRUE(platform::isHandle(1));
#ifndef _WIN32
    const TempFolder folder;
    const std::u16string path = folder.write("a", "x");
    const int input = ::dup(0);
    ::close(0);
    const std::int64_t handle = platform::openFile(path.c_str(), {});
    EXPECT_GT(handle, 2) << "with standard input closed";
    EXPECT_TRUE(platform::closeFile(handle));
    if (input >= 0) {
        ::dup2(input, 0);
        ::close(input);
    }
#endif
}

#ifndef _WIN32
void ignoreSignal(int) {}

// A slow writer at a pipe's other end, and a timer that interrupts every read.
TEST(FileHandles, SurviveInterruptedCalls) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    struct sigaction action {};
    action.sa_handler = ignoreSignal;
    struct sigaction old {};
    ::sigaction(SIGALRM, &action, &old);
    struct itimerval timer {
        {0, 2000}, { 0, 2000 }
    };
    ::setitimer(ITIMER_REAL, &timer, nullptr);
    std::thread writer([&] {
        for (int i = 0; i < 10; ++i) {
            ::usleep(5000);
            platform::writeFile(ends[1], "0123456789", 10);
        }
        ::close(ends[1]);
    });
    std::string text(200, ' ');
    EXPECT_EQ(platform::readFile(ends[0], text.data(), text.size()), 100);
    writer.join();
    timer = {};
    ::setitimer(ITIMER_REAL, &timer, nullptr);
    ::sigaction(SIGALRM, &old, nullptr);
    ::close(ends[0]);
    EXPECT_EQ(text.substr(90, 11), "0123456789 ");
}

TEST(NamedFiles, AttributesFollowThePermissions) {
    const TempFolder folder;
    const std::u16string plain = folder.write("plain", "x");
    const std::u16string hidden = folder.write(".hidden", "x");
    EXPECT_EQ(platform::fileAttributes(plain.c_str()), platform::kAttributeNormal);
    EXPECT_EQ(platform::fileAttributes(hidden.c_str()), platform::kAttributeHidden);
    ::chmod(folder.native("plain").c_str(), 0400);
    EXPECT_EQ(platform::fileAttributes(plain.c_str()), platform::kAttributeReadOnly);
    EXPECT_EQ(platform::fileAttributes(u"\\"), platform::kAttributeDirectory);
}

TEST(NamedFiles, NamesThatAreNotUtf8CanBeOpened) {
    const TempFolder folder;
    const std::string name = "\xFF\xC3z";
    folder.write(name, "x");
    std::u16string path = folder.wide("");
    path += platform::decodeUtf8(name, platform::BadBytes::kEscape);
    const std::int64_t handle = platform::openFile(path.c_str(), {});
    EXPECT_TRUE(platform::isHandle(handle));
    if (platform::isHandle(handle)) platform::closeFile(handle);
}
#endif

TEST(Clock, TheFinestCounterNeverGoesBack) {
    std::uint64_t last = platform::performanceCount();
    for (int i = 0; i < 10000; ++i) {
        const std::uint64_t now = platform::performanceCount();
        ASSERT_GE(now, last);
        last = now;
    }
    EXPECT_GE(platform::performanceFrequency(), 1000u);
    EXPECT_GT(platform::sessionMilliseconds(), 0u);
}

}  // namespace
