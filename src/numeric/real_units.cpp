#include "nuv64/numeric/real_units.h"

#include <numbers>

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;

}  // namespace

double rDegToRad(double x) noexcept {
    return x * 0.017453292519943295;
}

double rRadToDeg(double x) noexcept {
    return x * 57.29577951308232;
}

double rHzToRads(double x) noexcept {
    return kTwoPi * x;
}

double rRadsToHz(double x) noexcept {
    return x / kTwoPi;
}

double rPeriodToRads(double x) noexcept {
    return kTwoPi / x;
}

double rRadsToPeriod(double x) noexcept {
    return kTwoPi / x;
}

double rHzToPeriod(double x) noexcept {
    return 1.0 / x;
}

double rPeriodToHz(double x) noexcept {
    return 1.0 / x;
}
