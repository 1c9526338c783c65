// Deep copies of nodes.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/guard.h"
#include "data/data_object.h"

namespace {

constexpr std::uint32_t kMissingArguments = 22;

template <class Ch>
nuv64::Owned<Ch> cloneText(const nuv64::Owned<Ch>& text) {
    if (!text) return {};
    return nuv64::copyText(text.get(), std::char_traits<Ch>::length(text.get()));
}

template <class T>
nuv64::Owned<T> cloneBlock(const nuv64::Owned<T>& block, std::uint64_t count) {
    if (!block || count == 0) return {};
    nuv64::Owned<T> copy = nuv64::allocate<T>(count);
    std::copy_n(block.get(), count, copy.get());
    return copy;
}

}  // namespace

// Everything but children, undo chain and result node; throws when memory is short.
std::uint32_t cKoData::copyFieldsFrom(const cKoData& other) {
    Flags = other.Flags;
    ZoneNumber = other.ZoneNumber;
    DataSourceName = other.DataSourceName;
    DataSourceId = other.DataSourceId;
    ExperimentName = cloneText(other.ExperimentName);
    ExperimentType = other.ExperimentType;
    HostMark = other.HostMark;
    FileTitle = cloneText(other.FileTitle);
    FileFolder = cloneText(other.FileFolder);
    FilePath = cloneText(other.FilePath);
    ExportPath = cloneText(other.ExportPath);
    TaskScript = cloneText(other.TaskScript);
    AxisGrid = other.AxisGrid;
    AxisFirst = other.AxisFirst;
    AxisLast = other.AxisLast;
    AxisScale = other.AxisScale;
    AxisOffset = other.AxisOffset;
    AxisUnit = cloneText(other.AxisUnit);
    ValueScale = other.ValueScale;
    ValueUnit = cloneText(other.ValueUnit);
    Samples = cloneBlock(other.Samples, other.Channels * other.Points);
    PointTags = cloneBlock(other.PointTags, other.Points);
    ChannelStatistics = cloneBlock(other.ChannelStatistics, other.Channels * kStatisticSlots);
    ChannelKinds = cloneBlock(other.ChannelKinds, other.Channels);
    Channels = other.Channels;
    Points = other.Points;
    std::copy_n(other.Results, kResultCount, Results);
    BlockAxis = cloneBlock(other.BlockAxis, other.BlockAxisCount);
    BlockAxisCount = other.BlockAxisCount;
    return Parameters.CopyFrom(&other.Parameters);
}

// Without recursion: the pairs still to be copied wait in a list.
std::uint32_t cKoData::copyTreeFrom(const cKoData& other) {
    std::vector<std::pair<const cKoData*, cKoData*>> waiting{{&other, this}};
    while (!waiting.empty()) {
        const auto [source, target] = waiting.back();
        waiting.pop_back();
        const std::uint32_t status = target->copyFieldsFrom(*source);
        if (status != nuv64::kSuccess) return status;
        for (const cKoData* child = source->FirstChild(); child; child = child->Next()) {
            cKoData* copy = new cKoData;
            target->AddItem(copy);
            waiting.emplace_back(child, copy);
        }
        if (source->Evaluated) {
            target->Evaluated = new cKoData;
            waiting.emplace_back(source->Evaluated, target->Evaluated);
        }
    }
    return nuv64::kSuccess;
}

// Takes over the content of a node that is about to end.
void cKoData::takeFrom(cKoData& other) noexcept {
    Flags = other.Flags;
    ZoneNumber = other.ZoneNumber;
    DataSourceName = other.DataSourceName;
    DataSourceId = other.DataSourceId;
    ExperimentName = std::move(other.ExperimentName);
    ExperimentType = other.ExperimentType;
    HostMark = other.HostMark;
    FileTitle = std::move(other.FileTitle);
    FileFolder = std::move(other.FileFolder);
    FilePath = std::move(other.FilePath);
    ExportPath = std::move(other.ExportPath);
    Parameters.Text = std::move(other.Parameters.Text);
    Parameters.LineCount = other.Parameters.LineCount;
    Parameters.Capacity = other.Parameters.Capacity;
    Parameters.Length = other.Parameters.Length;
    TaskScript = std::move(other.TaskScript);
    AxisGrid = other.AxisGrid;
    AxisFirst = other.AxisFirst;
    AxisLast = other.AxisLast;
    AxisScale = other.AxisScale;
    AxisOffset = other.AxisOffset;
    AxisUnit = std::move(other.AxisUnit);
    ValueScale = other.ValueScale;
    ValueUnit = std::move(other.ValueUnit);
    Samples = std::move(other.Samples);
    PointTags = std::move(other.PointTags);
    ChannelStatistics = std::move(other.ChannelStatistics);
    ChannelKinds = std::move(other.ChannelKinds);
    Channels = std::exchange(other.Channels, 0);
    Points = std::exchange(other.Points, 0);
    std::copy_n(other.Results, kResultCount, Results);
    BlockAxis = std::move(other.BlockAxis);
    BlockAxisCount = std::exchange(other.BlockAxisCount, 0);
    while (cKoData* child = other.FirstChild()) AddItem(child);
    std::swap(Evaluated, other.Evaluated);
}

// The copy is complete before the old content goes, so that a node may be copied from a part of
// itself. The node keeps its own undo chain; a copy never brings one.
std::uint32_t cKoData::CopyFrom(const cKoData* other) {
    if (!other) return kMissingArguments;
    if (other == this) return nuv64::kSuccess;
    cKoData copy;
    const std::uint32_t status = nuv64::guardStatus([&] { return copy.copyTreeFrom(*other); });
    Reset();
    if (status == nuv64::kSuccess) {
        takeFrom(copy);
    } else {
        delete std::exchange(Evaluated, nullptr);
    }
    return status;
}
