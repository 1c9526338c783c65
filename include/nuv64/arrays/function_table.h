/* Tables of a function, made by a dialogue on the console. */
#ifndef NUV64_ARRAYS_FUNCTION_TABLE_H
#define NUV64_ARRAYS_FUNCTION_TABLE_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Tabulates a function on a grid that the user describes.
 *
 * The console is cleared and heading (may be null) printed; the grid is asked for by CinRArrGrid
 * and where the table shall go by CinOutputDestination; a file is chosen in the dialog of
 * OsOpenNewFile. Each point of the grid makes a line " x<tab>f(x)" with 15 significant digits and
 * CR LF at its end, 8-bit text in the file for both widths; the console has a line that names the
 * columns above it, and a row of dots closes the table there. The file ends up flushed and closed.
 *
 * Status 0; 20 for a null function; 15 and others of CinRArrGrid, and 15 for a parameter that is no
 * number; 1 when no file was chosen; 48 when the file could not be written to its end; 47 when the
 * function throws; 0x80001. */
NUV64_API uint32_t ConTabulateRFunctionR(double (*function)(double x),
                                         const char16_t* heading) NUV64_NOEXCEPT;
NUV64_API uint32_t ConTabulateRFunctionRA(double (*function)(double x),
                                          const char* heading) NUV64_NOEXCEPT;

/* The same for a function with a parameter behind x, the same for all points, which is asked for
 * before the grid: a real for RR and RD, an unsigned 64-bit integer for RQ. */
NUV64_API uint32_t ConTabulateRFunctionRR(double (*function)(double x, double r),
                                          const char16_t* heading) NUV64_NOEXCEPT;
NUV64_API uint32_t ConTabulateRFunctionRRA(double (*function)(double x, double r),
                                           const char* heading) NUV64_NOEXCEPT;
NUV64_API uint32_t ConTabulateRFunctionRD(double (*function)(double x, double d),
                                          const char16_t* heading) NUV64_NOEXCEPT;
NUV64_API uint32_t ConTabulateRFunctionRDA(double (*function)(double x, double d),
                                           const char* heading) NUV64_NOEXCEPT;
NUV64_API uint32_t ConTabulateRFunctionRQ(double (*function)(double x, uint64_t q),
                                          const char16_t* heading) NUV64_NOEXCEPT;
NUV64_API uint32_t ConTabulateRFunctionRQA(double (*function)(double x, uint64_t q),
                                           const char* heading) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
