// No memory: allocation number 1, 2, 3 ... of a road fails, once or from then on, until the road
// comes to its end. Each time there is a status, nothing leaks, and Data is as it was before the
// command that failed.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "data/data_object.h"
#include "evaluation/task_engine.h"
#include "host/failure/failing_allocator.h"
#include "host/sample_file.h"
#include "nuv64/data/data_object.h"
#include "nuv64/host/command.h"

namespace nuv64::test {
namespace {

constexpr std::uint32_t kNoMemory = 0x80001;
constexpr std::uint64_t kAllOnes = UINT64_MAX;

// Everything that a node holds, as bytes.
class Fingerprint {
  public:
    static std::string of(const cKoData* data) {
        Fingerprint print;
        for (; data; data = data->Previous) print.node(*data);
        return print.bytes_;
    }

  private:
    template <class T>
    void value(const T& from) {
        bytes_.append(reinterpret_cast<const char*>(&from), sizeof from);
    }
    template <class T>
    void block(const T* from, std::uint64_t count) {
        value(from != nullptr);
        if (from) bytes_.append(reinterpret_cast<const char*>(from), count * sizeof(T));
    }
    template <class Ch>
    void text(const Owned<Ch>& from) {
        block(from.get(), from ? std::char_traits<Ch>::length(from.get()) : 0);
    }

    void node(const cKoData& data) {
        value(data.Flags);
        value(data.ZoneNumber);
        value(data.DataSourceId);
        value(data.DataSourceName);
        value(data.ExperimentType);
        value(data.HostMark);
        text(data.ExperimentName);
        text(data.FileTitle);
        text(data.FileFolder);
        text(data.FilePath);
        text(data.ExportPath);
        text(data.Parameters.Text);
        value(data.Parameters.LineCount);
        text(data.TaskScript);
        value(data.AxisGrid);
        value(data.AxisFirst);
        value(data.AxisLast);
        text(data.AxisUnit);
        value(data.Channels);
        value(data.Points);
        block(data.Samples.get(), data.Channels * data.Points);
        block(data.ChannelKinds.get(), data.Channels);
        block(data.Results, cKoData::kResultCount);
        block(data.BlockAxis.get(), data.BlockAxisCount);
        value(data.ChildCount());
        for (const cKoData* child = data.FirstChild(); child; child = child->Next()) node(*child);
        value(data.Evaluated != nullptr);
        if (data.Evaluated) node(*data.Evaluated);
    }

    std::string bytes_;
};

std::uint64_t readFile(std::uint32_t event, NuvCommandBlock* block) {
    if (event != EvLoadByHost) return 0;
    const auto& request = *reinterpret_cast<const HostLoadRequest*>(block->Input);
    return LoadKoDataEx(request.Data, static_cast<std::uint32_t>(request.SourceType), request.Path);
}

std::uint64_t word(const void* pointer) {
    return reinterpret_cast<std::uintptr_t>(pointer);
}

// Runs a command with its allocations counted.
std::uint32_t runCounted(NuvCommandBlock* block, std::uint32_t command, std::uint64_t input) {
    block->Input = input;
    Counted counted;
    NuvCommand(command, block);
    return block->Status;
}

// The file layer tells a read that failed for any reason by a negative count, and the reader takes
// that for a missing file, an unknown layout or the end of the file, wherever it meets it; a zone
// that ends among its parameters then lacks some.
bool isStated(std::uint32_t command, std::uint32_t status) {
    if (status == kNoMemory) return true;
    if (command == CmdLoad) return status == 56 || status == 27 || status == 62 || status == 21;
    return command == CmdExport && status == 59;
}

// A command that must be done or leave no trace. False when it failed.
bool runOrLeave(NuvCommandBlock* block, std::uint32_t command, std::uint64_t input) {
    const std::string before = Fingerprint::of(block->Data);
    const std::uint32_t status = runCounted(block, command, input);
    if (status == 0) return true;
    EXPECT_TRUE(allocationFailed()) << "command " << command << ", status " << status;
    EXPECT_TRUE(isStated(command, status)) << "command " << command << ", status " << status;
    EXPECT_TRUE(Fingerprint::of(block->Data) == before) << "command " << command;
    return false;
}

// The same; run again after a failure, it must be done.
bool runOrLeaveAndRun(NuvCommandBlock* block, std::uint32_t command, std::uint64_t input) {
    if (runOrLeave(block, command, input)) return true;
    stopFailing();
    EXPECT_EQ(runCounted(block, command, input), 0u) << "command " << command << ", run again";
    return false;
}

// A block that holds the evaluated sample.
class EvaluatedBlock {
  public:
    explicit EvaluatedBlock(const LoadRequest& load) : block_(NuvCommand(CmdOpen, nullptr)) {
        block_->Callback = readFile;
        EXPECT_EQ(runCounted(block_, CmdLoad, word(&load)), 0u);
        EXPECT_EQ(runCounted(block_, CmdRunScript, word(kSampleScript)), 0u);
    }
    ~EvaluatedBlock() { NuvCommand(CmdClose, block_); }
    EvaluatedBlock(const EvaluatedBlock&) = delete;
    EvaluatedBlock& operator=(const EvaluatedBlock&) = delete;

    NuvCommandBlock* get() const { return block_; }

  private:
    NuvCommandBlock* block_;
};

class NoMemory : public ::testing::TestWithParam<Failing> {
  protected:
    NoMemory() { sample_.write(sampleText(2, 5, 3)); }

    // Opens, describes, loads, evaluates, writes the profile, closes. Each step may fail.
    void takeRoad() const {
        table_.remove();
        NuvCommandBlock* block = open();
        if (!block) return;
        const std::u16string from = sample_.module(), to = table_.module();
        ApplicationInfo info{};
        info.TextCapacity = 1024;
        info.ApplicationKind = 2;
        LoadRequest load{5, from.c_str(), 0x200, nullptr};
        ExportRequest table{10, to.c_str(), nullptr, kAllOnes, kAllOnes, 0};
        if (runOrLeaveAndRun(block, CmdApplicationInfo, word(&info)) &&
            runOrLeaveAndRun(block, CmdLoad, word(&load)) && mute(block) &&
            runOrLeaveAndRun(block, CmdRunScript, word(kSampleScript))) {
            // A failure that the way up to here did without says nothing about the table.
            if (!allocationFailed()) runOrLeaveTable(block, table);
        }
        {
            Counted counted;
            NuvCommand(CmdClose, block);
        }
    }

    TemporaryFile sample_{"failure.sdf"};
    TemporaryFile table_{"failure.csv"};

  private:
    // The pictures of the fits, which a muted host doesn't get, take most of the allocations; it is
    // enough that each of them fails once.
    static bool mute(NuvCommandBlock* block) {
        if (GetParam() == Failing::FromThenOn) block->Flags = CallbackMuted;
        return true;
    }

    static NuvCommandBlock* open() {
        NuvCommandBlock* block = nullptr;
        {
            Counted counted;
            block = NuvCommand(CmdOpen, nullptr);
        }
        EXPECT_EQ(block == nullptr, allocationFailed());
        if (block) block->Callback = readFile;
        return block;
    }

    // A table that failed may have begun its file.
    void runOrLeaveTable(NuvCommandBlock* block, ExportRequest& request) const {
        const std::string before = Fingerprint::of(block->Data);
        const std::uint32_t status = runCounted(block, CmdExport, word(&request));
        if (status == 0) return;
        EXPECT_TRUE(allocationFailed()) << status;
        EXPECT_TRUE(isStated(CmdExport, status)) << status;
        EXPECT_TRUE(Fingerprint::of(block->Data) == before);
    }
};

TEST_P(NoMemory, AnywhereOnTheRoadLeavesNoTrace) {
    takeRoad();  // the module makes once what stays
    std::uint64_t which = 1;
    for (; !HasFailure(); ++which) {
        const std::int64_t before = liveBlocks();
        planFailure(which, GetParam());
        takeRoad();
        ASSERT_EQ(liveBlocks(), before) << "allocation " << which;
        if (!allocationFailed()) break;
    }
    planFailure(0, GetParam());
    EXPECT_FALSE(table_.read().empty());
    std::cout << "allocations of the road: " << which - 1 << "\n";
    EXPECT_GT(which, 100u);
}

TEST_P(NoMemory, InAnyCommandLeavesDataAsItWas) {
    const std::u16string from = sample_.module();
    const LoadRequest load{5, from.c_str(), 0x200, nullptr};
    const ParameterRequest set{kAllOnes, "T1MX", 0, "0.25"}, get{0, "BRLX", 0, nullptr};
    const struct {
        std::uint32_t command;
        std::uint64_t input;
        bool givesText;
    } trials[] = {{CmdLoad, word(&load), false},       {CmdExtractBlock, 1 + 4096, false},
                  {CmdParameterList, 1, true},         {CmdSetParameter, word(&set), false},
                  {CmdGetParameter, word(&get), true}, {CmdRestoreZonePrevious, 0, false},
                  {CmdRestoreZoneOldest, 1, false},    {CmdLocalTimeText, 0, true}};
    for (const auto& trial : trials) {
        planFailure(0, GetParam());
        auto block = std::make_unique<EvaluatedBlock>(load);
        for (std::uint64_t which = 1; !HasFailure(); ++which) {
            planFailure(which, GetParam());
            const bool done = runOrLeave(block->get(), trial.command, trial.input);
            if (done && trial.givesText) {
                auto* text = reinterpret_cast<char*>(block->get()->Output);
                runCounted(block->get(), CmdKillText, word(&text));
            }
            if (!allocationFailed()) break;
            planFailure(0, GetParam());
            if (done) block = std::make_unique<EvaluatedBlock>(load);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Allocations, NoMemory,
                         ::testing::Values(Failing::Once, Failing::FromThenOn),
                         [](const auto& kind) {
                             return kind.param == Failing::Once ? "Once" : "FromThenOn";
                         });

}  // namespace
}  // namespace nuv64::test
