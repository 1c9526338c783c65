/* Arrays and grids typed by the user. How prompts and lines work, and what the end of the input
 * does, stands in console_input.h: lines have at most 1023 characters, and 62 is the status at the
 * end of the input. Numbers are separated by white space; anything else, a comma too, ends the
 * numbers of a line. A complex number is written "(re, im)". The members of a pair differ in
 * character width alone. */
#ifndef NUV64_CORE_CONSOLE_ARRAYS_H
#define NUV64_CORE_CONSOLE_ARRAYS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Numbers from one line.
 *
 * count: 0 on entry takes as many as the line holds, at most capacity, and *count is set to their
 * number; otherwise exactly *count numbers are wanted, and what follows them is not looked at.
 * array: the caller's, with room for capacity elements.
 * Status 0; 22 for a null count or array, for *count and capacity 0, and when the line holds fewer
 * numbers than wanted (those are stored); 25 when capacity is below *count; 62; 0x80001. */
NUV64_API uint32_t CinRArr(const char16_t* prompt, uint64_t* count, double* array,
                           uint64_t capacity) NUV64_NOEXCEPT;
NUV64_API uint32_t CinRArrA(const char* prompt, uint64_t* count, double* array,
                            uint64_t capacity) NUV64_NOEXCEPT;
NUV64_API uint32_t CinCArr(const char16_t* prompt, uint64_t* count, Complex* array,
                           uint64_t capacity) NUV64_NOEXCEPT;
NUV64_API uint32_t CinCArrA(const char* prompt, uint64_t* count, Complex* array,
                            uint64_t capacity) NUV64_NOEXCEPT;

/* A matrix, typed row by row, on as many lines as it takes; the prompt stands before the first.
 * matrix: the caller's, rows*cols elements, stored by columns.
 * Status 0, also for a matrix without elements, for which nothing is asked; 22 for a null matrix
 * and for a line without a number; 17 for more elements than memory can have; 62; 0x80001. On
 * failure the elements typed until then are stored. */
NUV64_API uint32_t CinRMat(const char16_t* prompt, uint64_t rows, uint64_t cols,
                           double* matrix) NUV64_NOEXCEPT;
NUV64_API uint32_t CinRMatA(const char* prompt, uint64_t rows, uint64_t cols,
                            double* matrix) NUV64_NOEXCEPT;
NUV64_API uint32_t CinCMat(const char16_t* prompt, uint64_t rows, uint64_t cols,
                           Complex* matrix) NUV64_NOEXCEPT;
NUV64_API uint32_t CinCMatA(const char* prompt, uint64_t rows, uint64_t cols,
                            Complex* matrix) NUV64_NOEXCEPT;

/* Asks for a grid: its type (typed as 0 linear, 1 logarithmic, 2 inverse, 3 square; 4 counts as
 * linear), the lower limit (from 5.562684646268003e-309 up, for every type), the upper limit (from
 * the lower one up) and the number of points (from 1 up), each with the three further chances of
 * CinQwordMm and CinRealMm.
 * gridType receives the code that RArrGridFill takes, 1 to 4.
 * Status 0; 18 for a null pointer; 15 for an unknown type, a limit that is no number and a count
 * that is none: the four are left alone then. */
NUV64_API uint32_t CinRArrGrid(uint64_t* gridType, double* minimum, double* maximum,
                               uint64_t* points) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
