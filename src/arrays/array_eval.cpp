#include "nuv64/arrays/array_eval.h"

#include <iterator>

#include "core/guard.h"
#include "nuv64/arrays/array_powers.h"
#include "nuv64/arrays/kernel_smoothing.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_shifts.h"
#include "nuv64/arrays/running_sums.h"
#include "nuv64/arrays/sorting.h"
#include "nuv64/core/memory.h"
#include "nuv64/numeric/real_rounding.h"

using namespace nuv64;

namespace {

constexpr uint32_t kNotYetImplemented = 9;

using Operation = uint32_t (*)(uint64_t n, const double* in, double* out, double argument) noexcept;
using Plain = uint32_t (*)(uint64_t n, const double* in, double* out) noexcept;
using Shift = uint32_t (*)(uint64_t n, const double* in, double* out, int64_t k) noexcept;

template <Plain function>
uint32_t plain(uint64_t n, const double* in, double* out, double) noexcept {
    return function(n, in, out);
}

template <Shift function>
uint32_t shifted(uint64_t n, const double* in, double* out, double argument) noexcept {
    constexpr int32_t kLimit = 2147483647;
    int32_t places = 0;
    iRealToLongInterval(argument, &places, -kLimit, kLimit);
    return function(n, in, out, places);
}

template <uint64_t mode>
uint32_t clipped(uint64_t n, const double* in, double* out, double level) noexcept {
    return RArrClip(mode, n, in, out, level);
}

uint32_t filled(uint64_t n, const double*, double* out, double value) noexcept {
    return RArrFill(n, out, value);
}

uint32_t sorted(uint64_t n, const double* in, double* out, double) noexcept {
    return RArrHeapSortCopy(n, in, out, 1);
}

uint32_t subtracted(uint64_t n, const double* in, double* out, double factor) noexcept {
    return RArrAdd2(n, in, out, -factor);
}

constexpr Operation kOperations[] = {
    nullptr,
    plain<RArrCopy>,
    filled,
    RArrAddConst,
    RArrMulConst,
    plain<RArrAbs>,
    plain<RArrInvertSign>,
    plain<RArrSquare>,
    plain<RArrSignedSquare>,
    plain<RArrRunningSum>,
    clipped<0>,
    clipped<1>,
    clipped<2>,
    clipped<3>,
    clipped<4>,
    clipped<5>,
    plain<RArrReverse>,
    plain<RArrZeroUpperHalf>,
    plain<RArrSwapHalfs>,
    shifted<RArrRotate>,
    shifted<RArrShiftZ>,
    shifted<RArrShiftR>,
    shifted<RArrSelfDiff>,
    RArrAdd2,
    plain<RArrMul2>,
};

// The numbers between the two tables have no meaning.
constexpr uint64_t kFirstLateOperation = 39;
constexpr Operation kLateOperations[] = {sorted, RArrGaussSmooth, RArrAddNoise, subtracted,
                                         plain<RArrDiv2>};

Operation operationOf(uint64_t number) noexcept {
    if (number < std::size(kOperations)) return kOperations[number];
    if (number < kFirstLateOperation) return nullptr;
    const uint64_t late = number - kFirstLateOperation;
    return late < std::size(kLateOperations) ? kLateOperations[late] : nullptr;
}

}  // namespace

uint32_t RArrEval(uint64_t n, const double* input, double* output, uint64_t operation,
                  double argument) noexcept {
    const Operation function = operationOf(operation);
    return function ? function(n, input, output, argument) : kNotYetImplemented;
}

uint32_t NewRArrEval(uint64_t n, const double* input, double** output, uint64_t operation,
                     double argument) noexcept {
    if (!output) return 18;
    uint32_t status = kSuccess;
    double* made = RArrNew0(&status, n);
    if (status == kSuccess) status = RArrEval(n, input, made, operation, argument);
    if (status != kSuccess) RArrKill(&made);
    RArrKill(output);
    *output = made;
    return status;
}
