#include "nuv64/core/screen.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "nuv64/core/disk.h"
#include "nuv64/core/file.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

namespace {

TEST(Screen, WindowsHaveAPlaceAndASize) {
    const std::int64_t desktop = OsDesktopWindow();
    std::int32_t left = 1, top = 2, width = 3, height = 4;
#ifdef _WIN32
    EXPECT_NE(desktop, 0);
    EXPECT_TRUE(OsWindowLocAndSize(desktop, &left, &top, &width, &height));
    EXPECT_EQ(left, 0);
    EXPECT_EQ(top, 0);
    EXPECT_GT(width, 0);
    EXPECT_GT(height, 0);
    EXPECT_TRUE(OsWindowLocAndSize(desktop, nullptr, nullptr, nullptr, nullptr));
#else
    EXPECT_EQ(desktop, 0);
    EXPECT_EQ(OsDesktopColors(), 0u);
    EXPECT_EQ(OsActiveWindow(), 0);
    EXPECT_EQ(OsForegroundWindow(), 0);
#endif
    for (const std::int64_t none : {std::int64_t{0}, std::int64_t{0x12345678}}) {
        left = top = width = height = 9;
        EXPECT_FALSE(OsWindowLocAndSize(none, &left, &top, &width, &height));
        EXPECT_EQ(left | top | width | height, 0);
    }
    EXPECT_FALSE(OsWindowLocAndSize(0, nullptr, nullptr, nullptr, nullptr));
}

TEST(Screen, TheWindowIsTheResult) {
    std::int32_t left = 9, top = 9, width = 9, height = 9;
    const std::int64_t active = OsActiveWindow();
    EXPECT_EQ(OsActiveWindowLocAndSize(&left, &top, &width, &height), active);
    if (active == 0) {
        EXPECT_EQ(left | top | width | height, 0);
    }
    left = top = width = height = 9;
    const std::int64_t foreground = OsForegroundWindow();
    EXPECT_EQ(OsForegroundWindowLocAndSize(&left, &top, &width, &height), foreground);
    if (foreground == 0) {
        EXPECT_EQ(left | top | width | height, 0);
    }
    OsActiveWindowLocAndSize(nullptr, nullptr, nullptr, nullptr);
    OsForegroundWindowLocAndSize(nullptr, nullptr, nullptr, nullptr);
    const std::uint64_t colors = OsDesktopColors();
    EXPECT_EQ(colors & (colors - 1), 0u) << "a power of 2, or none";
}

TEST(OsIsWindowPresent, LooksForTheWholeTitle) {
    EXPECT_FALSE(OsIsWindowPresent(u"no window has this title"));
    EXPECT_FALSE(OsIsWindowPresentA("no window has this title"));
    EXPECT_FALSE(OsIsWindowPresent(nullptr));
    EXPECT_FALSE(OsIsWindowPresentA(nullptr));
    EXPECT_FALSE(OsIsWindowPresent(u""));
    EXPECT_FALSE(OsIsWindowPresentA(""));
}

TEST(OsDiskDrives, AreLetters) {
#ifdef _WIN32
    EXPECT_TRUE(OsDiskDrives() & 0x4) << "C";
#else
    EXPECT_EQ(OsDiskDrives(), 0u);
#endif
}

TEST(OsCreateFolder, MakesOneFolder) {
    const TempFolder folder;
    EXPECT_TRUE(OsCreateFolder(folder.wide("new").c_str()));
    std::uint32_t attributes = 0;
    EXPECT_TRUE(FileIsPresent(folder.wide("new").c_str(), &attributes));
    EXPECT_TRUE(attributes & 0x10);
    EXPECT_FALSE(OsCreateFolder(folder.wide("new").c_str())) << "it is there already";
    EXPECT_NE(nuv64::platform::lastError(), 0u);
    const std::string inside = folder.native("new").string() + "\\in side";
    EXPECT_TRUE(OsCreateFolderA(inside.c_str()));
    EXPECT_FALSE(OsCreateFolderA((inside + "\\no\\way").c_str()));
    for (const char* none : {"", static_cast<const char*>(nullptr)})
        EXPECT_FALSE(OsCreateFolderA(none));
    EXPECT_FALSE(OsCreateFolder(nullptr));
    EXPECT_FALSE(OsCreateFolder(u""));
}

TEST(OsFlushFileOrPortBuffers, WantsAnOpenFile) {
    const TempFolder folder;
    std::int64_t file = FileOpen(folder.wide("file").c_str(), 1);
    EXPECT_TRUE(FileWriteA(file, "text"));
    EXPECT_TRUE(OsFlushFileOrPortBuffers(file));
    const std::int64_t closed = file;
    EXPECT_TRUE(FileClose(&file, 0));
    EXPECT_FALSE(OsFlushFileOrPortBuffers(closed));
    EXPECT_NE(nuv64::platform::lastError(), 0u);
    EXPECT_FALSE(OsFlushFileOrPortBuffers(0));
    EXPECT_FALSE(OsFlushFileOrPortBuffers(-1));
}

}  // namespace
