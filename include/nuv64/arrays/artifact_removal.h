/* A reserved name for the removal of artefacts from a real array. */
#ifndef NUV64_ARRAYS_ARTIFACT_REMOVAL_H
#define NUV64_ARRAYS_ARTIFACT_REMOVAL_H

#include "nuv64/core/types.h"

NUV64_BEGIN_DECLS

/* Stores ___NAN in *result. The two integers are not used, the parameters are tested and not read.
 * Status: 0 for a null result; 21 for null parameters, with the result left alone; 0. */
NUV64_API uint32_t RArrArtifactRemoval(double* result, int32_t a, int32_t b,
                                       const double* parameters) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
