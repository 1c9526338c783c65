#include "nuv64/numeric/real_tapers.h"

#include <cmath>
#include <utility>

#include "nuv64/numeric/real_elementary.h"
#include "nuv64/numeric/real_peaks.h"

namespace {

constexpr double kLn2 = 0.6931471805599453;
constexpr double kUsualFloor = 0.01;
constexpr double kReach = 1000.0;  // of a threshold, in units of its half widths
constexpr double kRelativeSteepness = 3.0;

// The G form of the L form v.
double gaussian(double v, double floor) {
    return v < floor ? 0.0 : rExp(kLn2 * (v - 1.0) / v);
}

// From 0 at t = 0 to 1 far away.
double rise(double t) {
    const double t2 = t * t;
    return t2 / (1.0 + t2);
}

double lorentzianEdge(double distance, double width) {
    if (width == 0.0) return 1.0;
    const double r = distance / width;
    return 1.0 / (1.0 + r * r);
}

// From -1 to 1, without the dead zone around mid.
double thresholdFlank(double x, double low, double mid, double high, double k) {
    if (x < mid) {
        if (mid * low > x * (kReach * (mid - low) + low)) return -1.0;
        return -rise(k * (1.0 / x - 1.0 / mid) / (1.0 / low - 1.0 / mid));
    }
    if (x > mid) {
        if (x > mid + kReach * (high - mid)) return 1.0;
        return rise(k * (x - mid) / (high - mid));
    }
    return 0.0;
}

}  // namespace

double rSoftStepUpL(double x, double w) noexcept {
    w = std::fabs(w);
    if (!(x + w > x)) return x < 0.0 ? 0.0 : 1.0;
    const double s = rise(x / w);
    return x < 0.0 ? 0.5 * (1.0 - s) : 0.5 * (1.0 + s);
}

double rSoftStepDownL(double x, double w) noexcept {
    return 1.0 - rSoftStepUpL(x, w);
}

double rSoftStepUpG(double x, double w, double floor) noexcept {
    return gaussian(rSoftStepUpL(x, w), floor);
}

double rSoftStepDownG(double x, double w) noexcept {
    return 1.0 - rSoftStepUpG(x, w, kUsualFloor);
}

double rSoftEdgedRectL(double x, double a, double b, double wa, double wb) noexcept {
    if (x >= b) return lorentzianEdge(x - b, wb);
    if (x <= a) return lorentzianEdge(a - x, wa);
    return 1.0;
}

double rSoftEdgedRectG(double x, double a, double b, double wa, double wb, double floor) noexcept {
    return gaussian(rSoftEdgedRectL(x, a, b, wa, wb), floor);
}

double rBumpL(double x, double width, double edge) noexcept {
    return rSoftEdgedRectL(x, -0.5 * width, 0.5 * width, edge, edge);
}

double rBumpG(double x, double width, double edge, double floor) noexcept {
    const double once = rSoftEdgedRectG(x, -0.5 * width, 0.5 * width, edge, edge, kUsualFloor);
    return gaussian(once, floor);
}

double rBumpReledgeL(double x, double centre, double r) noexcept {
    const double k = 1.0 + (r < 0.0 ? 0.0 : r > 1.0 ? 1.0 : r);
    return rBiLorentzianPeak(x, centre / k, centre, k * centre);
}

double rBumpReledgeG(double x, double centre, double r, double floor) noexcept {
    return gaussian(rBumpReledgeL(x, centre, r), floor);
}

double rThresholdL(double x, double low, double mid, double high, double k) noexcept {
    low = std::fabs(low);
    mid = std::fabs(mid);
    high = std::fabs(high);
    if (low > high) std::swap(low, high);
    if (mid < low) mid = low;
    if (mid > high) mid = high;
    double v = 1.0;
    if (kReach * std::fabs(mid - x) > high - low) v += thresholdFlank(x, low, mid, high, k);
    return 0.5 * v;
}

double rThresholdG(double x, double low, double mid, double high, double k, double floor) noexcept {
    return gaussian(rThresholdL(x, low, mid, high, k), floor);
}

double rThresholdRelL(double x, double mid, double r) noexcept {
    return rThresholdL(x, mid / (1.0 + r), mid, (1.0 + r) * mid, kRelativeSteepness);
}

double rThresholdRelG(double x, double mid, double r, double floor) noexcept {
    return gaussian(rThresholdRelL(x, mid, r), floor);
}

double rSmoothLoBoundTaper(double x, double bound, double factor) noexcept {
    if (x < 0.0) return -rSmoothLoBoundTaper(-x, bound, factor);
    const double e = factor * bound;
    if (x > e) return x;
    const double below = (e - x) / e;
    return x + below * below * bound;
}

double rSmoothHiBoundTaper(double x, double bound, double factor) noexcept {
    if (x < 0.0) return -rSmoothHiBoundTaper(-x, bound, factor);
    const double e = bound / factor;
    if (x < e) return x;
    return x - (x - e) / x * (x - e);
}

double rSmoothHiAndLoBoundsTaper(double x, double low, double high, double factor) noexcept {
    return rSmoothHiBoundTaper(rSmoothLoBoundTaper(x, low, factor), high, factor);
}

double rSmoothIntervalTaper(double x, double low, double high, double f) noexcept {
    const double lifted = rSmoothLoBoundTaper(x, low, 1.0 + f * (high / low - 1.0));
    return rSmoothHiBoundTaper(lifted, high, 1.0 / (1.0 - f * (1.0 - low / high)));
}
