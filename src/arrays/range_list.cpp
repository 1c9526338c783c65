#include "nuv64/arrays/range_list.h"

#include <algorithm>

#include "core/guard.h"
#include "core/owned.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/core/memory.h"

using namespace nuv64;

namespace {

struct Range {
    double low;
    double high;
};

Range rangeAt(const double* array, uint64_t i) noexcept {
    return {array[2 * i], array[2 * i + 1]};
}

bool isRange(Range range) noexcept {
    return range.high > range.low;
}

// Appends ranges to a new list that has room for all of them and the end.
class RangeWriter {
  public:
    explicit RangeWriter(uint64_t ranges) : list_(allocate<double>(2 * (ranges + 1) + 2)) {}
    void add(Range range) noexcept {
        list_[place_++] = range.low;
        list_[place_++] = range.high;
    }
    double* finish() noexcept {
        add({0.0, 0.0});
        return list_.release();
    }

  private:
    Owned<double> list_;
    uint64_t place_ = 0;
};

double* newListWith(const double* old, uint64_t count, Range added) {
    bool toBePlaced = isRange(added);
    RangeWriter writer(count + (toBePlaced ? 1 : 0));
    for (uint64_t i = 0; i < count; ++i) {
        const Range range = rangeAt(old, i);
        if (toBePlaced && range.low > added.high) {
            writer.add(added);
            toBePlaced = false;
        } else if (toBePlaced && range.high >= added.low) {
            added.low = std::min(added.low, range.low);
            added.high = std::max(added.high, range.high);
            continue;
        }
        writer.add(range);
    }
    if (toBePlaced) writer.add(added);
    return writer.finish();
}

}  // namespace

double* NewRArrRanges(uint32_t* err) noexcept {
    return RArrNew0(err, 2);
}

uint64_t RArrRangesCount(const double* array) noexcept {
    uint64_t count = 0;
    while (array && isRange(rangeAt(array, count))) ++count;
    return count;
}

bool RArrRangesPointIsIn(double x, const double* array) noexcept {
    return RArrRangesIntervalIsNested(x, x, array, nullptr);
}

bool RArrRangesIntervalIsNested(double a, double b, const double* array, uint32_t* index) noexcept {
    const uint64_t count = RArrRangesCount(array);
    for (uint64_t i = 0; i < count; ++i) {
        const Range range = rangeAt(array, i);
        if (range.low <= a && a <= range.high && range.low <= b && b <= range.high) {
            if (index) *index = static_cast<uint32_t>(2 * i);
            return true;
        }
    }
    return false;
}

uint32_t RArrRangesAddRange(double** list, double low, double high) noexcept {
    if (!list) return 18;
    return guardStatus([&] {
        const uint64_t count = RArrRangesCount(*list);
        const bool staysEmpty = count == 0 && !isRange({low, high});
        double* const grown = staysEmpty ? nullptr : newListWith(*list, count, {low, high});
        RArrKill(list);
        *list = grown;
        return kSuccess;
    });
}
