#include "nuv64/numeric/series.h"

#include "core/guard.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

constexpr uint32_t kNoFunction = 26;
constexpr uint32_t kTooManyIterations = 39;
constexpr uint64_t kLeastMinimum = 3;

uint32_t sumTerms(double x, double& total, double (*term)(double, uint64_t, void*), void* context,
                  uint64_t maximum, uint64_t minimum) {
    // Starts that no three sums agree with by chance.
    double a = 0.0;
    double b = ___SqrtMaxReal;
    double c = -___Root3MaxReal;
    total = term(x, 0, context);
    for (uint64_t k = 1;; ++k) {
        if (k > maximum) return kTooManyIterations;
        if (k > minimum && rConvergenceTest3(total, &a, &b, &c, ___5EpsReal)) return 0;
        total += term(x, k, context);
    }
}

}  // namespace

bool rConvergenceTest3(double value, double* a, double* b, double* c, double tolerance) noexcept {
    if (!a || !b || !c) return false;
    const double limit = tolerance >= 0.0 ? rAbs(value * tolerance) : -tolerance;
    const auto agrees = [&](double earlier) { return rAbs(value - earlier) <= limit; };
    const bool passed = agrees(*c) && agrees(*b) && agrees(*a);
    *c = *b;
    *b = *a;
    *a = value;
    return passed;
}

uint32_t rSeriesTermFunc(double x, double* sum, double (*term)(double, uint64_t, void*),
                         void* context, uint64_t maximum, uint64_t minimum) noexcept {
    double unused;
    double& total = sum ? *sum : unused;
    total = 0.0;
    if (minimum < kLeastMinimum) minimum = kLeastMinimum;
    return nuv64::guardStatus(
        [&] { return term ? sumTerms(x, total, term, context, maximum, minimum) : kNoFunction; });
}
