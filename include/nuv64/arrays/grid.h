/* Grids: how the positions of an array follow from a first and a last value.
 *
 * With n points and i counted from 0, the types are
 *   1 linear       first + i*(last - first)/(n - 1)
 *   2 logarithmic  exp(ln first + i*(ln last - ln first)/(n - 1))
 *   3 inverse      1/(1/first + i*(1/last - 1/first)/(n - 1))
 *   4 square       sqrt(first^2 + i*(last^2 - first^2)/(n - 1))
 * and the arithmetic takes every other type for linear. A grid of one point is `first` for every
 * type. first may stand above last. Logarithm, exponential and root are those of the C runtime, so
 * that limits outside their domain (a logarithmic grid through 0, say) give what they give:
 * infinities and not-a-numbers, without a report. Units are the caller's. */
#ifndef NUV64_ARRAYS_GRID_H
#define NUV64_ARRAYS_GRID_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Grid types. 0 is no type: what the name look-up gives for an unknown name. */
enum {
    NUV64_GRID_NONE = 0,
    NUV64_GRID_LINEAR = 1,
    NUV64_GRID_LOGARITHMIC = 2,
    NUV64_GRID_INVERSE = 3,
    NUV64_GRID_SQUARE = 4
};

/* Writes all n points to out. A linear grid is filled by adding the step again and again, so that
 * its last point carries the rounding of n - 1 additions; the other types compute each point from
 * its index, within a few units in the last place.
 * Status: 0 for n = 0 whatever the pointer; 18 null out; 0. */
NUV64_API uint32_t RArrGridFill(uint64_t type, double first, double last, uint64_t n,
                                double* out) NUV64_NOEXCEPT;

/* A new array with the n points, owned by the caller (RArrKill). Null with *err 0 for n = 0, null
 * with *err 0x80001 when memory is short. err may be null. */
NUV64_API double* NewRArrGrid(uint32_t* err, uint64_t type, double first, double last,
                              uint64_t n) NUV64_NOEXCEPT;

/* Point number index, always computed from the index; ___NAN for index >= n. */
NUV64_API double RArrGridValue(uint64_t index, uint64_t type, uint64_t n, double first,
                               double last) NUV64_NOEXCEPT;

/* The index of the point nearest to x on the grid's own scale: the position that the inverse
 * formula gives, rounded by uRealRoundToQword and limited to n - 1. A position before the first
 * point, or one that is not a number, gives 0. All ones when rIsNAN holds for x (an infinity
 * counts), when first equals last, and for n below 2. */
NUV64_API uint64_t RArrGridIndex(double x, uint64_t type, uint64_t n, double first,
                                 double last) NUV64_NOEXCEPT;

/* The name of a type: "Lin", "Log", "Inverse", "Square" for 1 to 4, null for any other. Static
 * text, not to be released. */
NUV64_API const char* RArrGridNameFromTypeA(uint64_t type) NUV64_NOEXCEPT;

/* The type whose name the text starts with; case matters. The names, in the order tried: "Lin",
 * "LIN", "lin", "Regular" (1), "Log", "log", "LOG" (2), "Inverse" (3), "Square" (4). 0 when none
 * fits and for a null name. */
NUV64_API uint64_t RArrGridTypeFromNameA(const char* name) NUV64_NOEXCEPT;

/* Tells whether an array is a linear (1) or a logarithmic (2) grid, 0 for neither; inverse and
 * square grids are not recognised. Linear: every difference of neighbours, divided by the first one
 * d, is within tolerance of 1; logarithmic: the same for quotients of neighbours. d = 0 gives 0 at
 * once, and so does a first element of 0 that is not on a linear grid. Below three points, and for
 * a null array, 0. A not-a-number among the elements makes it no grid. */
NUV64_API int64_t RArrTestGridType(const double* array, uint64_t n,
                                   double tolerance) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
