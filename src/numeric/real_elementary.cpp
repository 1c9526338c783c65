#include "nuv64/numeric/real_elementary.h"

double rAbs(double x) noexcept {
    return x < 0.0 ? -x : x;
}

double rMin1toU(uint64_t n) noexcept {
    return n % 2 == 0 ? 1.0 : -1.0;
}

double rMin1toI(int64_t n) noexcept {
    return rMin1toU(static_cast<uint64_t>(n));
}

double rByMin1toU(double x, uint64_t n) noexcept {
    return n % 2 == 0 ? x : -x;
}

double rByMin1toI(double x, int64_t n) noexcept {
    return rByMin1toU(x, static_cast<uint64_t>(n));
}
