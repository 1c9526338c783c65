/* Status words and their texts.
 *
 * A status is an unsigned 32-bit word; 0 is success. The low 19 bits are the code, bit 19 (0x80000)
 * marks the allocation family, so that a failed allocation travels as 0x80001. A code is looked up
 * under the mask 0x7FFFF. A function that returns a pointer and can fail takes the address of a
 * status as its first argument and clears it itself. */
#ifndef NUV64_CORE_STATUS_H
#define NUV64_CORE_STATUS_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* The text of a status.
 *
 * Result: a constant text, empty for code 0 and "Unnamed error" for a code without a text; never
 * null, not to be released. */
NUV64_API const char* KoErrorStringA(uint32_t code) NUV64_NOEXCEPT;

/* The same text in 16-bit characters, in one static buffer of 256: the next call, on whatever
 * thread, overwrites it. Where threads matter use KoErrorStringA. */
NUV64_API const char16_t* KoErrorString(uint32_t code) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
