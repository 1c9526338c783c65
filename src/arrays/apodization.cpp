#include "nuv64/arrays/apodization.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

#include "core/guard.h"
#include "core/real_rounding.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/numeric/real_powers.h"
#include "nuv64/numeric/real_special.h"

using namespace nuv64;

namespace {

constexpr double kPi = std::numbers::pi;

// The signal and the times of its elements.
struct TimedArray {
    uint64_t n;
    double* array;
    double t0;
    double tEnd;
    double dt;

    double time(uint64_t i) const noexcept { return t0 + static_cast<double>(i) * dt; }
};

// A unit vector that turns by a constant angle; next() turns first.
class Rotation {
  public:
    Rotation(double start, double step) noexcept
        : c_(std::cos(start)),
          s_(std::sin(start)),
          stepC_(std::cos(step)),
          stepS_(std::sin(step)) {}
    void next() noexcept {
        const double turned = c_ * stepC_ - s_ * stepS_;
        s_ = s_ * stepC_ + c_ * stepS_;
        c_ = turned;
    }
    double cosine() const noexcept { return c_; }
    double sine() const noexcept { return s_; }

  private:
    double c_;
    double s_;
    double stepC_;
    double stepS_;
};

uint32_t exponentialWindow(const TimedArray& signal, const double* p) noexcept {
    double window = std::exp(-kPi * p[0] * signal.t0);
    const double step = std::exp(-kPi * p[0] * signal.dt);
    for (uint64_t i = 0; i < signal.n; ++i) {
        signal.array[i] *= window;
        window *= step;
    }
    return kSuccess;
}

uint32_t vorningWindow(const TimedArray& signal, const double* p) noexcept {
    constexpr double kDefaultFactor = 4.0;
    double last = signal.tEnd;
    if (rIsNotNAN(p[1])) {
        last = p[1] * (p[0] == 0.0 ? kDefaultFactor : p[0]);
        if (last > signal.tEnd) last = signal.tEnd;
    }
    for (uint64_t i = 0; i < signal.n; ++i) {
        const double t = signal.time(i);
        const double cosine = t > last ? 0.0 : std::cos(kPi * t / (2.0 * last));
        signal.array[i] *= cosine * cosine;
    }
    return kSuccess;
}

uint32_t cosineSquareWindow(const TimedArray& signal, const double* p) noexcept {
    const double last = p[0];
    if (last == 0.0) return RArrZero(signal.n, signal.array);
    const double w = kPi / 2.0 / last;
    const double reach = std::ceil((last - signal.t0) / signal.dt);
    const uint64_t treated = std::min(clampToQword(reach), signal.n);
    Rotation angle(w * signal.t0, w * signal.dt);
    for (uint64_t i = 0; i < treated; ++i) {
        angle.next();
        signal.array[i] *= angle.cosine() * angle.cosine();
    }
    return RArrZero(signal.n - treated, signal.array + treated);
}

// exp(-g*t^2 - e*t) by its first and second quotients.
uint32_t gaussWindow(const TimedArray& signal, double broadening, double e) noexcept {
    constexpr double kFourLn2 = 2.772588722239781;
    const double t0 = signal.t0;
    const double dt = signal.dt;
    const double g = kPi * broadening * (kPi * broadening) / kFourLn2;
    double window = std::exp(-g * (t0 * t0) - e * t0);
    const double ratio = std::exp(-g * (2.0 * dt * t0 + dt * dt) - e * dt);
    const double ratioStep = std::exp(-2.0 * g * (dt * dt));
    double steps = 1.0;
    for (uint64_t i = 0; i < signal.n; ++i) {
        signal.array[i] *= window;
        window *= ratio * steps;
        steps *= ratioStep;
    }
    return kSuccess;
}

uint32_t pureGaussWindow(const TimedArray& signal, const double* p) noexcept {
    return gaussWindow(signal, p[0], 0.0);
}

uint32_t gaussLorentzWindow(const TimedArray& signal, const double* p) noexcept {
    return gaussWindow(signal, p[0], kPi * p[1]);
}

uint32_t sincWindow(const TimedArray& signal, const double* p) noexcept {
    if (p[0] == 0.0) return kSuccess;
    const double w = kPi * p[0];
    Rotation angle(w * signal.t0, w * signal.dt);
    for (uint64_t i = 0; i < signal.n; ++i) {
        angle.next();
        signal.array[i] *= angle.sine() / (w * signal.time(i));
    }
    return kSuccess;
}

uint32_t maxwellWindow(const TimedArray& signal, const double* p) noexcept {
    if (p[0] == 0.0) return RArrZero(signal.n, signal.array);
    const double t0 = signal.t0;
    const double dt = signal.dt;
    const double q = 1.0 / (p[0] * p[0]);
    const double a = q * (t0 * t0);
    const double b = q * dt * (2.0 * t0 + dt);
    const double c = 2.0 * q * (dt * dt);
    double window = a * std::exp(-a);
    double first = b * std::exp(-a);
    double second = c * std::exp(-a);
    double decay = std::exp(-b);
    const double decayStep = std::exp(-c);
    for (uint64_t i = 0; i < signal.n; ++i) {
        signal.array[i] *= window;
        window = (window + first) * decay;
        first = (first + second) * decay;
        second *= decay;
        decay *= decayStep;
    }
    return kSuccess;
}

uint32_t smoothstepWindow(const TimedArray& signal, const double* p) noexcept {
    const double scale = p[0];
    if (scale == 0.0) return kSuccess;
    const uint64_t k = realRoundToQword(p[1]);
    if (k == 0) return RArrIpMulConst(signal.n, signal.array, 0.5);
    if (scale < 0.0) return 26;
    double t = signal.t0;
    for (uint64_t i = 0; i < signal.n; ++i) {
        const double u = ruPower(t / scale, k);
        signal.array[i] *= u / (1.0 + u);
        t += signal.dt;
    }
    return kSuccess;
}

using Window = uint32_t (*)(const TimedArray& signal, const double* p) noexcept;

// Types 1, 2, ...
constexpr Window kWindows[] = {exponentialWindow, vorningWindow,      cosineSquareWindow,
                               pureGaussWindow,   gaussLorentzWindow, sincWindow,
                               maxwellWindow,     smoothstepWindow};

}  // namespace

uint32_t RArrApodization(uint64_t type, uint64_t n, double* array, double t0, double tEnd,
                         const double* parameters) noexcept {
    if (!array) return 14;
    if (n < 2) return kSuccess;
    if (type < 1 || type > std::size(kWindows)) return 44;
    if (!parameters) return 21;
    const TimedArray signal{n, array, t0, tEnd, (tEnd - t0) / static_cast<double>(n - 1)};
    return kWindows[type - 1](signal, parameters);
}
