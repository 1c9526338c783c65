#include "nuv64/arrays/laplace_decay.h"

#include "core/guard.h"
#include "nuv64/numeric/real_exponential.h"

using namespace nuv64;

uint32_t RArrLaplaceDecay(uint64_t n, double* out, const double* t, uint64_t m, const double* A,
                          const double* R, double offset) noexcept {
    if (n == 0) return kSuccess;
    if (!t || !A || !R) return 22;
    if (!out) return 18;
    for (uint64_t j = 0; j < n; ++j) {
        double sum = 0.0;
        for (uint64_t k = 0; k < m; ++k) sum += A[k] * rExp(-R[k] * t[j]);
        out[j] = sum + offset;
    }
    return kSuccess;
}
