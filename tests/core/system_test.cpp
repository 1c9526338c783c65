#include "nuv64/core/system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "core/console_host.h"
#include "core/owned_result.h"
#include "nuv64/core/file.h"
#include "nuv64/core/file_dialog.h"
#include "nuv64/core/path.h"
#include "platform/platform.h"
#include "support/temp_folder.h"
#include "support/variable.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace {

constexpr std::uint32_t kNoBox = 0xFFFFFFFF;
constexpr std::uint32_t kNoBeep = 0x20000;

TEST(OsStringNewCopy, BothWidthsGiveTheSame) {
    for (std::uint32_t kind = 1; kind <= 10; ++kind) {
        const auto wide = taken(OsStringNewCopy(kind));
        const auto narrow = taken(OsStringNewCopyA(kind));
        ASSERT_TRUE(wide && narrow) << kind;
        EXPECT_EQ(nuv64::platform::utf8FromWide(*wide), *narrow);
        EXPECT_FALSE(wide->empty());
    }
    for (const std::uint32_t kind : {0u, 11u, 12u, 0xFFFFFFFFu}) {
        EXPECT_EQ(OsStringNewCopy(kind), nullptr);
        EXPECT_EQ(OsStringNewCopyA(kind), nullptr);
    }
}

TEST(OsStringNewCopy, TheExecutableAndItsPieces) {
    const auto path = taken(OsStringNewCopyA(6));
    EXPECT_TRUE(FileIsPresentA(path->c_str(), nullptr));
    EXPECT_EQ(*path, *taken(OsStringNewCopyA(7)) + *taken(OsStringNewCopyA(8)));
    EXPECT_EQ(taken(OsStringNewCopyA(8))->rfind("core_test", 0), 0u);
    EXPECT_EQ(taken(OsStringNewCopyA(9)), "core_test");
    EXPECT_NE(taken(OsStringNewCopyA(10))->find("core_test"), std::string::npos);
}

TEST(OsStringNewCopy, FoldersAreThere) {
    for (const std::uint32_t kind : {1u, 2u, 4u, 5u, 7u}) {
        const auto folder = taken(OsStringNewCopyA(kind));
        std::uint32_t attributes = 0;
        EXPECT_TRUE(FileIsPresentA(folder->c_str(), &attributes)) << *folder;
        EXPECT_TRUE(attributes & 0x10);
        EXPECT_EQ(folder->find('/'), std::string::npos) << "backslashes on every system";
    }
    EXPECT_EQ(taken(OsStringNewCopyA(3))->back(), '\\');
    EXPECT_EQ(taken(OsStringNewCopyA(4))->back(), '\\');
}

#ifndef _WIN32
TEST(OsStringNewCopy, TheDesktopFollowsTheUsersDirectories) {
    const TempFolder folder;
    const Variable home("HOME", folder.native("").string());
    const Variable config("XDG_CONFIG_HOME", folder.native("").string());
    std::string expected = folder.native("").string() + "\\Desktop\\";
    std::replace(expected.begin(), expected.end(), '/', '\\');
    const auto desktop = [] {
        std::string text = *taken(OsStringNewCopyA(3));
        for (std::size_t at; (at = text.find("\\\\")) != text.npos;) text.erase(at, 1);
        return text;
    };
    const auto collapsed = [](std::string text) {
        for (std::size_t at; (at = text.find("\\\\")) != text.npos;) text.erase(at, 1);
        return text;
    };
    EXPECT_EQ(desktop(), collapsed(expected));
    folder.write("user-dirs.dirs",
                 "# comment\nXDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\nXDG_MUSIC_DIR=\"/m\"\n");
    std::string named = folder.native("").string() + "\\Schreibtisch\\";
    std::replace(named.begin(), named.end(), '/', '\\');
    EXPECT_EQ(desktop(), collapsed(named));
    folder.write("user-dirs.dirs", "XDG_DESKTOP_DIR=\"/abs/desk\"");
    EXPECT_EQ(desktop(), "\\abs\\desk\\");
    folder.write("user-dirs.dirs", "XDG_DESKTOP_DIR=\"/cut");
    EXPECT_EQ(desktop(), collapsed(expected));
}

TEST(OsEnvironmentVariableNewCopy, GivesTheValue) {
    const Variable variable("NUV64_TEST_VARIABLE", "v\xC3\xA4lue");
    const Variable empty("NUV64_TEST_EMPTY", "");
    EXPECT_EQ(taken(OsEnvironmentVariableNewCopyA("NUV64_TEST_VARIABLE")), "v\xC3\xA4lue");
    EXPECT_EQ(taken(OsEnvironmentVariableNewCopy(u"NUV64_TEST_VARIABLE")), u"v\u00E4lue");
    EXPECT_EQ(taken(OsEnvironmentVariableNewCopyA("NUV64_TEST_EMPTY")), "");
}
#endif

TEST(OsEnvironmentVariableNewCopy, GivesNullForAnUnknownName) {
    EXPECT_TRUE(taken(OsEnvironmentVariableNewCopyA("PATH")));
    EXPECT_TRUE(taken(OsEnvironmentVariableNewCopy(u"PATH")));
    EXPECT_EQ(OsEnvironmentVariableNewCopyA("NUV64_NO_SUCH_VARIABLE"), nullptr);
    EXPECT_EQ(OsEnvironmentVariableNewCopy(u"NUV64_NO_SUCH_VARIABLE"), nullptr);
    EXPECT_EQ(OsEnvironmentVariableNewCopyA(nullptr), nullptr);
    EXPECT_EQ(OsEnvironmentVariableNewCopy(nullptr), nullptr);
    EXPECT_EQ(OsEnvironmentVariableNewCopy(u""), nullptr);
}

// Standard input from a text, and the host a console application, for the time of one test.
class Typed {
  public:
    Typed(const TempFolder& folder, const std::string& lines) {
        folder.write("typed", lines);
        EXPECT_NE(std::freopen(folder.native("typed").string().c_str(), "r", stdin), nullptr);
        nuv64::setConsoleHost(true);
    }
    ~Typed() {
        nuv64::setConsoleHost(false);
        EXPECT_NE(std::freopen("/dev/null", "r", stdin), nullptr);
    }
};

struct Shown {
    std::uint32_t answer;
    std::string text;
};

template <class Action>
Shown shown(Action&& action) {
    testing::internal::CaptureStderr();
    const std::uint32_t answer = action();
    return {answer, testing::internal::GetCapturedStderr()};
}

// Without a terminal and without a host that has a console there is nobody to ask.
TEST(OsMessage, WithoutAUserTheTextGoesToStandardError) {
    if (nuv64::platform::inputIsTerminal()) GTEST_SKIP() << "there is a user";
    for (const std::uint32_t kind : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 7u, 0xFFFFFFFFu}) {
        const Shown wide = shown([&] { return OsMessage(kind, u"w\u00E4rning", u"Title"); });
        EXPECT_EQ(wide.answer, kNoBox);
        EXPECT_EQ(wide.text, "Title: w\xC3\xA4rning\n");
        const Shown narrow = shown([&] { return OsMessageA(kind, "w\xC3\xA4rning", "Title"); });
        EXPECT_EQ(narrow.answer, kNoBox);
        EXPECT_EQ(narrow.text, wide.text);
    }
}

TEST(OsMessage, ANullTitleIsTheNameOfTheHost) {
    EXPECT_EQ(shown([] { return OsMessageA(2, "text\n", nullptr); }).text, "core_test: text\n");
    EXPECT_EQ(shown([] { return OsMessage(2, nullptr, nullptr); }).text, "core_test: \n");
    EXPECT_EQ(shown([] { return OsMessageA(2, nullptr, nullptr); }).text, "core_test: \n");
}

TEST(OsMessagef, FormatsItsText) {
    EXPECT_EQ(shown([] { return OsMessagefA(2, "%d of %s", 3, "four"); }).text,
              "core_test: 3 of four\n");
    EXPECT_EQ(shown([] { return OsMessagef(2, u"%d of %s", 3, u"four"); }).text,
              "core_test: 3 of four\n");
    EXPECT_EQ(shown([] { return OsMessagef(2, nullptr); }).text, "core_test: \n");
    EXPECT_EQ(shown([] { return OsMessagefA(2, nullptr); }).text, "core_test: \n");
}

#ifndef _WIN32
TEST(OsMessage, AConsoleHostIsAsked) {
    const TempFolder folder;
    const auto answer = [&](std::uint32_t kind, const std::string& lines) {
        const Typed typed(folder, lines);
        return shown([&] { return OsMessageA(kind, "Question", "Title"); }).answer;
    };
    EXPECT_EQ(answer(0, ""), 1u);
    EXPECT_EQ(answer(2, ""), 1u) << "a warning waits for nobody";
    EXPECT_EQ(answer(3, "y\n"), 1u);
    EXPECT_EQ(answer(3, "  Yes\r\n"), 1u);
    EXPECT_EQ(answer(3, "N\n"), 0u);
    EXPECT_EQ(answer(3, "what\n\nc\nno"), 0u) << "asked again until there is an answer";
    EXPECT_EQ(answer(3, "what"), kNoBox) << "the end of the input";
    EXPECT_EQ(answer(3, ""), kNoBox);
    EXPECT_EQ(answer(4, "ok\n"), 1u);
    EXPECT_EQ(answer(4, "cancel\n"), 0u);
    EXPECT_EQ(answer(5, "y\n"), 1u);
    EXPECT_EQ(answer(5, "n\n"), 0u);
    EXPECT_EQ(answer(5, "c\n"), 2u);
    EXPECT_EQ(answer(6, "r\n"), 1u);
    EXPECT_EQ(answer(6, "c\n"), 0u);
    const Typed typed(folder, "y\n");
    EXPECT_EQ(shown([] { return OsMessageA(3, "Question", "Title"); }).text,
              "Title: Question\n(y)es, (n)o: ");
}

std::optional<std::string> chosen(const TempFolder& folder, const std::string& lines,
                                  std::uint32_t flags, const char* start = "",
                                  const char* extension = nullptr) {
    const Typed typed(folder, lines);
    std::optional<std::string> result;
    shown([&] {
        result = taken(NewOsFileSelectDialogA("Choose", start, extension, nullptr, flags | kNoBeep,
                                              0, nullptr));
        return 0u;
    });
    return result;
}

TEST(NewOsFileSelectDialog, AConsoleHostIsAsked) {
    const TempFolder folder;
    folder.write("here.sdf", "x");
    const std::string native = folder.native("here.sdf").string();
    std::string path = native;
    std::replace(path.begin(), path.end(), '/', '\\');
    const std::string place = path.substr(0, path.size() - std::string("\\here.sdf").size());
    EXPECT_EQ(chosen(folder, native + "\n", 2), path);
    EXPECT_EQ(chosen(folder, "  here.sdf \n", 2, place.c_str()), path);
    EXPECT_EQ(chosen(folder, "here\n", 2, place.c_str(), "sdf"), path);
    EXPECT_EQ(chosen(folder, "here\n", 2, place.c_str(), ".sdf"), path);
    EXPECT_EQ(chosen(folder, "nothing\nhere.sdf\n", 2, place.c_str()), path) << "asked again";
    EXPECT_EQ(chosen(folder, ".\nhere.sdf\n", 2, place.c_str()), path) << "a folder is no file";
    EXPECT_EQ(chosen(folder, "new.sdf\n", 1, place.c_str()), place + "\\new.sdf");
    EXPECT_EQ(chosen(folder, "here.sdf\nn\nnew.sdf\n", 0x40001, place.c_str()),
              place + "\\new.sdf");
    EXPECT_EQ(chosen(folder, "here.sdf\ny\n", 0x40001, place.c_str()), path);
    EXPECT_EQ(chosen(folder, "\n", 2), std::nullopt) << "an empty line cancels";
    EXPECT_EQ(chosen(folder, "nothing\n", 2, place.c_str()), std::nullopt)
        << "the end of the input";
    EXPECT_EQ(nuv64::platform::lastError(), 0u);
}

TEST(NewOsFileSelectDialog, RemembersTheFolderOfAFreeChoice) {
    const TempFolder folder;
    const std::string native = folder.native("a.sdf").string();
    folder.write("a.sdf", "x");
    std::string path = native;
    std::replace(path.begin(), path.end(), '/', '\\');
    EXPECT_EQ(chosen(folder, native + "\n", 2), path);
    EXPECT_EQ(chosen(folder, "a.sdf\n", 2, nullptr), path);
}

TEST(OsOpenNewFile, CreatesTheFileThatTheUserNames) {
    const TempFolder folder;
    const std::string native = folder.native("new.txt").string();
    std::string path = native;
    std::replace(path.begin(), path.end(), '/', '\\');
    for (const bool again : {false, true}) {
        const Typed typed(folder, native + "\n");
        shown([&] {
            char* name = nullptr;
            std::int64_t handle = OsOpenNewFileA("Choose", &name);
            EXPECT_EQ(taken(name), again ? std::nullopt : std::optional(path));
            EXPECT_EQ(handle == -1, again) << "the second time it exists";
            EXPECT_EQ(nuv64::platform::lastError() != 0, again);
            EXPECT_EQ(FileWriteA(handle, "text"), !again);
            EXPECT_TRUE(FileClose(&handle, 0));
            return 0u;
        });
    }
    EXPECT_EQ(folder.read("new.txt"), "text");
    const Typed typed(folder, folder.native("second").string() + "\n");
    shown([&] {
        std::int64_t handle = OsOpenNewFile(nullptr, nullptr);
        EXPECT_NE(handle, -1);
        EXPECT_TRUE(FileClose(&handle, 0));
        return 0u;
    });
}
#endif

TEST(OsOpenNewFile, WithoutAUserNothingIsOpened) {
    if (nuv64::platform::inputIsTerminal()) GTEST_SKIP() << "there is a user";
    char16_t* path = nullptr;
    char* pathA = nullptr;
    EXPECT_EQ(OsOpenNewFile(u"Choose", &path), -1);
    EXPECT_EQ(OsOpenNewFileA(nullptr, &pathA), -1);
    EXPECT_EQ(path, nullptr);
    EXPECT_EQ(pathA, nullptr);
}

TEST(NewOsFileSelectDialog, WithoutAUserItCountsAsCancelled) {
    if (nuv64::platform::inputIsTerminal()) GTEST_SKIP() << "there is a user";
    std::uint32_t extra = 5;
    EXPECT_EQ(NewOsFileSelectDialogA(nullptr, nullptr, nullptr, nullptr, kNoBeep, 0, &extra),
              nullptr);
    EXPECT_EQ(extra, kNoBeep);
    EXPECT_EQ(NewOsFileSelectDialog(u"Choose", u"", u"sdf", u"Data|*.sdf", kNoBeep | 1, 0, nullptr),
              nullptr);
    extra = 0x80000;
    EXPECT_EQ(NewOsFileSelectDialog(nullptr, u"C:\\", nullptr, u"", kNoBeep | 0x100000, 0, &extra),
              nullptr);
}

TEST(OsBeep, DoesNoHarm) {
    OsBeep(1, 440);
}

TEST(OsShellOpen, RefusesNoPath) {
    EXPECT_EQ(OsShellOpen(nullptr), 63u);
    EXPECT_EQ(OsShellOpenA(nullptr), 63u);
    EXPECT_EQ(OsShellOpen(u""), 63u);
    EXPECT_EQ(OsShellOpenA(""), 63u);
}

#ifndef _WIN32
// An opener that notes the number of its arguments and the first of them.
class NotingOpener {
  public:
    NotingOpener() : path_("PATH", folder_.native("").string()) {
        folder_.write("xdg-open",
                      "#!/bin/sh\nprintf '%s|%s' $# \"$1\" > \"${0%xdg-open}part\"\n"
                      "/bin/mv \"${0%xdg-open}part\" \"${0%xdg-open}opened\"\n");
        ::chmod(folder_.native("xdg-open").c_str(), 0700);
    }
    // What it noted when action had something opened.
    template <class Action>
    std::string noted(Action&& action) {
        std::filesystem::remove(folder_.native("opened"));
        EXPECT_EQ(action(), 0u);
        for (int i = 0; i < 500 && !std::filesystem::exists(folder_.native("opened")); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return folder_.read("opened");
    }

  private:
    const TempFolder folder_;
    const Variable path_;
};

TEST(OsShellOpen, FailsWithoutAnOpener) {
    const TempFolder folder;
    const Variable path("PATH", folder.native("").string());
    EXPECT_EQ(OsShellOpenA("x"), 4u);
    EXPECT_EQ(OsOpenUrlA("x"), 4u);
    EXPECT_EQ(OsMailTo(u"a@b", nullptr), 4u);
}

TEST(OsShellOpen, HandsTheTextToTheOpenerAsOneArgument) {
    NotingOpener opener;
    const auto opened = [&](const char* target) {
        return opener.noted([&] { return OsShellOpenA(target); });
    };
    EXPECT_EQ(opened("d\\a b;$(touch x)`y`"), "1|d/a b;$(touch x)`y`");
    EXPECT_EQ(opened("http://host/a\\b?c&d"), "1|http://host/a\\b?c&d");
    EXPECT_EQ(opened("mailto:a@b"), "1|mailto:a@b");
    EXPECT_EQ(opened("-option"), "1|./-option");
    EXPECT_EQ(opened("C:\\d"), "1|C:/d");
    EXPECT_EQ(opener.noted([] { return OsShellOpen(u"\u00E4"); }), "1|\xC3\xA4");
}

TEST(OsOpenUrl, PutsHttpInFront) {
    NotingOpener opener;
    const auto opened = [&](const char* url) {
        const std::string noted = opener.noted([&] { return OsOpenUrlA(url); });
        const std::u16string wide = widened(url);
        EXPECT_EQ(opener.noted([&] { return OsOpenUrl(wide.c_str()); }), noted);
        return noted;
    };
    EXPECT_EQ(opened("host/path"), "1|http://host/path");
    EXPECT_EQ(opened("http://host"), "1|http://host") << "nothing is added";
    EXPECT_EQ(opened("https://host"), "1|http://https://host") << "in front all the same";
    EXPECT_EQ(opened("HTTP://host"), "1|http://HTTP://host");
    EXPECT_EQ(opened(""), "1|http://");
}

TEST(OsMailTo, PutsTheLinkTogether) {
    NotingOpener opener;
    const auto opened = [&](const char* address, const char* subject) {
        const std::string noted = opener.noted([&] { return OsMailToA(address, subject); });
        const std::u16string to = widened(address);
        const std::u16string about = widened(subject ? subject : "");
        EXPECT_EQ(opener.noted([&] { return OsMailTo(to.c_str(), about.c_str()); }), noted);
        return noted;
    };
    EXPECT_EQ(opened("a@b", nullptr), "1|mailto:a@b");
    EXPECT_EQ(opened("mailto:a@b", ""), "1|mailto:a@b");
    EXPECT_EQ(opened("a@b", "The $(subject)"), "1|mailto:a@b?subject=The $(subject)");
}
#endif

TEST(OsOpenUrl, RefusesNone) {
    EXPECT_EQ(OsOpenUrl(nullptr), 63u);
    EXPECT_EQ(OsOpenUrlA(nullptr), 63u);
}

TEST(OsMailTo, RefusesNoAddress) {
    EXPECT_EQ(OsMailTo(nullptr, u"subject"), 22u);
    EXPECT_EQ(OsMailTo(u"", nullptr), 22u);
    EXPECT_EQ(OsMailToA(nullptr, "subject"), 22u);
    EXPECT_EQ(OsMailToA("", nullptr), 22u);
}

TEST(OsSetEnvironmentVariable, SetsAndRemoves) {
    EXPECT_TRUE(OsSetEnvironmentVariable(u"NUV64_TEST_SET", u"v\u00E4lue"));
    EXPECT_EQ(taken(OsEnvironmentVariableNewCopyA("NUV64_TEST_SET")), "v\xC3\xA4lue");
    EXPECT_TRUE(OsSetEnvironmentVariableA("NUV64_TEST_SET", "other"));
    EXPECT_EQ(taken(OsEnvironmentVariableNewCopy(u"NUV64_TEST_SET")), u"other");
    EXPECT_TRUE(OsSetEnvironmentVariable(u"NUV64_TEST_SET", nullptr));
    EXPECT_EQ(OsEnvironmentVariableNewCopyA("NUV64_TEST_SET"), nullptr);
    EXPECT_FALSE(OsSetEnvironmentVariable(nullptr, u"x"));
    EXPECT_FALSE(OsSetEnvironmentVariable(u"", u"x"));
    EXPECT_FALSE(OsSetEnvironmentVariableA(nullptr, nullptr));
    EXPECT_FALSE(OsSetEnvironmentVariableA("", "x"));
    EXPECT_FALSE(OsSetEnvironmentVariableA("NUV64=TEST", "x"));
    EXPECT_FALSE(OsSetEnvironmentVariableA("=NUV64", "x"));
}

}  // namespace
