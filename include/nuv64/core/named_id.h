/* Tables of ids and names.
 *
 * A table is an array of rows ended by a row whose id is 0. Several rows may carry one id: the
 * first is its name, the others are synonyms. A table holds the character width that its accessors
 * expect. Nothing here allocates. */
#ifndef NUV64_CORE_NAMED_ID_H
#define NUV64_CORE_NAMED_ID_H

#include "nuv64/core/types.h"

typedef struct NamedId {
    uint32_t id; /* 0 ends the table */
    const char16_t* name;
} NamedId;

typedef struct NamedIdA {
    uint32_t id;
    const char* name;
} NamedIdA;

NUV64_BEGIN_DECLS

/* The id of the first row whose name text begins with; case and blanks count. Since a name that is
 * a prefix wins by its place in the table, "Logarithmic" is found by a row "Log", and longer names
 * must stand before their own beginnings. A row with a null or empty name is found by every text.
 *
 * table: may be null, which is an empty table. text: may be null, which nothing matches.
 * Result: the id; 0 when no row matches. Callers tell the two members of this pair apart by that
 * failure value. */
NUV64_API uint32_t NamedId_GetId(const NamedId* table, const char16_t* text) NUV64_NOEXCEPT;

/* The same for 8-bit text, but the result is 0xFFFFFFFF when no row matches: readers of task
 * scripts tell a missing name from the id 0 by it. */
NUV64_API uint32_t NamedId_GetIdA(const NamedIdA* table, const char* text) NUV64_NOEXCEPT;

/* The name of the first row with that id; it belongs to the table. Null for an id that is not in
 * the table, for id 0 and for a null table. */
NUV64_API const char16_t* NamedId_GetName(const NamedId* table, uint32_t id) NUV64_NOEXCEPT;

/* The same for a table of 8-bit names. */
NUV64_API const char* NamedId_GetNameA(const NamedIdA* table, uint32_t id) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
