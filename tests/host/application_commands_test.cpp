#include "host/application_commands.h"

#include <cstdio>
#include <memory>
#include <string>

#include "host/block_fixture.h"
#include "nuv64/core/version.h"

namespace nuv64::test {
namespace {

using ApplicationCommands = BlockTest;
using Numbers = std::vector<std::uint32_t>;

std::unique_ptr<ApplicationInfo> graphicalInfo() {
    auto info = std::make_unique<ApplicationInfo>();
    info->TextCapacity = 1024;
    info->ApplicationKind = 2;
    return info;
}

// A graphical host again, whatever a test has said: the record is process-wide.
class ApplicationInfoCommand : public ApplicationCommands {
  protected:
    ~ApplicationInfoCommand() override {
        const auto info = graphicalInfo();
        run(CmdApplicationInfo, info.get());
    }
};

TEST_F(ApplicationInfoCommand, WritesVersionAndExecutable) {
    const auto info = graphicalInfo();
    info->Reserved1 = 11;
    info->Reserved4 = 44;
    info->Title[0] = u'T';
    EXPECT_EQ(run(CmdApplicationInfo, info.get()), 0u);
    EXPECT_EQ(info->VersionMajor, std::uint32_t{NUV64_VERSION_MAJOR});
    EXPECT_EQ(info->VersionMinor, std::uint32_t{NUV64_VERSION_MINOR});
    EXPECT_EQ(info->VersionBuild, std::uint32_t{NUV64_VERSION_BUILD});
    EXPECT_EQ(std::u16string(info->VersionText), u"Quorvin 1.0.520");
    const std::u16string name = info->ExecutableName, folder = info->ExecutableFolder;
    EXPECT_NE(name.find(u"host_test"), std::u16string::npos);
    ASSERT_FALSE(folder.empty());
    EXPECT_EQ(folder.back(), u'\\');
    EXPECT_EQ(info->Reserved1, 11u);
    EXPECT_EQ(info->Reserved4, 44u);

    const ApplicationInfo& copy = applicationInfo();
    EXPECT_EQ(copy.Reserved1, 11u);
    EXPECT_EQ(copy.Title[0], u'T');
    EXPECT_EQ(std::u16string(copy.ExecutableName), name);
}

TEST_F(ApplicationInfoCommand, CutsTextsToTheHostsCapacity) {
    const auto info = graphicalInfo();
    info->TextCapacity = 8;
    info->ExecutableName[8] = u'!';
    EXPECT_EQ(run(CmdApplicationInfo, info.get()), 0u);
    EXPECT_EQ(std::u16string(info->VersionText), u"Quorvin");
    EXPECT_LT(std::u16string(info->ExecutableName).size(), 8u);
    EXPECT_EQ(info->ExecutableName[8], u'!');

    info->TextCapacity = UINT32_MAX;
    EXPECT_EQ(run(CmdApplicationInfo, info.get()), 0u);
    EXPECT_EQ(std::u16string(info->VersionText), u"Quorvin 1.0.520");

    info->TextCapacity = 0;
    info->VersionText[0] = u'x';
    EXPECT_EQ(run(CmdApplicationInfo, info.get()), 0u);
    EXPECT_EQ(info->VersionText[0], u'x');
}

TEST_F(ApplicationInfoCommand, TellsAGraphicalHostThatItMayStart) {
    const auto info = graphicalInfo();
    EXPECT_EQ(run(CmdApplicationInfo, info.get()), 0u);
    EXPECT_EQ(eventNumbers(),
              (Numbers{EvCommandBegin, EvApplicationReady, EvApplicationStart, EvCommandEnd}));
}

TEST_F(ApplicationInfoCommand, HasNoConsoleApplication) {
    const auto info = graphicalInfo();
    info->ApplicationKind = 1;
    EXPECT_EQ(run(CmdApplicationInfo, info.get()), 9u);
    EXPECT_FALSE(saw(EvApplicationReady));
    EXPECT_EQ(applicationInfo().ApplicationKind, 1u);
    makeData();
    events_.clear();
    EXPECT_EQ(run(CmdCloseData), 0u);
    EXPECT_FALSE(saw(EvDataClosed));
}

TEST_F(ApplicationInfoCommand, TakesOtherKindsSilently) {
    const auto info = graphicalInfo();
    info->ApplicationKind = 3;
    EXPECT_EQ(run(CmdApplicationInfo, info.get()), 0u);
    EXPECT_EQ(eventNumbers(), (Numbers{EvCommandBegin, EvCommandEnd}));
}

TEST_F(ApplicationInfoCommand, NeedsARecord) {
    EXPECT_EQ(run(CmdApplicationInfo), 14u);
}

TEST_F(ApplicationCommands, GiveTheWordsOfAStatus) {
    ErrorTextRequest request{23, 5, nullptr, nullptr};
    EXPECT_EQ(run(CmdErrorText, &request), 0u);
    EXPECT_EQ(std::u16string(request.text), u"Missing cKoData object");
    EXPECT_EQ(request.textA, nullptr);
    EXPECT_EQ(run(CmdErrorTextA, &request), 0u);
    EXPECT_STREQ(request.textA, "Missing cKoData object");
    EXPECT_EQ(request.word1, 5u);
    request.code = 0x80001;
    EXPECT_EQ(run(CmdErrorTextA, &request), 0u);
    EXPECT_STREQ(request.textA, "Allocation failure");
    request.code = 0;
    EXPECT_EQ(run(CmdErrorTextA, &request), 0u);
    EXPECT_STREQ(request.textA, "");
    EXPECT_EQ(run(CmdErrorText), 14u);
    EXPECT_EQ(run(CmdErrorTextA), 14u);
}

TEST_F(ApplicationCommands, ShellOpenNeedsAPath) {
    EXPECT_EQ(run(CmdShellOpen), 63u);
    EXPECT_EQ(run(CmdShellOpen, u""), 63u);
}

TEST_F(ApplicationCommands, LocalTimeIsUnpadded) {
    ASSERT_EQ(run(CmdLocalTimeText), 0u);
    const std::string text = takeText();
    unsigned part[6];
    ASSERT_EQ(std::sscanf(text.c_str(), "%u-%u-%u %u:%u:%u", &part[0], &part[1], &part[2], &part[3],
                          &part[4], &part[5]),
              6)
        << text;
    EXPECT_GE(part[0], 2024u);
    EXPECT_LE(part[1], 12u);
    EXPECT_LE(part[2], 31u);
    EXPECT_LE(part[3], 23u);
    EXPECT_LE(part[4], 59u);
    std::string unpadded = std::to_string(part[0]);
    for (int i = 1; i < 6; ++i) unpadded += "--- ::"[i] + std::to_string(part[i]);
    EXPECT_EQ(text, unpadded);
}

TEST_F(ApplicationCommands, CloseDataDeletesTheWholeChain) {
    const auto info = graphicalInfo();
    ASSERT_EQ(run(CmdApplicationInfo, info.get()), 0u);
    makeData();
    block_->Data->Previous = new cKoData;
    block_->Data->Previous->Previous = new cKoData;
    events_.clear();
    EXPECT_EQ(run(CmdCloseData), 0u);
    EXPECT_EQ(block_->Data, nullptr);
    EXPECT_EQ(eventNumbers(), (Numbers{EvCommandBegin, EvDataClosed, EvCommandEnd}));
    events_.clear();
    EXPECT_EQ(run(CmdCloseData), 0u);
    EXPECT_FALSE(saw(EvDataClosed));
}

TEST_F(ApplicationCommands, DeleteObjectsOfAnyKind) {
    void* object = static_cast<cKoListItem*>(new cKoData);
    EXPECT_EQ(run(CmdDeleteObject, &object), 0u);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(run(CmdDeleteObject, &object), 0u);
    object = new cKoAsciPars;
    EXPECT_EQ(run(CmdDeleteObject, &object), 0u);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(run(CmdDeleteObject), 0u);
}

TEST_F(ApplicationCommands, ImportAskAnswers13For13) {
    ImportAskRequest request{0, 0, 0, 0, 13};
    EXPECT_EQ(run(CmdImportAsk, &request), 0u);
    EXPECT_EQ(block_->Output, 13u);
    EXPECT_EQ(eventNumbers(), (Numbers{EvCommandBegin, EvImportAsked, EvCommandEnd}));
    EXPECT_EQ(events_[1].output, 13u);
    request.kind = 12;
    EXPECT_EQ(run(CmdImportAsk, &request), 0u);
    EXPECT_EQ(block_->Output, 0u);
    block_->Output = 5;
    EXPECT_EQ(run(CmdImportAsk), 0u);
    EXPECT_EQ(block_->Output, 0u);
}

TEST_F(ApplicationCommands, KillTextsAndBlocks) {
    for (const std::uint32_t command : {CmdKillText, CmdKillBlock}) {
        char* text = copyText("abc", 3).release();
        EXPECT_EQ(run(command, &text), 0u);
        EXPECT_EQ(text, nullptr);
        EXPECT_EQ(run(command, &text), 0u);
        EXPECT_EQ(run(command), 0u);
    }
}

}  // namespace
}  // namespace nuv64::test
