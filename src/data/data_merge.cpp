// The result node of a zone: discrete components first, then a sampled distribution.
#include <algorithm>
#include <vector>

#include "core/guard.h"
#include "data/data_object.h"

namespace {

constexpr std::uint32_t kMissingArguments = 22;

// A point count kept in a result: 0 for not-a-number and below, at most limit.
std::uint64_t countFrom(double result, std::uint64_t limit) {
    if (!(result >= 1.0)) return 0;
    return result < static_cast<double>(limit) ? static_cast<std::uint64_t>(result) : limit;
}

}  // namespace

// Makes the two-channel curve anew from a head and a tail, either of which may lie in the old one.
std::uint32_t cKoData::mergeEvaluated(const double* const head[2], std::uint64_t headCount,
                                      const double* const tail[2], std::uint64_t tailCount) {
    return nuv64::guardStatus([&] {
        const std::uint64_t points = headCount + tailCount;
        std::vector<double> rows[2];
        for (int row = 0; row < 2; ++row) {
            rows[row].reserve(points);
            rows[row].insert(rows[row].end(), head[row], head[row] + headCount);
            rows[row].insert(rows[row].end(), tail[row], tail[row] + tailCount);
        }
        const auto [low, high] = std::minmax_element(rows[0].begin(), rows[0].end());
        if (!Evaluated) Evaluated = new cKoData;
        const std::uint32_t status = Evaluated->SetShape(points, 2, 0, *low, *high);
        if (status != nuv64::kSuccess) return status;
        for (std::uint64_t row = 0; row < 2; ++row) {
            std::copy(rows[row].begin(), rows[row].end(), Evaluated->Channel(row));
        }
        return nuv64::kSuccess;
    });
}

std::uint32_t cKoData::MergeEvaluatedFront(const double* x, const double* y, std::uint64_t n) {
    if (!x || !y || n == 0) return kMissingArguments;
    const double* old[2] = {nullptr, nullptr};
    const double* added[2] = {x, y};
    std::uint64_t keep = 0;
    if (Evaluated && Evaluated->Channels >= 2) {
        keep = countFrom(Results[0], Evaluated->Points);
        old[0] = Evaluated->Channel(0);
        old[1] = Evaluated->Channel(1);
    }
    return mergeEvaluated(old, keep, added, n);
}

std::uint32_t cKoData::MergeEvaluatedBack(const double* x, const double* y, std::uint64_t n) {
    if (!x || !y || n == 0) return kMissingArguments;
    const double* old[2] = {nullptr, nullptr};
    const double* added[2] = {x, y};
    std::uint64_t rest = 0;
    if (Evaluated && Evaluated->Channels >= 2) {
        const std::uint64_t keep = countFrom(Evaluated->Results[0], Evaluated->Points);
        rest = Evaluated->Points - keep;
        old[0] = Evaluated->Channel(0) + keep;
        old[1] = Evaluated->Channel(1) + keep;
    }
    const std::uint32_t status = mergeEvaluated(added, n, old, rest);
    if (status == nuv64::kSuccess) Evaluated->Results[0] = static_cast<double>(n);
    return status;
}
