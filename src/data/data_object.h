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

    // Tree.
    std::uint64_t ChildCount() const noexcept;
    cKoData* ChildAt(std::uint64_t index) const noexcept;
    cKoData* FirstChild() const noexcept;
    cKoData* LastChild() const noexcept;
    cKoData* Next() const noexcept;
    cKoData* Parent() const noexcept;
    std::uint64_t Depth() const noexcept;
    std::uint64_t Height() const noexcept;
    std::uint64_t SiblingCount() const noexcept;
    std::uint32_t AppendChild(cKoData* child) noexcept;
    cKoData* ParameterOwner() noexcept;
    cKoData* StrongestChild(std::uint64_t slot);

    // Flags.
    void SetFlags(std::uint32_t mask, bool recursive) noexcept;
    void ClearFlags(std::uint32_t mask, bool recursive) noexcept;
    std::uint32_t TestFlags(std::uint32_t mask) const noexcept;
    std::uint64_t CountFlagged(std::uint32_t mask, bool* allFlagged) const noexcept;

    // Matrix.
    std::uint32_t SetShape(std::uint64_t points, std::uint64_t channels, std::uint64_t grid,
                           double first, double last);
    double* Channel(std::uint64_t index) const noexcept;
    double Value(std::uint64_t point, std::uint64_t channel, bool scaled);
    std::uint32_t AppendChannel(const double* values, std::uint64_t n, std::uint64_t* index);
    std::uint32_t StoreChannel(const double* values, std::uint64_t n, std::uint64_t channel);
    std::uint32_t StoreFitChannel(const double* values);
    std::uint32_t ReplaceChannelsOfKind(std::uint32_t kind, const double* values,
                                        std::uint64_t count);
    std::uint32_t ResizePoints(std::uint64_t log2Factor, std::uint64_t newPoints);
    std::uint32_t NewChannelCopy(double** values, std::uint64_t* n, std::uint64_t channel,
                                 double factor) const;
    std::uint32_t NewSignalCopy(double** signal, std::uint64_t* n, std::uint64_t channel,
                                double factor) const;

    std::uint32_t CopyFrom(const cKoData* other);
    std::uint32_t MergeEvaluatedFront(const double* x, const double* y, std::uint64_t n);
    std::uint32_t MergeEvaluatedBack(const double* x, const double* y, std::uint64_t n);

    double ChannelStatistic(std::uint64_t channel, std::uint64_t slot);
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
