// Reference matrices and measures of matrices for the tests.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "arrays/array_samples.h"

namespace samples {

using Values = std::vector<double>;

inline constexpr double kEps = 0x1p-52;

struct InverseCase {
    uint64_t n;
    uint64_t m;
    Values matrix;
    Values rightSide;
    Values inverse;
    Values solution;
};

struct SingularCase {
    uint64_t rows;
    uint64_t cols;
    Values matrix;
    Values singular;
};

#include "arrays/real_matrix_reference.inc"

inline double largest(const Values& values) {
    double result = 0.0;
    for (double x : values) result = std::max(result, std::fabs(x));
    return result;
}

inline double distance(const Values& a, const Values& b) {
    double result = 0.0;
    for (size_t i = 0; i < a.size(); ++i) result = std::max(result, std::fabs(a[i] - b[i]));
    return result;
}

// The largest deviation of transpose(Q)*Q from the identity.
inline double orthogonality(const Values& q, uint64_t rows, uint64_t cols) {
    double worst = 0.0;
    for (uint64_t i = 0; i < cols; ++i) {
        for (uint64_t j = 0; j < cols; ++j) {
            double sum = i == j ? -1.0 : 0.0;
            for (uint64_t r = 0; r < rows; ++r) sum += q[r + i * rows] * q[r + j * rows];
            worst = std::max(worst, std::fabs(sum));
        }
    }
    return worst;
}

}  // namespace samples
