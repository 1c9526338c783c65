#include "nuv64/numeric/real_rounding.h"

#include <cmath>
#include <type_traits>

#include "core/real_rounding.h"

namespace {

constexpr int64_t kInvalid = INT64_MIN;

// x rounded to nearest and limited to [low, high]; the real limits are those of the type.
template <class Integer>
bool toInterval(double x, Integer* out, Integer low, Integer high, double typeLow, double typeEnd) {
    const double rounded = nuv64::roundHalfAway(x);
    Integer value = low;
    bool inside = false;
    if (rounded >= typeEnd) {
        value = high;
    } else if (rounded >= typeLow && !(std::is_unsigned_v<Integer> && x < 0)) {
        value = static_cast<Integer>(rounded);
        inside = value >= low && value <= high;
        if (!inside) value = value < low ? low : high;
    }
    if (out) *out = value;
    return inside;
}

// whole: x rounded. The remainder goes to *fraction; one of a whole unit is put back on the
// integer.
int64_t split(double x, double whole, double* fraction) {
    int64_t result = nuv64::truncateToQlong(whole);
    double rest = result == kInvalid ? 0.0 : x - whole;
    if (std::fabs(rest) >= 1.0) {
        result += rest > 0 ? 1 : -1;
        rest = 0.0;
    }
    if (fraction) *fraction = rest;
    return result;
}

}  // namespace

double rFloor(double x) noexcept {
    return std::floor(x);
}

double rCeil(double x) noexcept {
    return std::ceil(x);
}

double rRound(double x) noexcept {
    return nuv64::roundHalfAway(x);
}

double rTrunc(double x) noexcept {
    return std::trunc(x);
}

double rModf(double x, double* whole) noexcept {
    double rest;
    const double fraction = std::modf(x, &rest);
    if (whole) *whole = std::copysign(rest, x);
    return std::copysign(fraction, x);  // the runtime of Windows gives every zero the sign +
}

double rFmod(double x, double y) noexcept {
    return std::fmod(x, y);
}

int32_t iRealRoundToLong(double x, uint32_t* flags) noexcept {
    return nuv64::realRoundToLong(x, flags);
}

int64_t iRealRoundToQlong(double x, uint32_t* flags) noexcept {
    return nuv64::realRoundToQlong(x, flags);
}

uint32_t uRealRoundToDword(double x, uint32_t* flags) noexcept {
    return nuv64::realRoundToDword(x, flags);
}

uint64_t uRealRoundToQword(double x, uint32_t* flags) noexcept {
    return nuv64::realRoundToQword(x, flags);
}

bool iRealToLongInterval(double x, int32_t* out, int32_t low, int32_t high) noexcept {
    return toInterval(x, out, low, high, -2147483648.0, 2147483648.0);
}

bool iRealToQlongInterval(double x, int64_t* out, int64_t low, int64_t high) noexcept {
    return toInterval(x, out, low, high, -nuv64::kTwoTo63, nuv64::kTwoTo63);
}

bool uRealToDwordInterval(double x, uint32_t* out, uint32_t low, uint32_t high) noexcept {
    return toInterval(x, out, low, high, 0.0, 4294967296.0);
}

bool uRealToQwordInterval(double x, uint64_t* out, uint64_t low, uint64_t high) noexcept {
    return toInterval(x, out, low, high, 0.0, nuv64::kTwoTo64);
}

int64_t iFloor(double x) noexcept {
    return nuv64::truncateToQlong(std::floor(x));
}

int64_t iCeil(double x) noexcept {
    return nuv64::truncateToQlong(std::ceil(x));
}

int64_t iRound(double x) noexcept {
    return nuv64::truncateToQlong(nuv64::roundHalfAway(x));
}

int64_t iSymFloor(double x) noexcept {
    return nuv64::truncateToQlong(x);
}

int64_t iSymRound(double x) noexcept {
    return iRound(x);
}

int64_t iFloorFrac(double x, double* fraction) noexcept {
    return split(x, std::floor(x), fraction);
}

int64_t iCeilFrac(double x, double* fraction) noexcept {
    return split(x, std::ceil(x), fraction);
}

int64_t iRoundFrac(double x, double* fraction) noexcept {
    return split(x, nuv64::roundHalfAway(x), fraction);
}

int64_t iSymFloorFrac(double x, double* fraction) noexcept {
    return split(x, std::trunc(x), fraction);
}

int64_t iSymRoundFrac(double x, double* fraction) noexcept {
    return iRoundFrac(x, fraction);
}
