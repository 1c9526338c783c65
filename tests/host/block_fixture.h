// An open command block with a record of the events that it made, and small experiments to put in
// it.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "data/data_object.h"
#include "nuv64/core/memory.h"
#include "nuv64/host/command.h"

namespace nuv64::test {

inline constexpr std::uint64_t kAllOnes = UINT64_MAX;

struct SeenEvent {
    std::uint32_t event;
    std::uint32_t command;
    std::uint32_t status;
    std::uint64_t input;
    std::uint64_t output;
};

class BlockTest : public ::testing::Test {
  protected:
    BlockTest() : block_(NuvCommand(CmdOpen, nullptr)) {
        current_ = this;
        if (block_) block_->Callback = onEvent;
    }
    ~BlockTest() override {
        if (block_) block_->Flags = 0;
        NuvCommand(CmdClose, block_);
        current_ = nullptr;
    }

    std::uint32_t run(std::uint32_t command, std::uint64_t input = 0) {
        block_->Input = input;
        EXPECT_EQ(NuvCommand(command, block_), block_);
        EXPECT_EQ(block_->Input, input) << "command " << command << " must put Input back";
        return block_->Status;
    }
    template <class Record>
    std::uint32_t run(std::uint32_t command, Record* record) {
        return run(command, std::uint64_t{reinterpret_cast<std::uintptr_t>(record)});
    }

    double outputReal() const { return std::bit_cast<double>(block_->Output); }
    const char* outputText() const { return reinterpret_cast<const char*>(block_->Output); }
    const char16_t* outputWide() const { return reinterpret_cast<const char16_t*>(block_->Output); }
    // The new text in Output, given back to the module.
    std::string takeText() {
        auto* text = reinterpret_cast<char*>(block_->Output);
        if (!text) return "(null)";
        std::string copy = text;
        run(CmdKillText, &text);
        EXPECT_EQ(text, nullptr);
        return copy;
    }

    // Experiment, zones, blocks. Every node tells where it stands: zone z has the number z + 1 and
    // the mark 100 + z, block b of zone z holds 1000 z + 100 b + point in channel 1.
    void makeData(std::uint64_t zones = 2, std::uint64_t blocks = 3, std::uint64_t points = 4) {
        ASSERT_EQ(block_->Data, nullptr);
        auto data = std::make_unique<cKoData>();
        data->DataSourceId = 5;
        data->DataSourceName = "STELAR";
        data->FileTitle = wide(u"root.sdf");
        data->FileFolder = wide(u"\\data\\");
        data->FilePath = wide(u"\\data\\root.sdf");
        data->ExperimentName = text("ROOT/S");
        for (std::uint64_t z = 0; z < zones; ++z) data->AppendChild(makeZone(z, blocks, points));
        block_->Data = data.release();
    }

    static OwnedText text(std::string_view from) { return copyText(from.data(), from.size()); }
    static OwnedWideText wide(std::u16string_view from) {
        return copyText(from.data(), from.size());
    }

    std::vector<std::uint32_t> eventNumbers() const {
        std::vector<std::uint32_t> numbers;
        for (const SeenEvent& seen : events_) numbers.push_back(seen.event);
        return numbers;
    }
    bool saw(std::uint32_t event) const {
        for (const SeenEvent& seen : events_) {
            if (seen.event == event) return true;
        }
        return false;
    }

    NuvCommandBlock* block_;
    std::vector<SeenEvent> events_;
    // What the host does at an event; its result goes back to the module.
    std::function<std::uint64_t(std::uint32_t event)> host_;

  private:
    static cKoData* makeZone(std::uint64_t z, std::uint64_t blocks, std::uint64_t points) {
        auto zone = std::make_unique<cKoData>();
        const std::string number = std::to_string(z + 1);
        zone->ZoneNumber = z + 1;
        zone->HostMark = 100 + z;
        zone->DataSourceId = 5;
        zone->DataSourceName = "STELAR";
        zone->ExperimentName = text("NP/S");
        zone->ExperimentType = 0;
        zone->FileTitle = wide(u"zone.sdf");
        zone->FileFolder = wide(u"\\data\\zone\\");
        zone->FilePath = wide(u"\\data\\zone\\zone.sdf");
        zone->AxisGrid = 2;
        zone->AxisFirst = 0.25;
        zone->AxisLast = 0.5;
        zone->AxisUnit = text("s");
        zone->Parameters.AddLine("ZONE", number.c_str(), "");
        zone->Parameters.AddLine("NBLK", std::to_string(blocks).c_str(), "");
        zone->Parameters.AddLine("EXP", "NP/S", "");
        for (std::uint64_t b = 0; b < blocks; ++b) {
            auto block = std::make_unique<cKoData>();
            EXPECT_EQ(block->SetShape(points, 3, 1, 0.125, 0.75), 0u);
            block->AxisUnit = text("us");
            for (std::uint64_t p = 0; p < points; ++p) {
                block->Channel(1)[p] = static_cast<double>(1000 * z + 100 * b + p);
            }
            zone->AppendChild(block.release());
        }
        return zone.release();
    }

    static std::uint64_t onEvent(std::uint32_t event, NuvCommandBlock* block) {
        if (!current_ || current_->block_ != block) return 0;
        current_->events_.push_back(
            {event, block->Command, block->Status, block->Input, block->Output});
        return current_->host_ ? current_->host_(event) : 0;
    }

    inline static BlockTest* current_ = nullptr;
};

}  // namespace nuv64::test
