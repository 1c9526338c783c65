// The matrix of a node: its channels, their tags and kinds.
#include <algorithm>
#include <cstring>
#include <utility>

#include "core/guard.h"
#include "data/data_object.h"
#include "nuv64/arrays/real_matrix.h"
#include "nuv64/core/special_reals.h"

namespace {

constexpr std::uint32_t kMissingData = 14;
constexpr std::uint32_t kIllegalSize = 17;
constexpr std::uint32_t kMissingNode = 23;

template <class T>
nuv64::Owned<T> zeroed(std::uint64_t count) noexcept {
    if (count > PTRDIFF_MAX / sizeof(T)) return {};
    return nuv64::Owned<T>(static_cast<T*>(std::calloc(count, sizeof(T))));
}

// A copy of n values times factor; throws when memory is short.
nuv64::Owned<double> scaledCopy(const double* values, std::uint64_t n, double factor) {
    nuv64::Owned<double> copy = nuv64::allocate<double>(n);
    std::transform(values, values + n, copy.get(), [factor](double v) { return v * factor; });
    return copy;
}

}  // namespace

// The four blocks that are made and killed together.
struct cKoData::Matrix {
    nuv64::Owned<double> samples;
    nuv64::Owned<std::uint32_t> tags;
    nuv64::Owned<double> statistics;
    nuv64::Owned<std::uint32_t> kinds;

    // Sizes above 0; false when the product overflows or memory is short.
    bool allocate(std::uint64_t points, std::uint64_t channels) noexcept {
        if (points > UINT64_MAX / channels || channels > UINT64_MAX / kStatisticSlots) return false;
        samples = zeroed<double>(points * channels);
        tags = samples ? zeroed<std::uint32_t>(points) : nullptr;
        statistics = tags ? nuv64::tryAllocate<double>(channels * kStatisticSlots) : nullptr;
        kinds = statistics ? zeroed<std::uint32_t>(channels) : nullptr;
        if (!kinds) return false;
        std::fill_n(statistics.get(), channels * kStatisticSlots, ___NAN);
        return true;
    }

    // Takes over one channel with its statistics and its kind.
    void copyChannel(std::uint64_t to, const cKoData& node, std::uint64_t from) noexcept {
        const std::uint64_t n = node.Points;
        std::copy_n(node.Samples.get() + from * n, n, samples.get() + to * n);
        std::copy_n(node.ChannelStatistics.get() + from * kStatisticSlots, kStatisticSlots,
                    statistics.get() + to * kStatisticSlots);
        kinds[to] = node.ChannelKinds[from];
    }
};

void cKoData::adopt(Matrix& matrix, std::uint64_t points, std::uint64_t channels) noexcept {
    Samples = std::move(matrix.samples);
    PointTags = std::move(matrix.tags);
    ChannelStatistics = std::move(matrix.statistics);
    ChannelKinds = std::move(matrix.kinds);
    Points = points;
    Channels = channels;
}

void cKoData::freeMatrix() noexcept {
    Matrix none;
    adopt(none, 0, 0);
}

std::uint32_t cKoData::SetShape(std::uint64_t points, std::uint64_t channels, std::uint64_t grid,
                                double axisFirst, double axisLast) {
    freeMatrix();
    AxisGrid = grid;
    AxisFirst = axisFirst;
    AxisLast = axisLast;
    if (points == 0 || channels == 0) return nuv64::kSuccess;
    Matrix matrix;
    if (!matrix.allocate(points, channels)) return nuv64::kAllocationFailure;
    adopt(matrix, points, channels);
    return nuv64::kSuccess;
}

double* cKoData::Channel(std::uint64_t index) const noexcept {
    return index < Channels ? Samples.get() + index * Points : nullptr;
}

double cKoData::Value(std::uint64_t point, std::uint64_t channel, bool scaled) {
    if (point >= Points || channel >= Channels) return ___NAN;
    const double value = Channel(channel)[point];
    return scaled ? value * ChannelStatistic(channel, 9) : value;
}

// The values may lie in the node's own matrix: the old one is released last.
std::uint32_t cKoData::AppendChannel(const double* values, std::uint64_t n, std::uint64_t* index) {
    if (index) *index = UINT64_MAX;
    if (!values) return nuv64::kSuccess;
    if (Channels != 0 && n != Points) return kIllegalSize;
    if (n == 0) return nuv64::kSuccess;
    Matrix matrix;
    if (!matrix.allocate(n, Channels + 1)) return nuv64::kAllocationFailure;
    for (std::uint64_t c = 0; c < Channels; ++c) matrix.copyChannel(c, *this, c);
    if (PointTags) std::copy_n(PointTags.get(), n, matrix.tags.get());
    std::copy_n(values, n, matrix.samples.get() + Channels * n);
    if (index) *index = Channels;
    adopt(matrix, n, Channels + 1);
    return nuv64::kSuccess;
}

std::uint32_t cKoData::StoreChannel(const double* values, std::uint64_t n, std::uint64_t channel) {
    if (!values) return nuv64::kSuccess;
    if (n != Points) return kIllegalSize;
    if (Points == 0) return nuv64::kSuccess;
    if (channel >= Channels || !Samples) return kMissingData;
    std::memmove(Channel(channel), values, n * sizeof(double));
    return nuv64::kSuccess;
}

std::uint32_t cKoData::StoreFitChannel(const double* values) {
    std::uint64_t target = UINT64_MAX;
    for (std::uint64_t c = Channels; c > 1; --c) {
        if (ChannelKinds[c - 1] == kFitKind) target = c - 1;
    }
    const std::uint32_t status = target != UINT64_MAX ? StoreChannel(values, Points, target)
                                                      : AppendChannel(values, Points, &target);
    if (status == nuv64::kSuccess && target < Channels) ChannelKinds[target] = kFitKind;
    return status;
}

std::uint32_t cKoData::ReplaceChannelsOfKind(std::uint32_t kind, const double* values,
                                             std::uint64_t added) {
    if (!values) added = 0;
    if (!Samples) return added == 0 ? nuv64::kSuccess : kMissingData;
    const auto* kinds = ChannelKinds.get();
    const std::uint64_t kept = static_cast<std::uint64_t>(
        std::count_if(kinds, kinds + Channels, [kind](std::uint32_t k) { return k != kind; }));
    if (added > UINT64_MAX - kept) return nuv64::kAllocationFailure;
    const std::uint64_t channels = kept + added;
    if (channels == 0) {
        freeMatrix();
        return nuv64::kSuccess;
    }
    Matrix matrix;
    if (!matrix.allocate(Points, channels)) return nuv64::kAllocationFailure;
    std::uint64_t to = 0;
    for (std::uint64_t c = 0; c < Channels; ++c) {
        if (kinds[c] != kind) matrix.copyChannel(to++, *this, c);
    }
    if (added != 0) std::copy_n(values, added * Points, matrix.samples.get() + kept * Points);
    std::fill_n(matrix.kinds.get() + kept, added, kind);
    std::copy_n(PointTags.get(), Points, matrix.tags.get());
    adopt(matrix, Points, channels);
    return nuv64::kSuccess;
}

// Channel 0, the axis, goes on beyond the old end by the step of the axis; all else by zeros.
std::uint32_t cKoData::ResizePoints(std::uint64_t log2Factor, std::uint64_t newPoints) {
    if (log2Factor != 0) {
        if (Points != 0 && (log2Factor > 63 || Points > (UINT64_MAX >> log2Factor))) {
            return nuv64::kAllocationFailure;
        }
        newPoints = Points == 0 ? 0 : Points << log2Factor;
    }
    if (newPoints == Points || newPoints == 0) return nuv64::kSuccess;
    if (!Samples) return kMissingNode;
    const bool grows = newPoints > Points;
    nuv64::Owned<double> samples(
        grows ? NewRMatAppendRows0(Samples.get(), Points, Channels, newPoints - Points)
              : NewRMatRemoveRows(Samples.get(), Points, Channels, Points - newPoints));
    nuv64::Owned<std::uint32_t> tags = zeroed<std::uint32_t>(newPoints);
    if (!samples || !tags) return nuv64::kAllocationFailure;
    std::copy_n(PointTags.get(), std::min(Points, newPoints), tags.get());
    if (grows) {
        const double step = (AxisLast - AxisFirst) / static_cast<double>(Points - 1);
        const double end = samples[Points - 1];
        for (std::uint64_t i = Points; i < newPoints; ++i) {
            samples[i] = end + static_cast<double>(i - Points + 1) * step;
        }
    }
    Samples = std::move(samples);
    PointTags = std::move(tags);
    Points = newPoints;
    AxisLast = Samples[newPoints - 1];
    return nuv64::kSuccess;
}

std::uint32_t cKoData::NewChannelCopy(double** values, std::uint64_t* n, std::uint64_t channel,
                                      double factor) const {
    if (values) *values = nullptr;
    if (n) *n = 0;
    if (!values || !n) return 18;
    if (channel >= Channels || !Samples || Points == 0) return kMissingData;
    return nuv64::guardStatus([&] {
        *values = scaledCopy(Channel(channel), Points, factor).release();
        *n = Points;
        return nuv64::kSuccess;
    });
}

// Two neighbouring channels lie in memory as a signal does: the real parts, then the imaginary
// ones.
std::uint32_t cKoData::NewSignalCopy(double** signal, std::uint64_t* n, std::uint64_t channel,
                                     double factor) const {
    if (signal) *signal = nullptr;
    if (n) *n = 0;
    if (!signal || !n) return 18;
    if (Channels < 2 || channel > Channels - 2 || !Samples || Points == 0) return kMissingData;
    return nuv64::guardStatus([&] {
        *signal = scaledCopy(Channel(channel), 2 * Points, factor).release();
        *n = Points;
        return nuv64::kSuccess;
    });
}

std::uint32_t cKoData::SetBlockAxis(const double* values, std::uint64_t n) {
    nuv64::Owned<double> copy;
    if (values && n != 0) {
        copy = nuv64::tryAllocate<double>(n);
        if (!copy) return nuv64::kAllocationFailure;
        std::copy_n(values, n, copy.get());
    }
    BlockAxisCount = copy ? n : 0;
    BlockAxis = std::move(copy);
    return nuv64::kSuccess;
}
