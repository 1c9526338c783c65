#include "nuv64/arrays/grid.h"

#include <cmath>

#include "core/guard.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/core/text_search.h"
#include "nuv64/numeric/real_rounding.h"
#include "nuv64/numeric/real_special.h"

using namespace nuv64;

namespace {

struct GridName {
    uint64_t type;
    const char* name;
};

constexpr GridName kGridNames[] = {
    {NUV64_GRID_LINEAR, "Lin"},      {NUV64_GRID_LINEAR, "LIN"},
    {NUV64_GRID_LINEAR, "lin"},      {NUV64_GRID_LINEAR, "Regular"},
    {NUV64_GRID_LOGARITHMIC, "Log"}, {NUV64_GRID_LOGARITHMIC, "log"},
    {NUV64_GRID_LOGARITHMIC, "LOG"}, {NUV64_GRID_INVERSE, "Inverse"},
    {NUV64_GRID_SQUARE, "Square"},
};

// A grid is equidistant on its own scale: forward goes to the scale, backward from it.
struct Scale {
    double (*forward)(double x);
    double (*backward)(double s);
};

double same(double x) noexcept {
    return x;
}

double inverse(double x) noexcept {
    return 1.0 / x;
}

double square(double x) noexcept {
    return x * x;
}

double logarithm(double x) noexcept {
    return std::log(x);
}

double exponential(double x) noexcept {
    return std::exp(x);
}

double root(double x) noexcept {
    return std::sqrt(x);
}

Scale scaleOf(uint64_t type) noexcept {
    switch (type) {
        case NUV64_GRID_LOGARITHMIC:
            return {logarithm, exponential};
        case NUV64_GRID_INVERSE:
            return {inverse, inverse};
        case NUV64_GRID_SQUARE:
            return {square, root};
        default:
            return {same, same};
    }
}

void fillLinear(double first, double last, uint64_t n, double* out) noexcept {
    const double step = (last - first) / static_cast<double>(n - 1);
    out[0] = first;
    for (uint64_t i = 1; i < n; ++i) out[i] = out[i - 1] + step;
}

void fillScaled(Scale scale, double first, double last, uint64_t n, double* out) noexcept {
    const double start = scale.forward(first);
    const double range = scale.forward(last) - start;
    const double steps = static_cast<double>(n - 1);
    for (uint64_t i = 0; i < n; ++i) {
        out[i] = scale.backward(start + static_cast<double>(i) * range / steps);
    }
}

// Every neighbour relation of the array, relative to the first one, is 1 within tolerance.
template <class Relation>
bool isUniform(const double* array, uint64_t n, double unit, double tolerance,
               Relation relation) noexcept {
    for (uint64_t i = 1; i < n; ++i) {
        if (!(std::fabs(relation(array[i], array[i - 1]) / unit - 1.0) <= tolerance)) return false;
    }
    return true;
}

}  // namespace

uint32_t RArrGridFill(uint64_t type, double first, double last, uint64_t n, double* out) noexcept {
    if (n == 0) return kSuccess;
    if (!out) return 18;
    if (n == 1) {
        out[0] = first;
    } else if (type < NUV64_GRID_LOGARITHMIC || type > NUV64_GRID_SQUARE) {
        fillLinear(first, last, n, out);
    } else {
        fillScaled(scaleOf(type), first, last, n, out);
    }
    return kSuccess;
}

double* NewRArrGrid(uint32_t* err, uint64_t type, double first, double last, uint64_t n) noexcept {
    double* const grid = RArrNew(err, n);
    if (grid) RArrGridFill(type, first, last, n, grid);
    return grid;
}

double RArrGridValue(uint64_t index, uint64_t type, uint64_t n, double first,
                     double last) noexcept {
    if (index >= n) return ___NAN;
    if (n == 1) return first;
    const Scale scale = scaleOf(type);
    const double start = scale.forward(first);
    const double range = scale.forward(last) - start;
    return scale.backward(start + static_cast<double>(index) * range / static_cast<double>(n - 1));
}

uint64_t RArrGridIndex(double x, uint64_t type, uint64_t n, double first, double last) noexcept {
    if (rIsNAN(x) || first == last || n < 2) return UINT64_MAX;
    const Scale scale = scaleOf(type);
    const double start = scale.forward(first);
    const double range = scale.forward(last) - start;
    const double position = (scale.forward(x) - start) * static_cast<double>(n - 1) / range;
    const uint64_t index = uRealRoundToQword(position, nullptr);
    return index < n ? index : n - 1;
}

const char* RArrGridNameFromTypeA(uint64_t type) noexcept {
    for (const GridName& row : kGridNames) {
        if (row.type == type) return row.name;
    }
    return nullptr;
}

uint64_t RArrGridTypeFromNameA(const char* name) noexcept {
    for (const GridName& row : kGridNames) {
        if (StringStartsWithA(name, row.name, 0)) return row.type;
    }
    return NUV64_GRID_NONE;
}

int64_t RArrTestGridType(const double* array, uint64_t n, double tolerance) noexcept {
    if (n < 3 || !array) return NUV64_GRID_NONE;
    const double difference = array[1] - array[0];
    if (difference == 0.0) return NUV64_GRID_NONE;
    if (isUniform(array, n, difference, tolerance, [](double x, double y) { return x - y; })) {
        return NUV64_GRID_LINEAR;
    }
    if (array[0] == 0.0) return NUV64_GRID_NONE;
    const double ratio = array[1] / array[0];
    if (isUniform(array, n, ratio, tolerance, [](double x, double y) { return x / y; })) {
        return NUV64_GRID_LOGARITHMIC;
    }
    return NUV64_GRID_NONE;
}
