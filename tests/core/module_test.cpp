#include "nuv64/core/module.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "platform/platform.h"

namespace {

// A library of the system that the test program doesn't need itself, one that it does, and names of
// functions in them.
#ifdef _WIN32
constexpr const char16_t* kLibrary = u"winmm.dll";
constexpr const char* kLibrary8 = "winmm.dll";
constexpr const char16_t* kFunction = u"timeGetTime";
constexpr const char16_t* kPresent = u"kernel32";
constexpr const char* kPresent8 = "kernel32";
constexpr const char16_t* kPresentFunction = u"GetTickCount";
#else
constexpr const char16_t* kLibrary = u"libutil.so.1";
constexpr const char* kLibrary8 = "libutil.so.1";
constexpr const char16_t* kFunction = u"login_tty";
constexpr const char16_t* kPresent = u"libc.so.6";
constexpr const char* kPresent8 = "libc.so.6";
constexpr const char16_t* kPresentFunction = u"getppid";
#endif

constexpr std::int64_t kNoModules[] = {-1, 1, 0x123456789AB8, INT64_MAX, INT64_MIN};

TEST(OsLoadModule, LoadsFindsAndFrees) {
    std::int64_t module = OsLoadModule(kLibrary);
    ASSERT_NE(module, 0);
    EXPECT_NE(OsProcAddress(kFunction, module), nullptr);
    EXPECT_EQ(OsProcAddress(u"NoSuchFunction", module), nullptr);
    EXPECT_NE(nuv64::platform::lastError(), 0u);
    EXPECT_EQ(OsModuleHandle(kLibrary, 0), module);
    std::int64_t second = OsLoadModuleA(kLibrary8);
    EXPECT_EQ(second, module) << "in memory once";
    EXPECT_TRUE(OsFreeModule(&second));
    EXPECT_EQ(second, 0);
    EXPECT_NE(OsModuleHandleA(kLibrary8, 0), 0) << "one claim is left";
    EXPECT_TRUE(OsFreeModule(&module));
}

TEST(OsLoadModule, FailsForWhatIsNoModule) {
    for (const char16_t* name : {u"", u"no such module", u"C:\\no\\such\\module.dll"}) {
        EXPECT_EQ(OsLoadModule(name), 0);
        EXPECT_NE(nuv64::platform::lastError(), 0u);
    }
    EXPECT_EQ(OsLoadModule(nullptr), 0);
    EXPECT_EQ(OsLoadModuleA(nullptr), 0);
    EXPECT_EQ(OsLoadModuleA(""), 0);
}

TEST(OsModuleHandle, AnEmptyNameIsTheHost) {
    const std::int64_t host = OsModuleHandle(nullptr, 0);
    EXPECT_NE(host, 0);
    EXPECT_EQ(OsModuleHandle(u"", 0), host);
    EXPECT_EQ(OsModuleHandleA(nullptr, 1), host);
    EXPECT_EQ(OsModuleHandleA("", 1), host);
}

TEST(OsModuleHandle, FindsWhatIsInMemory) {
    const std::int64_t module = OsModuleHandle(kPresent, 0);
    ASSERT_NE(module, 0);
    EXPECT_EQ(OsModuleHandleA(kPresent8, 1), module);
    EXPECT_NE(OsProcAddress(kPresentFunction, module), nullptr);
    EXPECT_EQ(OsModuleHandle(u"no such module", 0), 0);
    EXPECT_EQ(OsModuleHandle(u"no such module", 1), 0);
    EXPECT_EQ(OsModuleHandleA("no such module", 1), 0);
}

TEST(OsModuleHandle, LoadsWhenAsked) {
    std::int64_t module = OsModuleHandle(kLibrary, 1);
    EXPECT_NE(module, 0);
    EXPECT_NE(OsProcAddress(kFunction, module), nullptr);
    EXPECT_TRUE(OsFreeModule(&module));
}

TEST(OsProcAddress, TakesNoNameAndNoModule) {
    const std::int64_t module = OsModuleHandle(kPresent, 0);
    EXPECT_EQ(OsProcAddress(nullptr, module), nullptr);
    EXPECT_EQ(OsProcAddress(u"", module), nullptr);
    EXPECT_EQ(OsProcAddress(kPresentFunction, 0), nullptr);
    for (const std::int64_t none : kNoModules)
        EXPECT_EQ(OsProcAddress(kPresentFunction, none), nullptr) << none;
}

TEST(OsFreeModule, TakesNoModule) {
    EXPECT_TRUE(OsFreeModule(nullptr));
    std::int64_t module = 0;
    EXPECT_TRUE(OsFreeModule(&module));
    for (const std::int64_t none : kNoModules) {
        module = none;
        EXPECT_FALSE(OsFreeModule(&module)) << none;
        EXPECT_EQ(module, 0);
    }
}

TEST(OsOsProcAddress, FindsTheSystemsOwnFunctions) {
    EXPECT_NE(OsOsProcAddress(kPresentFunction), nullptr);
    EXPECT_EQ(OsOsProcAddress(u"NoSuchFunction"), nullptr);
    EXPECT_EQ(OsOsProcAddress(u""), nullptr);
    EXPECT_EQ(OsOsProcAddress(nullptr), nullptr);
#ifndef _WIN32
    using GetParent = int (*)();
    EXPECT_GT(reinterpret_cast<GetParent>(OsOsProcAddress(u"getppid"))(), 0);
#endif
}

TEST(OsNoEmailsToMs, TellsWhetherTheCallWasMade) {
    EXPECT_FALSE(OsNoEmailsToMs(nullptr));
#ifdef _WIN32
    EXPECT_TRUE(OsNoEmailsToMs(u"no such application.exe"));
#else
    EXPECT_FALSE(OsNoEmailsToMs(u"application"));
#endif
}

}  // namespace
