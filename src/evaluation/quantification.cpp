// Blocks to numbers: QUANTIFY for one block, QARRAY for all blocks of a zone at once. QARRAY is
// the step at which a zone of signals turns into a relaxation curve.
#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <vector>

#include "core/guard.h"
#include "data/data_object.h"
#include "evaluation/procedures.h"
#include "evaluation/status_words.h"
#include "evaluation/step.h"
#include "nuv64/arrays/grid.h"
#include "nuv64/arrays/real_array_means.h"
#include "nuv64/arrays/real_reductions.h"
#include "nuv64/arrays/signal_array.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/core/text_edit.h"

namespace nuv64 {
namespace {

enum QuantifyFlags : std::uint32_t {
    WriteBack = 32,       // the results replace the window's values
    RealOnly = 0x100,     // no imaginary result
    OfMagnitude = 0x200,  // before OfPower
    OfPower = 0x400,
    WholeReference = 0x800,  // the second result is of the whole of channel 1
};

constexpr std::uint64_t kLastToldMode = 5;  // of both procedures; 4 and 5 extrapolate to x = 0
constexpr std::uint64_t kFromChild = 7;     // QARRAY alone

struct Method {
    double (*reduce)(std::uint64_t n, const double* values);
    const char* windowReport;
};

constexpr Method kMethods[] = {
    {[](std::uint64_t n, const double* values) { return RArrMeanA(n, values); },
     " Average in [%llu, %llu]\n"},
    {[](std::uint64_t n, const double* values) { return RArrMax(n, values, nullptr); },
     " Maximum in [%llu, %llu]\n"},
    {[](std::uint64_t n, const double* values) { return RArrSum(n, values, 1); },
     " Integral in [%llu, %llu]\n"},
};

const char* partName(const EvpRecord& evp, const char* real) noexcept {
    if (evp.Flags & OfMagnitude) return "Magnitude";
    return evp.Flags & OfPower ? "Power" : real;
}

struct Quantity {
    double real = ___NAN;
    double imaginary = ___NAN;
    PointWindow window;
};

// Reduces block after block with one scratch signal for all.
class Reducer {
  public:
    Reducer(EvpRecord& evp, const Method& method) : evp_(evp), method_(method) {}

    Quantity operator()(cKoData& block) {
        Quantity quantity;
        quantity.window = windowOf(block.Points);
        const PointWindow& window = quantity.window;
        if (window.count == 0 || !block.Channel(1)) return quantity;
        const Parts parts = partsOf(block);
        quantity.real = method_.reduce(window.count, parts.first + window.first);
        if (evp_.Flags & WholeReference) {
            quantity.imaginary = method_.reduce(block.Points, parts.first);
        } else if (!(evp_.Flags & RealOnly) && parts.second) {
            quantity.imaginary = method_.reduce(window.count, parts.second + window.first);
        }
        if (evp_.Flags & WriteBack) writeBack(block, quantity);
        return quantity;
    }

  private:
    struct Parts {
        const double* first;
        const double* second;  // null for a block without an imaginary channel
    };

    // Blocks of a zone mostly have one size: their window is read once.
    const PointWindow& windowOf(std::uint64_t points) {
        if (points != points_) {
            window_ = pointWindow(evp_, points);
            points_ = points;
        }
        return window_;
    }

    Parts partsOf(const cKoData& block) {
        const double* real = block.Channel(1);
        const double* imaginary = block.Channel(2);
        if (!(evp_.Flags & (OfMagnitude | OfPower))) return {real, imaginary};
        const std::uint64_t n = block.Points;
        scratch_.assign(2 * n, 0.0);
        std::copy_n(real, imaginary ? 2 * n : n, scratch_.begin());
        const auto transform =
            evp_.Flags & OfMagnitude ? SArrIpReplaceRealByMagnitude : SArrIpReplaceRealByPower;
        transform(n, scratch_.data());
        return {scratch_.data(), imaginary ? scratch_.data() + n : nullptr};
    }

    // A part without a result keeps its values.
    void writeBack(cKoData& block, const Quantity& quantity) {
        const PointWindow& window = quantity.window;
        std::fill_n(block.Channel(1) + window.first, window.count, quantity.real);
        if (block.Channel(2) && (evp_.Flags & (WholeReference | RealOnly)) != RealOnly) {
            std::fill_n(block.Channel(2) + window.first, window.count, quantity.imaginary);
        }
        SetEvpFlags(&evp_, EvpDataChanged);
    }

    EvpRecord& evp_;
    const Method& method_;
    std::uint64_t points_ = 0;
    PointWindow window_;
    std::vector<double> scratch_;
};

// The block axis of a zone: the zone's own list of values where it has one for these blocks,
// otherwise the grid between two parameters. The curve always rises in x.
struct BlockAxis {
    std::uint64_t grid = 0;
    std::uint64_t count = 0;
    double first = ___NAN;
    double last = ___NAN;
    bool reversed = false;  // blocks are walked from last to first
    const double* list = nullptr;

    double value(std::uint64_t k) const noexcept {
        if (list) return list[reversed ? count - 1 - k : k];
        return RArrGridValue(k, grid, count, first, last);
    }
};

// Instruments write the grid words in either case. Any other word is type 0.
std::uint64_t gridOf(const cKoAsciPars& parameters) {
    std::array<char, 1024> name{};
    parameters.GetText("BGRD", name.data(), nullptr);
    StringGroomA(name.data(), 256);
    if (std::strcmp(name.data(), "LIN") == 0) return 1;
    return std::strcmp(name.data(), "LOG") == 0 ? 2 : 0;
}

BlockAxis blockAxis(cKoData& zone, std::uint64_t blocks) {
    BlockAxis axis;
    axis.count = blocks;
    if (const cKoData* owner = zone.ParameterOwner()) {
        axis.grid = gridOf(owner->Parameters);
        axis.first = owner->Parameters.GetReal("BINI");
        axis.last = owner->Parameters.GetReal("BEND");
    }
    if (zone.BlockAxis && zone.BlockAxisCount == blocks) {
        axis.list = zone.BlockAxis.get();
        axis.first = axis.list[0];
        axis.last = axis.list[blocks - 1];
    }
    axis.reversed = axis.first > axis.last;
    if (axis.reversed) std::swap(axis.first, axis.last);
    return axis;
}

// A matrix of at least three channels stays with all that it holds, as long as its points are the
// blocks; a smaller one keeps its channel 0.
std::uint32_t shapeCurve(cKoData& zone, const BlockAxis& axis) {
    if (zone.Samples && zone.Points == axis.count && zone.Channels >= 3) return kSuccess;
    std::vector<double> kept;
    if (zone.Samples && zone.Points == axis.count) {
        kept.assign(zone.Channel(0), zone.Channel(0) + axis.count);
    }
    const std::uint32_t status = zone.SetShape(axis.count, 3, axis.grid, axis.first, axis.last);
    if (status == kSuccess) std::copy(kept.begin(), kept.end(), zone.Channel(0));
    return status;
}

std::uint32_t curveFromBlocks(cKoData& zone, EvpRecord& evp, const Method& method) {
    const std::uint64_t blocks = zone.ChildCount();
    if (blocks < 2) return status::kIllegalData;
    if (pointWindow(evp, zone.FirstChild()->Points).count == 0) return kSuccess;
    const BlockAxis axis = blockAxis(zone, blocks);
    const std::uint32_t shaped = shapeCurve(zone, axis);
    if (shaped != kSuccess) return shaped;

    Reducer reduce(evp, method);
    PointWindow window;  // of the block at the end of the walk
    std::uint64_t block = 0;
    for (cKoData* node = zone.FirstChild(); node; node = node->Next(), ++block) {
        const std::uint64_t k = axis.reversed ? blocks - 1 - block : block;
        const Quantity quantity = reduce(*node);
        if (k == blocks - 1) window = quantity.window;
        zone.Channel(0)[k] = axis.value(k);
        zone.Channel(1)[k] = quantity.real;
        zone.Channel(2)[k] = quantity.imaginary;
    }
    SetEvpFlags(&evp, EvpDataChanged);
    if (!reportIsEmpty(evp)) return kSuccess;
    report(evp, " Channel: %s\n", partName(evp, "Real"));
    report(evp, method.windowReport, wide(window.first), wide(window.last));
    return kSuccess;
}

std::uint32_t curveFromChild(cKoData& zone, EvpRecord& evp) {
    const cKoData* child = zone.ChildAt(GetEvpParameterAsQword(&evp, 0));
    if (!child) return status::kIllegalParameters;
    const std::uint32_t status = zone.SetShape(child->Points, child->Channels, child->AxisGrid,
                                               child->AxisFirst, child->AxisLast);
    if (status != kSuccess) return status;
    if (child->Samples && zone.Samples) {
        std::copy_n(child->Samples.get(), child->Points * child->Channels, zone.Samples.get());
    }
    SetEvpFlags(&evp, EvpDataChanged);
    return kSuccess;
}

}  // namespace

std::uint32_t runQuantify(cKoData& node, EvpRecord& evp, NuvCommandBlock*) {
    if (evp.Mode == 0) return kSuccess;
    if (evp.Mode > kLastToldMode) return status::kIllegalMode;
    if (evp.Mode > std::size(kMethods)) return status::kNotYetImplemented;
    if (pointWindow(evp, node.Points).count == 0) return kSuccess;
    if (!node.Channel(1)) return status::kMissingInput;
    const Method& method = kMethods[evp.Mode - 1];
    const Quantity quantity = Reducer(evp, method)(node);
    evp.Work2 = std::bit_cast<std::uint64_t>(quantity.real);
    if (!reportIsEmpty(evp)) return kSuccess;
    report(evp, method.windowReport, wide(quantity.window.first), wide(quantity.window.last));
    report(evp, " %s: %g\n", partName(evp, "Real"), quantity.real);
    if (!(evp.Flags & RealOnly)) report(evp, " Imag: %g\n", quantity.imaginary);
    return kSuccess;
}

std::uint32_t runQArray(cKoData& zone, EvpRecord& evp, NuvCommandBlock*) {
    if (evp.Mode == 0) return kSuccess;
    if (evp.Mode > kFromChild) return status::kIllegalMode;
    if (evp.Mode == kFromChild) return curveFromChild(zone, evp);
    if (evp.Mode > std::size(kMethods)) return status::kNotYetImplemented;
    return curveFromBlocks(zone, evp, kMethods[evp.Mode - 1]);
}

}  // namespace nuv64
