#include "nuv64/numeric/plane_rotations.h"

#include <cmath>
#include <utility>

#include "numeric/givens_rotation.h"
#include "nuv64/core/special_reals.h"

void rGivensRotation(double* a, double* b, double* c, double* s) noexcept {
    if (!a || !b || !c || !s) return;
    const nuv64::GivensRotation rotation = nuv64::givensRotation(*a, *b);
    *c = rotation.c;
    *s = rotation.s;
    *a = rotation.length;
    *b = 0.0;
}

void rJacobiRotation(double* p, double* q, double* r, double* c, double* s) noexcept {
    if (!p || !q || !r || !c || !s) return;
    constexpr double kSqrtHalf = 0.7071067811865476;
    const double d = *p - *q;
    if (___5EpsReal * std::fabs(d) > *r) {
        const bool ordered = *p > *q;
        if (!ordered) std::swap(*p, *q);
        *c = ordered ? 1.0 : -1.0;
        *r = ordered ? 0.0 : -1.0;
        *s = 0.0;
        return;
    }
    double t = 0.0;
    if (___5EpsReal * *r > std::fabs(d)) {
        *c = kSqrtHalf;
        *s = (d < 0.0) != (*r < 0.0) ? -kSqrtHalf : kSqrtHalf;
    } else {
        const double u = 0.5 * d / *r;
        const double root = std::fabs(u) + std::sqrt(1.0 + u * u);
        t = (u < 0.0 ? -1.0 : 1.0) / root;
        *c = 1.0 / std::sqrt(1.0 + t * t);
        *s = *c * t;
    }
    *p -= t * *r;
    *q += t * *r;
    *r = 0.0;
}
