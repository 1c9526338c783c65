#include "nuv64/numeric/real_peaks.h"

#include <cmath>
#include <numbers>

#include "nuv64/core/special_reals.h"

double rLorentzianPeak0(double x) noexcept {
    const double half = 0.5 * x;
    return 1.0 / (1.0 + half * half);
}

double rLorentzianPeak(double x, double centre, double width, double height) noexcept {
    return height * rLorentzianPeak0((x - centre) / width);
}

double rLorentzianPeakArea(double height, double width) noexcept {
    return std::numbers::pi / 2.0 * width * height;
}

double rBiLorentzianPeak(double x, double a, double b, double c) noexcept {
    const double u = x < b ? (x - b) / (b - a) : (x - b) / (c - b);
    return 1.0 / (1.0 + u * u);
}

double rChebyshevWeight(double x) noexcept {
    if (std::fabs(x) > 1.0) return ___NAN;
    const double x2 = x * x;
    if (x2 < ___Root4EpsReal) return 1.0 + x2 * (0.5 + x2 * (0.375 + x2 * 0.3125));
    return 1.0 / std::sqrt(1.0 - x) / std::sqrt(1.0 + x);
}
