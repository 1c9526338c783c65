#include "host/load_commands.h"

#include <cmath>
#include <string>

#include "host/block_fixture.h"
#include "host/sample_file.h"
#include "nuv64/data/data_object.h"

namespace nuv64::test {
namespace {

using Numbers = std::vector<std::uint32_t>;

class LoadCommands : public BlockTest {
  protected:
    // A host that reads instrument files with the module, as hosts do.
    LoadCommands() {
        host_ = [this](std::uint32_t event) -> std::uint64_t {
            if (event != EvLoadByHost) return 0;
            const auto& request = *reinterpret_cast<const HostLoadRequest*>(block_->Input);
            return LoadKoDataEx(request.Data, static_cast<std::uint32_t>(request.SourceType),
                                request.Path);
        };
    }

    std::uint32_t load(const std::u16string& path, std::uint32_t source = 5) {
        const LoadRequest request{source, path.c_str(), 0x200, nullptr};
        return run(CmdLoad, &request);
    }

    TemporaryFile file_{"load.sdf"};
};

TEST_F(LoadCommands, LoadAStelarFileThroughTheHost) {
    file_.write(sampleText(3, 8, 6));
    ASSERT_EQ(load(file_.module()), 0u);
    ASSERT_NE(block_->Data, nullptr);
    EXPECT_EQ(block_->Data->ChildCount(), 3u);
    EXPECT_EQ(block_->Data->ChildAt(2)->ChildCount(), 8u);
    EXPECT_EQ(block_->Data->DataSourceId, 5u);
    EXPECT_EQ(std::u16string(block_->Data->FilePath.get()), file_.module());
    EXPECT_EQ(eventNumbers(), (Numbers{EvCommandBegin, EvLoadByHost, EvCommandEnd}));
    EXPECT_EQ(run(CmdRunStoredScript), 0u);
}

TEST_F(LoadCommands, AppendTheZonesOfAFurtherFile) {
    file_.write(sampleText(2));
    ASSERT_EQ(load(file_.module()), 0u);
    TemporaryFile second("load_second.sdf");
    second.write(sampleText(1));
    ASSERT_EQ(load(second.module()), 0u);
    EXPECT_EQ(block_->Data->ChildCount(), 3u);
    EXPECT_EQ(std::u16string(block_->Data->FilePath.get()), second.module());
}

TEST_F(LoadCommands, DoNothingWithoutARequest) {
    EXPECT_EQ(run(CmdLoad), 0u);
    EXPECT_EQ(block_->Data, nullptr);
    EXPECT_FALSE(saw(EvLoadByHost));
}

TEST_F(LoadCommands, NeedAFileNameWhereTheRequestSaysSo) {
    const LoadRequest request{5, nullptr, 0x200, nullptr};
    EXPECT_EQ(run(CmdLoad, &request), 56u);
    EXPECT_EQ(block_->Data, nullptr);
    EXPECT_FALSE(saw(EvLoadByHost));
}

TEST_F(LoadCommands, HandTheHostTheWholeRequest) {
    HostLoadRequest seen{};
    host_ = [&](std::uint32_t event) -> std::uint64_t {
        if (event != EvLoadByHost) return 0;
        seen = *reinterpret_cast<const HostLoadRequest*>(block_->Input);
        return 0x100000005u;  // only the low half is a status
    };
    const std::u16string path = u"\\a\\b.sdf";
    EXPECT_EQ(load(path, 8), 5u);
    EXPECT_EQ(seen.SourceType, 8u);
    EXPECT_NE(seen.Data, nullptr);
    EXPECT_EQ(seen.Path, path.c_str());
    EXPECT_EQ(seen.zero, 0u);
    EXPECT_EQ(block_->Data, nullptr);
}

TEST_F(LoadCommands, KeepStatus65WithoutAHost) {
    for (const std::uint32_t source : {0u, 5u, 6u, 7u, 8u, 9u, 13u, 17u, UINT32_MAX}) {
        block_->Flags = CallbackMuted;
        EXPECT_EQ(load(u"\\x", source), 65u) << source;
        block_->Flags = 0;
        block_->Callback = nullptr;
        EXPECT_EQ(load(u"\\x", source), 65u) << source;
        EXPECT_EQ(block_->Data, nullptr);
    }
}

TEST_F(LoadCommands, TellTheSourcesThatHaveNoReaderYet) {
    for (const std::uint32_t source : {1u, 2u, 3u, 4u, 10u, 11u, 12u, 14u, 15u, 16u}) {
        const LoadRequest request{source, nullptr, 0, "A=1=\r\nB=2="};
        EXPECT_EQ(run(CmdLoad, &request), 9u) << source;
        EXPECT_EQ(block_->Data, nullptr) << source;
        EXPECT_FALSE(saw(EvLoadByHost)) << source;
    }
    makeData(2);
    const LoadRequest request{12, nullptr, 0, "A=1="};
    EXPECT_EQ(run(CmdLoad, &request), 9u);
    EXPECT_EQ(block_->Data->ChildCount(), 2u);
}

TEST(ParameterText, EndsItsLinesInCarriageReturns) {
    EXPECT_EQ(withCarriageReturns(""), "");
    EXPECT_EQ(withCarriageReturns("A=1"), "A=1");
    EXPECT_EQ(withCarriageReturns("A=1\nB=2\r\nC=3\rD=4"), "A=1\rB=2\rC=3\rD=4");
    EXPECT_EQ(withCarriageReturns("\r\n\n\r\r\n"), "\r\r\r\r");
}

TEST_F(LoadCommands, FailOnFilesThatAreNone) {
    EXPECT_EQ(load(file_.module()), 56u);
    file_.write("");
    EXPECT_EQ(load(file_.module()), 56u);
    file_.write("Another kind of file\r\nZONE=1\r\n");
    EXPECT_EQ(load(file_.module()), 56u);
    file_.write("STELAR Data File\r\n");
    EXPECT_EQ(load(file_.module()), 62u);
    file_.write("STELAR Data File\r\nHELLO\r\n");
    EXPECT_EQ(load(file_.module()), 27u);
    EXPECT_EQ(load(modulePath(std::filesystem::temp_directory_path())), 56u);
    EXPECT_EQ(load(u"\\a?b"), 59u);
    EXPECT_EQ(load(u""), 56u);
    EXPECT_EQ(block_->Data, nullptr);
}

TEST_F(LoadCommands, FailOnABlockSizeThatNoMemoryHolds) {
    std::string text = sampleText(1);
    const std::string size = "BS  =\t6";
    text.replace(text.find(size), size.size(), "BS  =\t1099511627776");
    file_.write(text);
    EXPECT_EQ(load(file_.module()), 0x80001u);
    EXPECT_EQ(block_->Data, nullptr);
}

// A load that fails half-way leaves an experiment as it was: zones, names, script.
TEST_F(LoadCommands, TakeBackAFailedLoad) {
    file_.write(sampleText(2));
    ASSERT_EQ(load(file_.module()), 0u);
    const std::string script = block_->Data->TaskScript.get();
    cKoData* const data = block_->Data;
    cKoData* const last = data->LastChild();
    std::string broken = sampleText(3);
    const std::size_t key = broken.rfind("NBLK");
    broken.replace(key, 4, "NOPE");
    TemporaryFile second("load_broken.sdf");
    second.write(broken);
    EXPECT_EQ(load(second.module()), 21u);
    EXPECT_EQ(block_->Data, data);
    EXPECT_EQ(data->LastChild(), last);
    EXPECT_EQ(data->ChildCount(), 2u);
    EXPECT_EQ(std::u16string(data->FilePath.get()), file_.module());
    EXPECT_EQ(script, data->TaskScript.get());
}

TEST_F(LoadCommands, TakeBackWhatAHostDidBeforeItFailed) {
    makeData(1);
    host_ = [&](std::uint32_t event) -> std::uint64_t {
        if (event != EvLoadByHost) return 0;
        block_->Data->AppendChild(new cKoData);
        block_->Data->DataSourceId = 99;
        block_->Data->FilePath = wide(u"other");
        block_->Data->TaskScript = text("#X");
        return 24;
    };
    EXPECT_EQ(load(u"\\x"), 24u);
    EXPECT_EQ(block_->Data->ChildCount(), 1u);
    EXPECT_EQ(block_->Data->DataSourceId, 5u);
    EXPECT_EQ(std::u16string(block_->Data->FilePath.get()), u"\\data\\root.sdf");
    EXPECT_EQ(block_->Data->TaskScript, nullptr);
}

// Every cut of a small file gives a status or a load, and never a half-made experiment.
TEST_F(LoadCommands, StandFilesCutAnywhere) {
    const std::string whole = sampleText(2, 2, 2);
    std::size_t loaded = 0;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        file_.write(whole.substr(0, length));
        const std::uint32_t status = load(file_.module());
        if (status != 0) {
            ASSERT_EQ(block_->Data, nullptr) << length;
            continue;
        }
        ++loaded;
        ASSERT_NE(block_->Data, nullptr) << length;
        ASSERT_GE(block_->Data->ChildCount(), 1u) << length;
        ASSERT_EQ(run(CmdCloseData), 0u);
    }
    EXPECT_GT(loaded, 0u);
}

class ExportCommand : public LoadCommands {
  protected:
    static ExportRequest csv(const std::u16string& path, std::uint64_t zone, std::uint64_t block) {
        return {10, path.c_str(), nullptr, zone, block, 0};
    }

    TemporaryFile table_{"table.csv"};
};

TEST_F(ExportCommand, WritesABlock) {
    makeData(2, 3, 2);
    const std::u16string path = table_.module();
    cKoData* const node = block_->Data->ChildAt(1)->ChildAt(2);
    node->Channel(1)[0] = 0.25;
    node->Channel(1)[1] = -2.0;
    ExportRequest request = csv(path, 1, 2);
    EXPECT_EQ(run(CmdExport, &request), 0u);
    EXPECT_EQ(request.Node, node);
    EXPECT_EQ(table_.read(), "0,0.250000,0\r\n0,-2.00000,0\r\n");
    EXPECT_EQ(std::u16string(request.Node->ExportPath.get()), path);
}

TEST_F(ExportCommand, NeverReplacesAFile) {
    makeData(1, 1, 2);
    table_.write("old");
    const std::u16string path = table_.module();
    ExportRequest request = csv(path, 0, 0);
    EXPECT_EQ(run(CmdExport, &request), 59u);
    EXPECT_EQ(table_.read(), "old");
}

TEST_F(ExportCommand, ResolvesItsNode) {
    EXPECT_EQ(run(CmdExport), 26u);
    const std::u16string path = table_.module();
    ExportRequest request = csv(path, 0, kAllOnes);
    EXPECT_EQ(run(CmdExport, &request), 26u);
    makeData(1, 1, 2);
    request = csv(path, 1, kAllOnes);
    EXPECT_EQ(run(CmdExport, &request), 26u);
    // The zone and the experiment have no matrix.
    request = csv(path, 0, kAllOnes);
    EXPECT_EQ(run(CmdExport, &request), 14u);
    EXPECT_EQ(request.Node, block_->Data->FirstChild());
    request = csv(path, kAllOnes, 0);
    EXPECT_EQ(run(CmdExport, &request), 14u);
    EXPECT_EQ(request.Node, block_->Data);
    // A block that isn't there is no node.
    request = csv(path, 0, 7);
    EXPECT_EQ(run(CmdExport, &request), 14u);
    EXPECT_EQ(request.Node, nullptr);
    EXPECT_FALSE(std::filesystem::exists(table_.path()));
}

TEST_F(ExportCommand, ChangesAFileSystemErrorToAnIllegalName) {
    makeData(1, 1, 2);
    const std::u16string bad = u"\\a?b.csv";
    ExportRequest request = csv(bad, 0, 0);
    EXPECT_EQ(run(CmdExport, &request), 59u);
    const std::u16string nowhere = modulePath(table_.path() / "no" / "folder.csv");
    request = csv(nowhere, 0, 0);
    EXPECT_EQ(run(CmdExport, &request), 59u);
}

TEST_F(ExportCommand, HandsOtherTypesToTheHost) {
    makeData(1, 1, 2);
    ExportRequest* seen = nullptr;
    host_ = [&](std::uint32_t event) -> std::uint64_t {
        if (event == EvExportByHost) seen = reinterpret_cast<ExportRequest*>(block_->Input);
        return event == EvExportByHost ? 58 : 0;
    };
    for (const std::uint32_t type : {1u, 2u, 3u, 4u, 11u}) {
        ExportRequest request{type, nullptr, nullptr, 0, 0, 0};
        EXPECT_EQ(run(CmdExport, &request), 9u);
    }
    EXPECT_EQ(seen, nullptr);
    ExportRequest request{5, nullptr, nullptr, 0, kAllOnes, 0};
    EXPECT_EQ(run(CmdExport, &request), 58u);
    EXPECT_EQ(seen, &request);
    EXPECT_EQ(request.Node, block_->Data->FirstChild());
    block_->Flags = CallbackMuted;
    EXPECT_EQ(run(CmdExport, &request), 65u);
}

class WriteTextCommand : public LoadCommands {
  protected:
    TemporaryFile text_{"text.txt"};
};

TEST_F(WriteTextCommand, WritesANewFile) {
    const std::u16string path = text_.module();
    const TextFileRequest request{1, 0, path.c_str(), "line\r\n"};
    EXPECT_EQ(run(CmdWriteTextFile, &request), 0u);
    EXPECT_EQ(text_.read(), "line\r\n");
}

// A file that can't be created is told to the user, not by a status.
TEST_F(WriteTextCommand, KeepsStatus0WithoutAFile) {
    text_.write("old");
    const std::u16string path = text_.module();
    const TextFileRequest request{1, 0, path.c_str(), "new"};
    EXPECT_EQ(run(CmdWriteTextFile, &request), 0u);
    EXPECT_EQ(text_.read(), "old");
}

TEST_F(WriteTextCommand, StandsMissingFields) {
    EXPECT_EQ(run(CmdWriteTextFile), 14u);
    const TextFileRequest unknownKind{7, 0, nullptr, "x"};
    EXPECT_EQ(run(CmdWriteTextFile, &unknownKind), 0u);
    const std::u16string path = text_.module();
    const TextFileRequest noText{1, 0, path.c_str(), nullptr};
    EXPECT_EQ(run(CmdWriteTextFile, &noText), 0u);
    EXPECT_EQ(text_.read(), "");
}

}  // namespace
}  // namespace nuv64::test
