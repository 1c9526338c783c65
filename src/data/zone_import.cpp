#include "data/zone_import.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/guard.h"
#include "data/data_text_cursor.h"
#include "data/zone_parameters.h"
#include "nuv64/arrays/grid.h"
#include "nuv64/core/path.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/data/data_object.h"

namespace nuv64 {

namespace {

constexpr std::uint32_t kMissingParameters = 21;
constexpr std::uint64_t kSignalChannels = 3;  // time, real, imaginary
constexpr double kMicroseconds = 1e-6;

// What all blocks of one zone have in common.
struct BlockPlan {
    std::uint64_t blocks = 0;
    std::uint64_t points = 0;
    double first = 0.0;  // time axis, seconds
    double last = 0.0;
    double factor = 1.0;        // of the data channels
    double timeUnit = 0.0;      // of a time column; 0 when the file has none
    std::vector<double> times;  // the time axis when the file has no column for it
};

bool isNumber(double value) {
    return std::isfinite(value);
}

// The offset of the time axis of a headed zone stands in the fourth column, in microseconds.
double fourthNumber(std::string_view text) {
    DataTextCursor cursor(text);
    double value = ___NAN;
    for (int column = 0; column < 4; ++column) value = cursor.number();
    return value;
}

std::vector<double> timeGrid(const BlockPlan& plan) {
    const bool told = isNumber(plan.first) && isNumber(plan.last);
    const double first = told ? plan.first : 0.0;
    const double last = told ? plan.last : 1.0;
    std::vector<double> times(plan.points);
    for (std::uint64_t i = 0; i < plan.points; ++i) {
        times[i] = RArrGridValue(i, 0, plan.points, first, last);
    }
    return times;
}

void fillBlock(cKoData& block, const BlockPlan& plan, DataTextCursor& cursor) {
    if (cursor.atEnd()) return;
    double* const time = block.Channel(0);
    double* const real = block.Channel(1);
    double* const imaginary = block.Channel(2);
    const bool timed = plan.timeUnit != 0.0;
    for (std::uint64_t i = 0; i < plan.points && !cursor.atEnd(); ++i) {
        time[i] = timed ? cursor.number() * plan.timeUnit : plan.times[i];
        real[i] = cursor.number() * plan.factor;
        imaginary[i] = cursor.number() * plan.factor;
        cursor.nextLine();
    }
    if (isNumber(block.AxisFirst) && isNumber(block.AxisLast)) return;
    block.AxisFirst = time[0];
    block.AxisLast = time[plan.points - 1];
}

std::uint32_t appendBlocks(cKoData& zone, const BlockPlan& plan, std::string_view text) {
    DataTextCursor cursor(text);
    for (std::uint64_t i = 0; i < plan.blocks; ++i) {
        auto block = std::make_unique<cKoData>();
        block->ZoneNumber = zone.ZoneNumber;
        block->DataSourceName = zone.DataSourceName;
        block->DataSourceId = zone.DataSourceId;
        block->ExperimentType = zone.ExperimentType;
        const std::uint32_t status =
            block->SetShape(plan.points, kSignalChannels, 0, plan.first, plan.last);
        if (status != kSuccess) return status;
        fillBlock(*block, plan, cursor);
        zone.AppendChild(block.release());
    }
    return kSuccess;
}

// Sizes and times of the blocks, from the parameters as the file gives them.
std::uint32_t planBlocks(cKoAsciZone& zone, std::uint64_t sourceId, std::uint64_t experimentType,
                         SpareRoom& room, BlockPlan& plan) {
    const cKoAsciPars& pars = zone.pars;
    const std::uint64_t blocks = pars.GetInteger("NBLK");
    plan.points = pars.GetInteger("BS");
    if (blocks == UINT64_MAX || plan.points == UINT64_MAX || plan.points == 0) {
        return kMissingParameters;
    }
    plan.blocks = std::max<std::uint64_t>(blocks, 1);
    if (!room.take(plan.blocks, plan.points, zone.lineCount)) return kAllocationFailure;
    plan.first = zone.format == kClassicLayout ? pars.GetReal("XOFF")
                                               : fourthNumber(zone.DataText()) * kMicroseconds;
    plan.last =
        plan.first + kMicroseconds * static_cast<double>(plan.points - 1) * pars.GetReal("DW");
    const double factor = pars.GetReal("VFAC");
    if (isNumber(factor)) plan.factor = factor;
    if (sourceId == NUV64_SOURCE_SPIN_TRACK) {
        plan.timeUnit = kMicroseconds;
    } else if (experimentType != 0) {
        plan.timeUnit = 1e-7;
    } else {
        plan.times = timeGrid(plan);
    }
    return kSuccess;
}

// Headed zones name their relaxation field and spread their delays in their own way; after this
// their parameters read as those of classic zones.
std::uint32_t translateHeaded(cKoAsciZone& zone) {
    if (zone.format == kClassicLayout) return kSuccess;
    char field[cKoAsciPars::kValueLimit + 1];
    zone.pars.GetText("BR", field, nullptr);
    const std::uint32_t status =
        field[0] != 0 ? zone.pars.SetLine("BRLX", field, nullptr) : kSuccess;
    return status != kSuccess ? status : unpackDelays(zone.pars);
}

// The block axis. A list of delays says more than the two limits of a grid.
std::uint32_t setBlockAxis(cKoData& node, const cKoAsciZone& zone, std::uint64_t blocks) {
    const cKoAsciPars& pars = zone.pars;
    char grid[cKoAsciPars::kValueLimit + 1];
    pars.GetText("BGRD", grid, nullptr);
    node.AxisGrid = gridFromText(grid);
    node.AxisFirst = pars.GetReal("BINI");
    node.AxisLast = pars.GetReal("BEND");
    const std::uint64_t list = pars.FindValue("BLST");
    if (zone.format != kClassicLayout || !isGridWord(grid, "LIST") ||
        list == cKoAsciPars::kNotFound) {
        return kSuccess;
    }
    std::string_view text = pars.View().substr(list);
    text = text.substr(0, text.find_first_of("=\r"));
    const std::vector<double> values = blockList(pars, text, blocks);
    return node.SetBlockAxis(values.data(), values.size());
}

std::uint32_t appendZone(cKoAsciZone& zone, const SourceIdentity& source, SpareRoom& room,
                         cKoData& root) {
    auto node = std::make_unique<cKoData>();
    source.copyTo(*node);
    node->ZoneNumber = zone.zoneNumber;
    const std::uint64_t type = zone.pars.GetInteger("EXPT");
    node->ExperimentType = type == UINT64_MAX ? 0 : type;
    BlockPlan plan;
    std::uint32_t status = planBlocks(zone, source.id(), node->ExperimentType, room, plan);
    if (status != kSuccess) return status;
    node->ExperimentName = experimentName(zone.pars, zone.format);
    status = translateHeaded(zone);
    if (status == kSuccess) status = setBlockAxis(*node, zone, plan.blocks);
    if (status == kSuccess) status = node->Parameters.CopyFrom(&zone.pars);
    if (status == kSuccess) status = appendBlocks(*node, plan, zone.DataText());
    if (status == kSuccess) status = root.AppendChild(node.get());
    if (status == kSuccess) static_cast<void>(node.release());
    return status;
}

OwnedWideText pathFraction(const char16_t* path, std::uint32_t part) {
    return OwnedWideText(path ? NewFilePathFraction(path, part) : nullptr);
}

OwnedWideText clone(const OwnedWideText& text) {
    if (!text) return {};
    return copyText(text.get(), std::char_traits<char16_t>::length(text.get()));
}

}  // namespace

SourceIdentity::SourceIdentity(std::uint64_t sourceId, const char16_t* path)
    : id_(sourceId), title_(pathFraction(path, 3)), folder_(pathFraction(path, 4)) {
    if (path) path_ = copyText(path, std::char_traits<char16_t>::length(path));
}

void SourceIdentity::copyTo(cKoData& node) const {
    node.DataSourceId = id_;
    node.DataSourceName = DataSourceNameFromId(id_);
    node.FileTitle = clone(title_);
    node.FileFolder = clone(folder_);
    node.FilePath = clone(path_);
}

void SourceIdentity::moveTo(cKoData& node) noexcept {
    node.DataSourceId = id_;
    node.DataSourceName = DataSourceNameFromId(id_);
    node.FileTitle = std::move(title_);
    node.FileFolder = std::move(folder_);
    node.FilePath = std::move(path_);
}

// Every line may stand for eight points, and every file for some more.
bool SpareRoom::take(std::uint64_t blocks, std::uint64_t points, std::uint64_t lines) {
    points_ += 8 * lines;
    const std::uint64_t filled = std::min(blocks, lines / points + (lines % points != 0));
    const std::uint64_t emptyBlocks = blocks - filled;
    // With at most one block partly filled, filled * points is below lines + points.
    if (points > points_) return false;
    const std::uint64_t unfilled = filled * points - std::min(filled * points, lines);
    if (unfilled > points_) return false;
    points_ -= unfilled;
    if (emptyBlocks > points_ / (points + kBlockCost)) return false;
    points_ -= emptyBlocks * (points + kBlockCost);
    return true;
}

std::uint32_t ZoneImport::accept(std::unique_ptr<cKoAsciZone>& zone) {
    if (status_ == kSuccess) {
        status_ = guardStatus([&] { return appendZone(*zone, source_, room_, nodes_); });
    }
    return kSuccess;
}

std::uint32_t ZoneImport::finish(cKoData& root) noexcept {
    while (cKoData* node = nodes_.FirstChild()) root.AddItem(node);
    return status_;
}

}  // namespace nuv64
