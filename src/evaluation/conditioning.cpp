// Procedures that change the signal of a block without turning it into a result.
#include <algorithm>
#include <cstring>
#include <vector>

#include "core/guard.h"
#include "data/data_object.h"
#include "evaluation/procedures.h"
#include "evaluation/status_words.h"
#include "evaluation/step.h"
#include "nuv64/arrays/grid.h"

namespace nuv64 {
namespace {

constexpr std::uint32_t kExcluded = 1;  // bit 0 of a point tag

using WindowMode = std::uint32_t (*)(cKoData& node, EvpRecord& evp, const PointWindow& window);

void reportCut(EvpRecord& evp, const PointWindow& window, std::uint64_t oldPoints) {
    if (!reportIsEmpty(evp)) return;
    if (window.first == 1 && window.last == oldPoints - 1) {
        report(evp, " Removed 1st point\n");
    } else {
        report(evp, " Cut points from %llu to %llu\n", wide(window.first), wide(window.last));
    }
    report(evp, " New size: %llu\n", wide(window.count));
}

// The new matrix is complete before the node is touched.
std::uint32_t cutToWindow(cKoData& node, EvpRecord& evp, const PointWindow& window) {
    Owned<double> samples = allocate<double>(node.Channels * window.count);
    Owned<std::uint32_t> tags = allocate<std::uint32_t>(window.count);
    for (std::uint64_t channel = 0; channel < node.Channels; ++channel) {
        std::copy_n(node.Channel(channel) + window.first, window.count,
                    samples.get() + channel * window.count);
    }
    std::copy_n(node.PointTags.get() + window.first, window.count, tags.get());
    const std::uint64_t oldPoints = node.Points;
    const double first = node.AxisFirst;
    const double last = node.AxisLast;
    node.AxisFirst = RArrGridValue(window.first, node.AxisGrid, oldPoints, first, last);
    node.AxisLast = RArrGridValue(window.last, node.AxisGrid, oldPoints, first, last);
    node.Samples = std::move(samples);
    node.PointTags = std::move(tags);
    node.Points = window.count;
    SetEvpFlags(&evp, EvpDataChanged);
    reportCut(evp, window, oldPoints);
    return kSuccess;
}

template <class Change>
std::uint32_t changeTags(cKoData& node, EvpRecord& evp, const PointWindow& window, Change change) {
    std::uint32_t* tags = node.PointTags.get() + window.first;
    std::transform(tags, tags + window.count, tags, change);
    SetEvpFlags(&evp, EvpDataChanged);
    return kSuccess;
}

std::uint32_t excludePoints(cKoData& node, EvpRecord& evp, const PointWindow& window) {
    return changeTags(node, evp, window, [](std::uint32_t tag) { return tag | kExcluded; });
}

std::uint32_t includePoints(cKoData& node, EvpRecord& evp, const PointWindow& window) {
    return changeTags(node, evp, window, [](std::uint32_t tag) { return tag & ~kExcluded; });
}

std::uint32_t togglePoints(cKoData& node, EvpRecord& evp, const PointWindow& window) {
    return changeTags(node, evp, window, [](std::uint32_t tag) { return tag ^ kExcluded; });
}

void reportReduction(EvpRecord& evp, const PointWindow& window, std::uint64_t factor,
                     std::uint64_t grid, std::uint64_t newSize) {
    if (!reportIsEmpty(evp)) return;
    report(evp, " Data reduction\n");
    // The line tells the parameter, not the work: 2 and above say so and are reduced linearly.
    report(evp, grid != 0 ? " Mode: Logarithmic\n" : " Mode: Linear\n");
    report(evp, " Factor: %llu\n", wide(factor));
    report(evp, " Starting point: %llu\n", wide(window.first));
    report(evp, " New size: %llu\n", wide(newSize));
}

// Points before the window stay; from there on every factor-th point does. The window's end plays
// no part. The reduced node is plain: grid 0, tags, kinds and statistics as new.
std::uint32_t reduceData(cKoData& node, EvpRecord& evp, const PointWindow& window) {
    std::uint64_t factor = GetEvpParameterAsQword(&evp, 2);
    if (factor == kUnset) factor = (node.Points >> 7) + 1;
    if (factor == 0) return status::kIllegalWindow;
    std::uint64_t grid = GetEvpParameterAsQword(&evp, 3);
    if (grid == kUnset) grid = 0;
    if (grid == 1) return status::kNotYetImplemented;

    const std::uint64_t start = window.first;
    const std::uint64_t newSize = start + (node.Points - start - 1) / factor + 1;
    const std::uint64_t channels = node.Channels;
    std::vector<double> kept(newSize * channels);
    double* out = kept.data();
    for (std::uint64_t channel = 0; channel < channels; ++channel) {
        const double* in = node.Channel(channel);
        for (std::uint64_t k = 0; k < newSize; ++k) {
            *out++ = in[k < start ? k : start + (k - start) * factor];
        }
    }
    const std::uint32_t shaped = node.SetShape(newSize, channels, 0, kept[0], kept[newSize - 1]);
    if (shaped != kSuccess) return shaped;
    std::copy(kept.begin(), kept.end(), node.Samples.get());
    SetEvpFlags(&evp, EvpDataChanged);
    reportReduction(evp, window, factor, grid, newSize);
    return kSuccess;
}

constexpr WindowMode kWindowModes[] = {cutToWindow, excludePoints, includePoints, togglePoints,
                                       reduceData};

}  // namespace

std::uint32_t runWindow(cKoData& node, EvpRecord& evp, NuvCommandBlock*) {
    if (evp.Mode == 0) return kSuccess;
    if (evp.Mode > std::size(kWindowModes)) return status::kUnknownProcedure;
    const PointWindow window = pointWindow(evp, node.Points);
    if (window.count == 0 || !node.Samples) return kSuccess;
    return kWindowModes[evp.Mode - 1](node, evp, window);
}

}  // namespace nuv64
