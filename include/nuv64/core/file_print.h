/* Printing texts and numbers into a file at its pointer.
 *
 * The wide forms write 16-bit units, the A forms bytes; no terminator is written. Null texts are
 * passed over. The first text that can't be written ends the call with false. FilePrint and the
 * number printers have nothing to do without a file: an invalid handle (0, -1) gives true there. */
#ifndef NUV64_CORE_FILE_PRINT_H
#define NUV64_CORE_FILE_PRINT_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Writes the texts one after the other. */
NUV64_API bool FilePrint(int64_t handle, const char16_t* a, const char16_t* b, const char16_t* c,
                         const char16_t* d) NUV64_NOEXCEPT;
NUV64_API bool FilePrintA(int64_t handle, const char* a, const char* b, const char* c,
                          const char* d) NUV64_NOEXCEPT;

/* Writes prefix, value in the given radix as DwordToBuffer does, and suffix. The number stands at
 * the right of width characters, behind blanks; a longer one is not cut. Width 0 is no width. */
NUV64_API bool FilePrintDword(int64_t handle, const char16_t* prefix, uint32_t value,
                              const char16_t* suffix, uint32_t width,
                              uint32_t radix) NUV64_NOEXCEPT;
NUV64_API bool FilePrintDwordA(int64_t handle, const char* prefix, uint32_t value,
                               const char* suffix, uint32_t width, uint32_t radix) NUV64_NOEXCEPT;

/* The same for a signed value, by LongToBuffer. width has no effect here, and never had: columns of
 * signed numbers are not lined up. */
NUV64_API bool FilePrintLong(int64_t handle, const char16_t* prefix, int32_t value,
                             const char16_t* suffix, uint32_t width, uint32_t radix) NUV64_NOEXCEPT;
NUV64_API bool FilePrintLongA(int64_t handle, const char* prefix, int32_t value, const char* suffix,
                              uint32_t width, uint32_t radix) NUV64_NOEXCEPT;

/* Writes prefix, value as RealToBuffer does with digits and flags, its radix, and suffix. False
 * also when memory is short. */
NUV64_API bool FilePrintReal(int64_t handle, const char16_t* prefix, double value,
                             const char16_t* suffix, uint32_t digits,
                             uint32_t flags) NUV64_NOEXCEPT;
NUV64_API bool FilePrintRealA(int64_t handle, const char* prefix, double value, const char* suffix,
                              uint32_t digits, uint32_t flags) NUV64_NOEXCEPT;

/* Writes a text made by the module's formatter (NewSprintf). False for an invalid handle, and when
 * memory is short. */
NUV64_API bool FilePrintf(int64_t handle, const char16_t* format, ...) NUV64_NOEXCEPT;
NUV64_API bool FilePrintfA(int64_t handle, const char* format, ...) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
