#include "nuv64/core/clipboard.h"

#include <gtest/gtest.h>

#include <string>

#include "core/owned_result.h"
#include "support/temp_folder.h"
#include "support/variable.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace {

#ifdef _WIN32

TEST(Clipboard, TextComesBack) {
    for (const char* text : {"plain", "v\xC3\xA4lue \xF0\x9F\x8C\x99\r\nline", ""}) {
        ASSERT_TRUE(OsTextToClipboardA(text));
        EXPECT_EQ(taken(NewOsTextFromClipboardA()), text);
        const std::u16string wide = *taken(NewOsTextFromClipboard()) + u"!";
        ASSERT_TRUE(OsTextToClipboard(wide.c_str()));
        EXPECT_EQ(taken(NewOsTextFromClipboard()), wide);
    }
    EXPECT_FALSE(OsTextToClipboard(nullptr));
    EXPECT_FALSE(OsTextToClipboardA(nullptr));
    EXPECT_EQ(taken(NewOsTextFromClipboardA()), "!") << "left alone";
}

TEST(Clipboard, LongTextsComeBack) {
    const std::u16string wide(300000, u'\u00E4');
    ASSERT_TRUE(OsTextToClipboard(wide.c_str()));
    EXPECT_EQ(taken(NewOsTextFromClipboard()), wide);
}

#else

// A session whose clipboard tools are those that the test puts into a folder of its own.
class Session {
  public:
    Session(const char* variable)
        : wayland_("WAYLAND_DISPLAY", value(variable, "WAYLAND_DISPLAY")),
          x11_("DISPLAY", value(variable, "DISPLAY")),
          path_("PATH", folder_.native("").string() + ":/usr/bin:/bin") {}

    void addTool(const char* name, const std::string& script) const {
        folder_.write(name, "#!/bin/sh\n" + script + "\n");
        ::chmod(folder_.native(name).c_str(), 0700);
    }
    // One that keeps the text in a file, for one line of arguments to write and another to read.
    void addKeeper(const char* name, const std::string& write, const std::string& read) const {
        const std::string kept = folder_.native("kept").string();
        addTool(name, "if [ \"$*\" = '" + write + "' ]; then cat > '" + kept +
                          "'; elif [ \"$*\" = '" + read + "' ]; then cat '" + kept +
                          "'; else exit 3; fi");
    }

  private:
    static std::string value(const char* variable, const char* name) {
        return std::string(variable) == name ? ":7" : "";
    }
    const TempFolder folder_;
    const Variable wayland_;
    const Variable x11_;
    const Variable path_;
};

void expectRoundTrip() {
    for (const std::string text : {"plain", "v\xC3\xA4lue\nline\n", "", "$(x) `y`"}) {
        ASSERT_TRUE(OsTextToClipboardA(text.c_str()));
        EXPECT_EQ(taken(NewOsTextFromClipboardA()), text);
        const std::u16string wide = *taken(NewOsTextFromClipboard()) + u"!";
        ASSERT_TRUE(OsTextToClipboard(wide.c_str()));
        EXPECT_EQ(taken(NewOsTextFromClipboard()), wide);
    }
}

TEST(Clipboard, ThroughEachTool) {
    {
        const Session session("WAYLAND_DISPLAY");
        session.addKeeper("wl-copy", "", "none");
        session.addKeeper("wl-paste", "none", "--no-newline");
        expectRoundTrip();
    }
    {
        const Session session("DISPLAY");
        session.addKeeper("xclip", "-selection clipboard", "-selection clipboard -o");
        expectRoundTrip();
    }
    const Session session("DISPLAY");
    session.addKeeper("xsel", "--clipboard --input", "--clipboard --output");
    expectRoundTrip();
}

TEST(Clipboard, LongTextsComeThrough) {
    const Session session("DISPLAY");
    session.addKeeper("xclip", "-selection clipboard", "-selection clipboard -o");
    const std::string text(1000000, 'x');
    ASSERT_TRUE(OsTextToClipboardA(text.c_str()));
    EXPECT_EQ(taken(NewOsTextFromClipboardA()), text);
    session.addTool("xclip", "exit 0");
    EXPECT_TRUE(OsTextToClipboardA(text.c_str())) << "it need not read the text";
    EXPECT_EQ(taken(NewOsTextFromClipboardA()), "");
}

// What puts the text there stays to hand it out; its streams are not the host's.
TEST(Clipboard, AToolMayLeaveAProgramBehind) {
    const Session session("DISPLAY");
    session.addTool("xclip", "sleep 1 & exit 0");
    EXPECT_TRUE(OsTextToClipboard(u"text"));
}

TEST(Clipboard, FailsWhereThereIsNone) {
    {
        const Session without("NONE");
        without.addKeeper("xclip", "-selection clipboard", "-selection clipboard -o");
        EXPECT_FALSE(OsTextToClipboardA("text"));
        EXPECT_EQ(NewOsTextFromClipboardA(), nullptr);
    }
    const Session session("DISPLAY");
    EXPECT_FALSE(OsTextToClipboard(u"text"));
    EXPECT_EQ(NewOsTextFromClipboard(), nullptr);
    session.addTool("xclip", "echo text; exit 1");
    EXPECT_FALSE(OsTextToClipboard(u"text"));
    EXPECT_EQ(NewOsTextFromClipboard(), nullptr);
    session.addTool("xclip", "kill -9 $$");
    EXPECT_EQ(NewOsTextFromClipboardA(), nullptr);
}

TEST(Clipboard, ANullTextIsRefused) {
    const Session session("DISPLAY");
    session.addKeeper("xclip", "-selection clipboard", "-selection clipboard -o");
    ASSERT_TRUE(OsTextToClipboardA("kept"));
    EXPECT_FALSE(OsTextToClipboard(nullptr));
    EXPECT_FALSE(OsTextToClipboardA(nullptr));
    EXPECT_EQ(taken(NewOsTextFromClipboardA()), "kept");
}

#endif

}  // namespace
