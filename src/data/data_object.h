// The one class of experiment data, used at three levels of a tree: experiment, zone, block.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/list.h"
#include "core/owned.h"
#include "data/parameter_block.h"
#include "nuv64/core/types.h"

// The list side of cKoListItem puts a node among its siblings, the cKoList side holds its children.
struct cKoData : cKoListItem, cKoList {
    static constexpr std::uint64_t kUnset = UINT64_MAX;
    static constexpr std::uint64_t kStatisticSlots = 10;  // per channel
    static constexpr std::uint64_t kResultCount = 20;
    static constexpr std::uint32_t kSelected = 1;
    static constexpr std::uint32_t kTimeDomain = 0x1000000;
    static constexpr std::uint32_t kFrequencyDomain = 0x2000000;
    static constexpr std::uint32_t kDosy = 0x4000000;
    static constexpr std::uint32_t kSignalKind = 0;
    static constexpr std::uint32_t kFitKind = 2;

    explicit cKoData(std::uint32_t flags = 0) noexcept;
    ~cKoData() override;
    void Reset() noexcept;

    // Tree. Walks go through the list of children; ChildAt is null for an index at or above the
    // count, Parent null at the root. Height is 0 for a node without children.
    std::uint64_t ChildCount() const noexcept;
    cKoData* ChildAt(std::uint64_t index) const noexcept;
    cKoData* FirstChild() const noexcept;
    cKoData* LastChild() const noexcept;
    cKoData* Next() const noexcept;
    cKoData* Parent() const noexcept;
    std::uint64_t Depth() const noexcept;
    std::uint64_t Height() const noexcept;
    std::uint64_t SiblingCount() const noexcept;
    // Takes over the child; null does nothing. 26 when the child is this node or above it.
    std::uint32_t AppendChild(cKoData* child) noexcept;
    // The nearest node, this one included, whose parameter block has a line.
    cKoData* ParameterOwner() noexcept;
    // The child with the largest ChannelStatistic(1, slot); the first on a tie and without values.
    cKoData* StrongestChild(std::uint64_t slot);

    // Flags. CountFlagged counts the children with any bit of mask and clears *allFlagged (may be
    // null) when one has none.
    void SetFlags(std::uint32_t mask, bool recursive) noexcept;
    void ClearFlags(std::uint32_t mask, bool recursive) noexcept;
    std::uint32_t TestFlags(std::uint32_t mask) const noexcept;
    std::uint64_t CountFlagged(std::uint32_t mask, bool* allFlagged) const noexcept;

    // Matrix: Channels rows of Points values. Sizes that overflow, and memory, give 0x80001.
    // Frees the matrix and makes a new one, zero-filled; a zero size leaves none.
    std::uint32_t SetShape(std::uint64_t points, std::uint64_t channels, std::uint64_t grid,
                           double first, double last);
    double* Channel(std::uint64_t index) const noexcept;
    // Not-a-number outside the matrix; scaled: times slot 9 of the channel.
    double Value(std::uint64_t point, std::uint64_t channel, bool scaled);
    // *index (may be null) is the new channel, all ones when none was added. Null values do
    // nothing; 17 when n isn't Points; the first channel of an empty node sets Points.
    std::uint32_t AppendChannel(const double* values, std::uint64_t n, std::uint64_t* index);
    // 17 when n isn't Points, 14 without such a channel.
    std::uint32_t StoreChannel(const double* values, std::uint64_t n, std::uint64_t channel);
    // Overwrites the lowest fit channel behind channel 0, or appends one.
    std::uint32_t StoreFitChannel(const double* values);
    // Removes all channels of this kind and appends count rows of values with it. 14 without a
    // matrix.
    std::uint32_t ReplaceChannelsOfKind(std::uint32_t kind, const double* values,
                                        std::uint64_t count);
    // To newPoints, or to Points * 2^log2Factor when that isn't 0: cuts, or extends by zeros and
    // channel 0 by the step of the axis. 23 without a matrix.
    std::uint32_t ResizePoints(std::uint64_t log2Factor, std::uint64_t newPoints);
    // New blocks that the caller kills: one channel, or two neighbours as a signal, times factor.
    // 14 without them.
    std::uint32_t NewChannelCopy(double** values, std::uint64_t* n, std::uint64_t channel,
                                 double factor) const;
    std::uint32_t NewSignalCopy(double** signal, std::uint64_t* n, std::uint64_t channel,
                                double factor) const;

    // A deep copy, children and result node included; the undo chain of this node stays its own. A
    // node copied from itself is unchanged, a failure leaves it as Reset does; 22 for null.
    std::uint32_t CopyFrom(const cKoData* other);
    // The result node is a curve of two channels: discrete components, Results[0] of them, then a
    // sampled distribution. Front keeps the first Results[0] points of this node's count and puts n
    // new ones behind them (stores a distribution); Back puts n new points in front of what stood
    // behind the old components and notes their count in the result node (stores components). 22
    // for null or n 0.
    std::uint32_t MergeEvaluatedFront(const double* x, const double* y, std::uint64_t n);
    std::uint32_t MergeEvaluatedBack(const double* x, const double* y, std::uint64_t n);

    // Slots: 3 noise, 4 mean, 5 smallest, 6 largest value, 7 largest magnitude and 8 largest power
    // of channels 1 and 2 as a signal, 9 scale (1 until a normalization keeps its factor there).
    // ChannelStatistic computes over all points; not-a-number for no such channel or slot.
    double ChannelStatistic(std::uint64_t channel, std::uint64_t slot);
    // Over points first to last; all ones mean the first and the last point. 26 for no such channel
    // or slot, 14 without a value, the noise estimator's status; an empty range changes nothing.
    std::uint32_t ComputeStatistic(std::uint64_t channel, std::uint64_t slot, std::uint64_t first,
                                   std::uint64_t last);

    // Gives the node its own list of block-axis values (copied); null or count 0 drops the list.
    std::uint32_t SetBlockAxis(const double* values, std::uint64_t count);

    std::uint32_t Flags = 0;
    std::uint64_t ZoneNumber = 0;
    const char* DataSourceName = nullptr;  // static text
    std::uint64_t DataSourceId = 0;
    nuv64::OwnedText ExperimentName;
    std::uint64_t ExperimentType = kUnset;
    std::uint64_t HostMark = kUnset;
    nuv64::OwnedWideText FileTitle;
    nuv64::OwnedWideText FileFolder;
    nuv64::OwnedWideText FilePath;
    nuv64::OwnedWideText ExportPath;
    cKoAsciPars Parameters;
    nuv64::OwnedText TaskScript;
    std::uint64_t AxisGrid = 0;
    double AxisFirst = 1.0;
    double AxisLast = 1.0;
    double AxisScale = 1.0;
    double AxisOffset = 0.0;
    nuv64::OwnedText AxisUnit;
    double ValueScale = 1.0;
    nuv64::OwnedText ValueUnit;
    std::uint64_t Channels = 0;
    std::uint64_t Points = 0;
    nuv64::Owned<double> Samples;
    nuv64::Owned<std::uint32_t> PointTags;
    nuv64::Owned<double> ChannelStatistics;
    nuv64::Owned<std::uint32_t> ChannelKinds;
    double Results[kResultCount];
    cKoData* Previous = nullptr;       // owned; the undo chain
    cKoData* Evaluated = nullptr;      // owned; the result node
    std::uint64_t BlockAxisCount = 0;  // values in BlockAxis, 0 for none
    nuv64::Owned<double> BlockAxis;    // explicit block-axis values, seconds

  private:
    struct Matrix;
    void releaseChildren(cKoList& heap) noexcept;
    void freeMatrix() noexcept;
    void clearFields() noexcept;
    void adopt(Matrix& matrix, std::uint64_t points, std::uint64_t channels) noexcept;
    std::uint32_t copyFieldsFrom(const cKoData& other);
    std::uint32_t copyTreeFrom(const cKoData& other);
    void takeFrom(cKoData& other) noexcept;
    std::uint32_t mergeEvaluated(const double* const head[2], std::uint64_t headCount,
                                 const double* const tail[2], std::uint64_t tailCount);
    std::uint32_t noise(std::uint64_t channel, std::uint64_t from, std::uint64_t n);
    std::uint32_t extreme(std::uint64_t channel, std::uint64_t slot, std::uint64_t from,
                          std::uint64_t n);
    std::uint32_t strongest(std::uint64_t channel, std::uint64_t slot, std::uint64_t from,
                            std::uint64_t n);
};

namespace nuv64 {

// The name of a data source, null for 13 and for an unknown id.
const char* DataSourceNameFromId(std::uint64_t id) noexcept;

}  // namespace nuv64
