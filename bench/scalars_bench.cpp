// Elementary functions against GSL and Boost.Math: each of the three runs over the same 1024
// arguments in turn, the best of many turns counts, and the ratio to the faster peer is told (below
// 1 is faster than both). A function whose values don't agree with its peers' isn't timed.
#include <benchmark/benchmark.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_math.h>
#include <gsl/gsl_sf.h>

#include <algorithm>
#include <boost/math/special_functions.hpp>
#include <boost/math/special_functions/chebyshev.hpp>
#include <chrono>
#include <cmath>
#include <random>
#include <vector>

#include "nuv64/numeric/chebyshev.h"
#include "nuv64/numeric/real_elementary.h"

namespace {

using Function = double (*)(double);
using Boost = boost::math::policies::policy<boost::math::policies::promote_double<false>>;

struct Peers {
    const char* name;
    Function ours;
    Function gsl;    // may be null
    Function boost;  // may be null
    double low;
    double high;
    double agreement;  // relative
};

constexpr std::size_t kPoints = 1024;
constexpr int kTurns = 100;

double nanosecondsPerCall(Function function, const std::vector<double>& xs) {
    const auto start = std::chrono::steady_clock::now();
    double sum = 0.0;
    for (const double x : xs) sum += function(x);
    benchmark::DoNotOptimize(sum);
    const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
    return time.count() / static_cast<double>(xs.size());
}

bool agree(const Peers& peers, const std::vector<double>& xs) {
    for (const double x : xs) {
        const double value = peers.ours(x);
        for (const Function peer : {peers.gsl, peers.boost}) {
            if (!peer) continue;
            const double off = std::fabs(value - peer(x));
            if (!(off <= peers.agreement * std::fabs(value))) return false;
        }
    }
    return true;
}

void compare(benchmark::State& state, const Peers& peers) {
    gsl_set_error_handler_off();
    std::mt19937_64 random(1);
    std::uniform_real_distribution<> any(peers.low, peers.high);
    std::vector<double> xs(kPoints);
    for (double& x : xs) x = any(random);
    if (!agree(peers, xs)) {
        state.SkipWithError("values disagree");
        return;
    }
    double ours = HUGE_VAL, gsl = HUGE_VAL, boost = HUGE_VAL;
    for (auto _ : state) {
        for (int turn = 0; turn < kTurns; ++turn) {
            ours = std::min(ours, nanosecondsPerCall(peers.ours, xs));
            if (peers.gsl) gsl = std::min(gsl, nanosecondsPerCall(peers.gsl, xs));
            if (peers.boost) boost = std::min(boost, nanosecondsPerCall(peers.boost, xs));
        }
    }
    state.counters["ns"] = ours;
    if (peers.gsl) state.counters["to_gsl"] = ours / gsl;
    if (peers.boost) state.counters["to_boost"] = ours / boost;
    state.counters["to_faster"] = ours / std::min(gsl, boost);
}

constexpr int kPower = 13;

const Peers kPeers[] = {
    {"rExp", rExp, gsl_sf_exp, nullptr, -700, 700, 1e-15},
    {"rExpM1", rExpM1, gsl_expm1, [](double x) { return boost::math::expm1(x, Boost()); }, 1e-4, 2,
     1e-11},
    {"rExpT1", rExpT1, gsl_sf_exprel, nullptr, 1e-4, 2, 1e-11},
    {"rExpT2", rExpT2, [](double x) { return 0.5 * gsl_sf_exprel_2(x); }, nullptr, 1e-2, 2, 1e-9},
    {"rLog", rLog, gsl_sf_log, nullptr, 1e-3, 1e3, 1e-13},
    {"rLog1p", rLog1p, gsl_sf_log_1plusx, [](double x) { return boost::math::log1p(x, Boost()); },
     -0.9, 5, 1e-12},
    {"rLogT1", rLogT1, [](double x) { return gsl_sf_log_1plusx(x) / x; },
     [](double x) { return boost::math::log1p(x, Boost()) / x; }, 1e-5, 1, 1e-12},
    {"rLogT2", rLogT2, [](double x) { return gsl_sf_log_1plusx_mx(x) / (x * x); },
     [](double x) { return boost::math::log1pmx(x, Boost()) / (x * x); }, 1e-3, 1, 1e-10},
    {"rPow", [](double x) { return rPow(x, 2.7); }, [](double x) { return std::pow(x, 2.7); },
     [](double x) { return 1.0 + boost::math::powm1(x, 2.7, Boost()); }, 0.1, 100, 1e-12},
    {"ruPower(13)", [](double x) { return ruPower(x, kPower); },
     [](double x) { return gsl_pow_uint(x, kPower); }, nullptr, -3, 3, 1e-14},
    {"riPower(13)", [](double x) { return riPower(x, kPower); },
     [](double x) { return gsl_pow_int(x, kPower); }, nullptr, -3, 3, 1e-14},
    {"riPower(-13)", [](double x) { return riPower(x, -kPower); },
     [](double x) { return gsl_pow_int(x, -kPower); }, nullptr, -3, 3, 1e-14},
    {"ruPower(1000)", [](double x) { return ruPower(x, 1000); },
     [](double x) { return gsl_pow_uint(x, 1000); }, nullptr, 0.9, 1.1, 1e-12},
    {"rCbrt", rCbrt, nullptr, [](double x) { return boost::math::cbrt(x, Boost()); }, -1e3, 1e3,
     1e-15},
    {"rSqrtT1", rSqrtT1, nullptr, [](double x) { return boost::math::sqrt1pm1(x, Boost()) / x; },
     1e-5, 3, 1e-11},
    {"rHypot", [](double x) { return rHypot(x, 2.0); }, [](double x) { return gsl_hypot(x, 2.0); },
     [](double x) { return boost::math::hypot(x, 2.0, Boost()); }, -10, 10, 1e-15},
    {"rNorm3D", [](double x) { return rNorm3D(x, 2.0, 1.0); },
     [](double x) { return gsl_hypot3(x, 2.0, 1.0); }, nullptr, -10, 10, 1e-15},
    {"rSinc", rSinc, gsl_sf_bessel_j0, [](double x) { return boost::math::sinc_pi(x, Boost()); },
     -20, 20, 1e-12},
    {"rAsinh", rAsinh, gsl_asinh, [](double x) { return boost::math::asinh(x, Boost()); }, -20, 20,
     1e-13},
    {"rAcosh", rAcosh, gsl_acosh, [](double x) { return boost::math::acosh(x, Boost()); }, 1.1, 20,
     1e-13},
    {"rAtanh", rAtanh, gsl_atanh, [](double x) { return boost::math::atanh(x, Boost()); }, -0.9,
     0.9, 1e-13},
    {"rChebyshevT(20)", [](double x) { return rChebyshevT(x, 20); }, nullptr,
     [](double x) { return boost::math::chebyshev_t(20, x, Boost()); }, 1, 2, 1e-12},
    {"rChebyshevU(20)", [](double x) { return rChebyshevU(x, 20); }, nullptr,
     [](double x) { return boost::math::chebyshev_u(20, x, Boost()); }, 1, 2, 1e-12},
};

const bool kRegistered = [] {
    for (const Peers& peers : kPeers) {
        benchmark::RegisterBenchmark(peers.name, [&peers](benchmark::State& state) {
            compare(state, peers);
        })->Iterations(3);
    }
    return true;
}();

}  // namespace
