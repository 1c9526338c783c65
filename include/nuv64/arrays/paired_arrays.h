/* Paired arrays: values collected under real keys, which count as equal within a tolerance.
 *
 * The record and both arrays belong to the caller's handle, a variable that holds the record's
 * address; RArrPairedDelete releases them. The record may be read; it is changed by the functions
 * here alone. */
#ifndef NUV64_ARRAYS_PAIRED_ARRAYS_H
#define NUV64_ARRAYS_PAIRED_ARRAYS_H

#include "nuv64/core/types.h"

typedef struct RArrPairedRec {
    uint64_t Count;    /* pairs held */
    double* First;     /* the accumulated values */
    double* Second;    /* their keys */
    uint64_t Capacity; /* pairs that the arrays have room for */
    double Tolerance;  /* keys nearer than this are the same; 0 and below: each pair is new */
} RArrPairedRec;

NUV64_BEGIN_DECLS

/* Makes an empty record in *handle, without a look at what was there. capacity 0 means 10.
 * Status: 18 null handle; 0x80001 when memory is short, with *handle null; 0. */
NUV64_API uint32_t NewRArrPairedArrays(RArrPairedRec** handle, double tolerance,
                                       uint64_t capacity) NUV64_NOEXCEPT;

/* Adds value to that of the first key nearer than the tolerance (Tolerance > |key - k|), or appends
 * the pair. The keys are searched one by one. When the arrays are full then, they are replaced by
 * new ones with room for 10 pairs more, and pointers to the old ones become invalid.
 * Status: 18 null handle or record; 0x80001 when memory is short: everything is released then and
 * *handle null; 0. */
NUV64_API uint32_t RArrPairedAddPair(double value, double key,
                                     RArrPairedRec** handle) NUV64_NOEXCEPT;

/* Tells the number of pairs and the arrays, which stay the record's. Any of the three may be null.
 * Status: 14 without a record: *first and *second are null then, *count is left alone; 0. */
NUV64_API uint32_t RArrPairedGetPointers(uint64_t* count, double** first, double** second,
                                         RArrPairedRec** handle) NUV64_NOEXCEPT;

/* Forgets all pairs and keeps the room. Status: 18 null handle or record; 0. */
NUV64_API uint32_t RArrPairedReset(RArrPairedRec** handle) NUV64_NOEXCEPT;

/* Releases the arrays and the record and sets *handle to null. A null handle or record is no fault.
 * Status: 0. */
NUV64_API uint32_t RArrPairedDelete(RArrPairedRec** handle) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
