// Tables of smoothing, splines and quadrature by independent libraries.
#pragma once

#include <cstdint>
#include <vector>

namespace samples {

struct SplineCase {
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> targets;
    std::vector<double> values;
};

struct GaussianCase {
    std::vector<double> input;
    double width;
    std::vector<double> smoothed;
};

struct PolynomialFilterCase {
    std::vector<double> input;
    std::uint64_t derivative;
    std::uint64_t points;
    std::uint64_t order;
    std::vector<double> repeatedEdges;
    std::vector<double> fittedEnds;
};

struct QuadratureCase {
    std::uint64_t n;
    std::vector<double> nodes;
    std::vector<double> weights;
};

#include "arrays/sampled_curves_reference.inc"

}  // namespace samples
