/* Operations on real arrays by number, for callers that hold the choice in their data.
 *
 *    1 RArrCopy                        2 RArrFill of the output with the argument
 *    3 RArrAddConst                    4 RArrMulConst
 *    5 RArrAbs                         6 RArrInvertSign
 *    7 RArrSquare                      8 RArrSignedSquare
 *    9 RArrRunningSum                 10 to 15 RArrClip, modes 0 to 5, with the argument as level
 *   16 RArrReverse                    17 RArrZeroUpperHalf
 *   18 RArrSwapHalfs                  19 RArrRotate
 *   20 RArrShiftZ                     21 RArrShiftR
 *   22 RArrSelfDiff                   23 RArrAdd2: output += argument * input
 *   24 RArrMul2: output *= input      39 RArrHeapSortCopy, ascending
 *   40 RArrGaussSmooth, the argument  41 RArrAddNoise
 *      as width
 *   42 RArrAdd2: output -= argument   43 RArrDiv2: output /= input
 *      * input
 *
 * For 19 to 22 the argument is rounded to a whole number between -2147483647 and 2147483647. */
#ifndef NUV64_ARRAYS_ARRAY_EVAL_H
#define NUV64_ARRAYS_ARRAY_EVAL_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Runs the operation on n elements. input and output may be the same array where the operation's
 * own function allows it. Status: 9 for an operation that is not in the table, before anything
 * else; otherwise what the function gives. */
NUV64_API uint32_t RArrEval(uint64_t n, const double* input, double* output, uint64_t operation,
                            double argument) NUV64_NOEXCEPT;

/* The same into a new array, which *output takes; what *output held is released. The new array
 * starts as zeros, which 22 to 24, 42 and 43 read or leave. input may be the array in *output.
 * Status: 18 null output; 0x80001; that of RArrEval. Unless it is 0, and for n = 0, *output ends
 * as null. */
NUV64_API uint32_t NewRArrEval(uint64_t n, const double* input, double** output, uint64_t operation,
                               double argument) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
