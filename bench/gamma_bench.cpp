// The gamma, beta and error functions against GSL and Boost.Math (without promotion to a wider
// type), as ratios of one run: the three are timed in turn over the same arguments, and the
// counters are this module's time over theirs. A function that differs from a peer isn't timed.
#include <benchmark/benchmark.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_sf.h>

#include <boost/math/special_functions/beta.hpp>
#include <boost/math/special_functions/digamma.hpp>
#include <boost/math/special_functions/erf.hpp>
#include <boost/math/special_functions/expint.hpp>
#include <boost/math/special_functions/gamma.hpp>
#include <boost/math/special_functions/trigamma.hpp>
#include <chrono>
#include <cmath>
#include <random>
#include <vector>

#include "nuv64/numeric/beta.h"
#include "nuv64/numeric/dawson.h"
#include "nuv64/numeric/digamma.h"
#include "nuv64/numeric/error_function.h"
#include "nuv64/numeric/exponential_integrals.h"
#include "nuv64/numeric/gamma.h"
#include "nuv64/numeric/incomplete_beta.h"
#include "nuv64/numeric/incomplete_gamma.h"
#include "nuv64/numeric/sine_cosine_integrals.h"

namespace {

namespace bm = boost::math;
using Policy = bm::policies::policy<bm::policies::promote_double<false>>;

constexpr std::size_t kArguments = 1024;
constexpr double kAgreement = 1e-9;

struct Arguments {
    double x, a, b;
};

std::vector<Arguments> arguments(double low, double high, double shapeLow, double shapeHigh) {
    std::mt19937_64 random(20240611);
    std::uniform_real_distribution<double> x(low, high);
    std::uniform_real_distribution<double> shape(shapeLow, shapeHigh);
    std::vector<Arguments> rows(kArguments);
    for (Arguments& row : rows) row = {x(random), shape(random), shape(random)};
    return rows;
}

using Clock = std::chrono::steady_clock;

template <class Function>
double seconds(const std::vector<Arguments>& rows, Function function) {
    const auto start = Clock::now();
    double sum = 0.0;
    for (const Arguments& row : rows) sum += function(row);
    benchmark::DoNotOptimize(sum);
    return std::chrono::duration<double>(Clock::now() - start).count();
}

bool agrees(double own, double other) {
    return std::fabs(own - other) <= kAgreement * (std::fabs(other) + 1e-3);
}

template <class Own, class Gsl, class Boost>
void compare(benchmark::State& state, const std::vector<Arguments>& rows, Own own, Gsl gsl,
             Boost boost) {
    gsl_set_error_handler_off();
    for (const Arguments& row : rows) {
        if (agrees(own(row), gsl(row)) && agrees(own(row), boost(row))) continue;
        state.SkipWithError("differs from a peer");
        return;
    }
    double ownTime = 0.0, gslTime = 0.0, boostTime = 0.0;
    for (auto _ : state) {
        const double time = seconds(rows, own);
        state.SetIterationTime(time);
        ownTime += time;
        gslTime += seconds(rows, gsl);
        boostTime += seconds(rows, boost);
    }
    state.counters["ns"] = ownTime * 1e9 / static_cast<double>(kArguments * state.iterations());
    state.counters["to_gsl"] = ownTime / gslTime;
    state.counters["to_boost"] = ownTime / boostTime;
}

using Row = const Arguments&;

#define NUV64_COMPARE(name, rows, own, gsl, boost)                             \
    void name(benchmark::State& state) {                                       \
        compare(                                                               \
            state, rows, [](Row r) { return own; }, [](Row r) { return gsl; }, \
            [](Row r) { return boost; });                                      \
    }                                                                          \
    BENCHMARK(name)->UseManualTime()

const auto kPositive = arguments(0.1, 100.0, 0.5, 20.0);
const auto kSmall = arguments(0.01, 3.0, 0.5, 20.0);
const auto kGaussian = arguments(-4.0, 4.0, 0.5, 20.0);
const auto kGammaRange = arguments(0.1, 40.0, 0.5, 20.0);
const auto kUnit = arguments(0.01, 0.99, 0.5, 20.0);
const auto kProbability = arguments(0.05, 0.95, 0.5, 20.0);
const auto kLarge = arguments(4.0, 60.0, 0.5, 20.0);

NUV64_COMPARE(gammaLn, kPositive, rGammaLn(r.x), gsl_sf_lngamma(r.x), bm::lgamma(r.x, Policy()));
NUV64_COMPARE(gammaOf, kPositive, rGamma(r.x), gsl_sf_gamma(r.x), bm::tgamma(r.x, Policy()));
NUV64_COMPARE(gammaInverse, kPositive, r1DivGamma(r.x), gsl_sf_gammainv(r.x),
              1.0 / bm::tgamma(r.x, Policy()));
NUV64_COMPARE(digamma, kPositive, rPsi0(r.x), gsl_sf_psi(r.x), bm::digamma(r.x, Policy()));
NUV64_COMPARE(trigamma, kPositive, rPsi1(r.x), gsl_sf_psi_1(r.x), bm::trigamma(r.x, Policy()));
NUV64_COMPARE(gammaP, kGammaRange, rGammaIncP(r.a, r.x), gsl_sf_gamma_inc_P(r.a, r.x),
              bm::gamma_p(r.a, r.x, Policy()));
NUV64_COMPARE(gammaQ, kGammaRange, rGammaIncQ(r.a, r.x), gsl_sf_gamma_inc_Q(r.a, r.x),
              bm::gamma_q(r.a, r.x, Policy()));
NUV64_COMPARE(betaOf, kGammaRange, rBeta(r.a, r.b), gsl_sf_beta(r.a, r.b),
              bm::beta(r.a, r.b, Policy()));
NUV64_COMPARE(betaRegular, kUnit, rBetaIncReg(r.x, r.a, r.b), gsl_sf_beta_inc(r.a, r.b, r.x),
              bm::ibeta(r.a, r.b, r.x, Policy()));
NUV64_COMPARE(erf, kGaussian, rErf(r.x), gsl_sf_erf(r.x), bm::erf(r.x, Policy()));
NUV64_COMPARE(erfc, kGaussian, rErfc(r.x), gsl_sf_erfc(r.x), bm::erfc(r.x, Policy()));
NUV64_COMPARE(dawson, kGaussian, rDawson(r.x), gsl_sf_dawson(r.x), gsl_sf_dawson(r.x));
NUV64_COMPARE(expintNear, kSmall, rEn(r.x, 1), gsl_sf_expint_E1(r.x), bm::expint(1, r.x, Policy()));
NUV64_COMPARE(expintFar, kLarge, rEn(r.x, 3), gsl_sf_expint_En(3, r.x),
              bm::expint(3, r.x, Policy()));
NUV64_COMPARE(sineIntegral, kPositive, rSineIntegral(r.x), gsl_sf_Si(r.x), gsl_sf_Si(r.x));
NUV64_COMPARE(cosineIntegral, kPositive, rCosineIntegral(r.x), gsl_sf_Ci(r.x), gsl_sf_Ci(r.x));

#undef NUV64_COMPARE

// The approximations of few digits against the full functions, which they are to spare.
template <class Fast, class Full>
void spare(benchmark::State& state, const std::vector<Arguments>& rows, Fast fast, Full full) {
    double fastTime = 0.0, fullTime = 0.0;
    for (auto _ : state) {
        const double time = seconds(rows, fast);
        state.SetIterationTime(time);
        fastTime += time;
        fullTime += seconds(rows, full);
    }
    state.counters["ns"] = fastTime * 1e9 / static_cast<double>(kArguments * state.iterations());
    state.counters["to_full"] = fastTime / fullTime;
}

void erfFast(benchmark::State& state) {
    spare(
        state, kGaussian, [](Row r) { return rErfFast(r.x); }, [](Row r) { return rErf(r.x); });
}
BENCHMARK(erfFast)->UseManualTime();

void erfInverse(benchmark::State& state) {
    spare(
        state, kUnit, [](Row r) { return rErfInv(r.x); },
        [](Row r) { return bm::erf_inv(r.x, Policy()); });
}
BENCHMARK(erfInverse)->UseManualTime();

void dawsonFast(benchmark::State& state) {
    spare(
        state, kGaussian, [](Row r) { return rDawsonRa5(r.x); },
        [](Row r) { return rDawson(r.x); });
}
BENCHMARK(dawsonFast)->UseManualTime();

}  // namespace
