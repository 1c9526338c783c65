#include "nuv64/arrays/artifact_removal.h"

#include "core/guard.h"
#include "nuv64/core/special_reals.h"

uint32_t RArrArtifactRemoval(double* result, int32_t, int32_t, const double* parameters) noexcept {
    if (!result) return nuv64::kSuccess;
    if (!parameters) return 21;
    *result = ___NAN;
    return nuv64::kSuccess;
}
