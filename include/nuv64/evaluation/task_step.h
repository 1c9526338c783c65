/* One step of a task script, and how a procedure reads its parameters. */
#ifndef NUV64_EVALUATION_TASK_STEP_H
#define NUV64_EVALUATION_TASK_STEP_H

#include "nuv64/core/types.h"

/* Bits of EvpRecord.Flags that the driver reads. The lowest of the three reference bits counts. */
#define EvpOverChildren 0x1u       /* run over the children of the target node */
#define EvpRefFirst 0x2u           /* pre-pass on the first child only */
#define EvpRefLast 0x4u            /* pre-pass on the last child only */
#define EvpRefStrongest 0x8u       /* pre-pass on the child of the largest power only */
#define EvpDataChanged 0x80000000u /* set by a procedure that changed a node */

/* A step. The script parser makes it and releases its texts; a host that builds one for command 95
 * owns its texts (blocks of the module's makers). Positions in ParameterList count from 0. */
struct EvpRecord {
    uint64_t Procedure;   /* procedure ID; new record: all ones */
    uint32_t Flags;       /* driver flags and procedure flags */
    uint64_t Mode;        /* 0 disables the step */
    uint64_t Level;       /* height of the nodes to run on: 0 blocks, 1 zones, 2 experiment */
    uint64_t Zone;        /* index of the only zone, all ones for all */
    uint64_t Block;       /* index of the only block, all ones for all */
    uint64_t OnEvaluated; /* not 0: run on the node's result node */
    char* Option;         /* groomed, may be null */
    char* ParameterList;  /* comma separated, groomed, may be null */
    uint64_t Callback1;   /* FIT mode 3: a MultiParamCallback */
    uint64_t Source2;     /* QARRAY mode 6: a source matrix */
    char* ReportText;     /* text for the host, appended by the procedure */
    uint64_t Point0;      /* work words of pre-pass and block pass from here on */
    uint64_t Point1;
    double Work0;
    double Work1;
    double Factor;
    uint64_t CoefficientCount;
    double* Coefficients;
    uint64_t Work2;
    uint64_t Work3;
    uint64_t Work4;
};

NUV64_BEGIN_DECLS

/* A new 8-bit copy of item i of the parameter list; null when the list has fewer items or memory is
 * short. The caller kills it. */
NUV64_API char* NewGetEvpParameterAsString(const EvpRecord* evp, uint64_t i) NUV64_NOEXCEPT;
/* Item i as an unsigned number, rounded; all ones when it is missing, empty or negative. A word
 * without digits reads as 0. */
NUV64_API uint64_t GetEvpParameterAsQword(const EvpRecord* evp, uint64_t i) NUV64_NOEXCEPT;
/* Item i as a signed number; 0x8000000000000000 when it is missing or empty. */
NUV64_API int64_t GetEvpParameterAsQlong(const EvpRecord* evp, uint64_t i) NUV64_NOEXCEPT;
/* Item i as a real; ___NAN when it is missing or empty. */
NUV64_API double GetEvpParameterAsReal(const EvpRecord* evp, uint64_t i) NUV64_NOEXCEPT;
/* Item i read as a pointer in the runtime's "%p" form (hexadecimal); null when it is missing. */
NUV64_API void* GetEvpParameterAsPointer(const EvpRecord* evp, uint64_t i) NUV64_NOEXCEPT;
/* Parameters 0 and 1 as a window over n points: unset means the first and the last point, values
 * beyond the end are clamped, a reversed window is swapped. Returns the points in the window; 0 for
 * n 0, with both outputs 0. */
NUV64_API uint64_t GetEvpIpointEpoint(const EvpRecord* evp, uint64_t* ipoint, uint64_t* epoint,
                                      uint64_t n) NUV64_NOEXCEPT;
/* Flags |= mask; the new value. Null evp gives 0, here and below. */
NUV64_API uint32_t SetEvpFlags(EvpRecord* evp, uint32_t mask) NUV64_NOEXCEPT;
/* Flags &= ~mask; the new value. */
NUV64_API uint32_t ClearEvpFlags(EvpRecord* evp, uint32_t mask) NUV64_NOEXCEPT;
/* Flags & mask. List items keep their flags word at the same offset and may be passed too. */
NUV64_API uint32_t TestEvpFlags(const EvpRecord* evp, uint32_t mask) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
