#include "fits/decay_kernel.h"

#include <cstring>
#include <limits>

namespace nuv64 {

namespace {

// Two lanes at a time: the vector types of GCC and Clang, because the automatic vectoriser takes
// the selections below for branches.
typedef double Reals __attribute__((vector_size(16)));
typedef std::uint64_t Words __attribute__((vector_size(16)));
constexpr std::uint64_t kLanes = 2;

// exp(t) = 2^k * exp(r) with k the whole number nearest to t/ln 2, so that |r| <= 0.5*ln 2 (and a
// rounding error). ln 2 is split so that k*kLn2High is exact.
constexpr double kInverseLn2 = 0x1.71547652b82fep0;
constexpr double kLn2High = 0x1.62e42feep-1;
constexpr double kLn2Low = 0x1.a39ef35793c76p-33;
// Adding this leaves the nearest whole number in the low bits of the sum.
constexpr double kRounder = 0x1.8p52;
constexpr double kLowest = -708.0;
constexpr double kHighest = 709.78;

// exp(r): the Taylor series to degree 13, whose rest on the interval is below 5e-18. Terms are
// paired by powers of r^2, r^4, r^8 to shorten the chain of operations (Estrin's scheme).
inline Reals expReduced(Reals r) noexcept {
    const Reals r2 = r * r;
    const Reals r4 = r2 * r2;
    const Reals r8 = r4 * r4;
    const Reals c23 = 1.0 / 2.0 + r * (1.0 / 6.0);
    const Reals c45 = 1.0 / 24.0 + r * (1.0 / 120.0);
    const Reals c67 = 1.0 / 720.0 + r * (1.0 / 5040.0);
    const Reals c89 = 1.0 / 40320.0 + r * (1.0 / 362880.0);
    const Reals c1011 = 1.0 / 3628800.0 + r * (1.0 / 39916800.0);
    const Reals c1213 = 1.0 / 479001600.0 + r * (1.0 / 6227020800.0);
    const Reals high = (c1011 + r2 * c1213) * r8;
    const Reals tail = (c23 + r2 * c45) + ((c67 + r2 * c89) * r4 + high);
    return 1.0 + (r + r2 * tail);
}

inline Reals exponential(Reals t) noexcept {
    const Reals infinity = Reals{} + std::numeric_limits<double>::infinity();
    const Reals shifted = t * kInverseLn2 + kRounder;
    const Reals k = shifted - kRounder;
    const Reals r = (t - k * kLn2High) - k * kLn2Low;
    // The low bits of shifted hold k; within the limits the sum of exponents can't overflow.
    const Reals scaled = (Reals)((Words)expReduced(r) + ((Words)shifted << 52));
    const Reals bounded = t < kLowest ? Reals{} : t > kHighest ? infinity : scaled;
    return t == t ? bounded : t;
}

inline Reals load(const double* from, std::uint64_t lanes) noexcept {
    Reals values = {};
    std::memcpy(&values, from, lanes * sizeof(double));
    return values;
}

inline void addLanes(const double* x, double weight, double rate, double* model,
                     std::uint64_t lanes) noexcept {
    const Reals sum = load(model, lanes) + weight * exponential(-rate * load(x, lanes));
    std::memcpy(model, &sum, lanes * sizeof(double));
}

}  // namespace

void addDecay(std::uint64_t n, const double* x, double weight, double rate,
              double* model) noexcept {
    std::uint64_t i = 0;
    for (; i + kLanes <= n; i += kLanes) addLanes(x + i, weight, rate, model + i, kLanes);
    if (i < n) addLanes(x + i, weight, rate, model + i, n - i);
}

}  // namespace nuv64
