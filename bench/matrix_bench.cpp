// Matrix products, inversion, singular values and symmetric eigenproblems beside netlib's LAPACK,
// Eigen and OpenBLAS on one thread. All of them take turns in one run. The figures: our best
// processor time in microseconds, and the median over the turns of each other one's time as a
// multiple of ours (above 1: we are faster). Where a routine overwrites its input, the copy is
// timed with it. An answer that doesn't agree isn't timed.
#include <benchmark/benchmark.h>

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "lapack_library.h"
#include "nuv64/arrays/real_matrix_eigen.h"
#include "nuv64/arrays/real_matrix_inverse.h"
#include "nuv64/arrays/real_matrix_products.h"
#include "nuv64/arrays/real_matrix_svd.h"

namespace {

using Values = std::vector<double>;
using Map = Eigen::Map<Eigen::MatrixXd>;

Values randomValues(std::size_t n, std::uint64_t seed) {
    std::mt19937_64 source(seed);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    Values values(n);
    for (double& x : values) x = uniform(source);
    return values;
}

struct Contestant {
    std::string name;
    std::function<void()> run;
    const Values* result;
};

// Processor time of this thread: other programs on the machine don't count.
double seconds() {
    timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

double secondsOf(const std::function<void()>& run, int repetitions) {
    const double start = seconds();
    for (int i = 0; i < repetitions; ++i) run();
    return (seconds() - start) / repetitions;
}

bool agree(const Values& a, const Values& b) {
    double largest = 0.0, difference = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        largest = std::max(largest, std::fabs(a[i]));
        difference = std::max(difference, std::fabs(a[i] - b[i]));
    }
    return difference <= 1e-9 * largest;
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// The first contestant is ours.
void compete(benchmark::State& state, const std::vector<Contestant>& contestants) {
    constexpr double kShortest = 20e-6;
    for (const Contestant& contestant : contestants) {
        contestant.run();
        if (!agree(*contestants[0].result, *contestant.result)) {
            state.SkipWithError((contestant.name + " disagrees").c_str());
            return;
        }
    }
    const double first = secondsOf(contestants[0].run, 1);
    const int repetitions = std::max(1, static_cast<int>(kShortest / first));
    double best = first;
    std::vector<std::vector<double>> ratios(contestants.size());
    for (auto _ : state) {
        double spent = 0.0;
        for (int turn = 0; turn < 20000 && (spent < 0.5 || turn < 7); ++turn) {
            double ours = 0.0;
            for (std::size_t i = 0; i < contestants.size(); ++i) {
                const double time = secondsOf(contestants[i].run, repetitions);
                if (i == 0) ours = time;
                ratios[i].push_back(time / ours);
                spent += time * repetitions;
            }
            best = std::min(best, ours);
        }
    }
    state.counters["us"] = best * 1e6;
    for (std::size_t i = 1; i < contestants.size(); ++i) {
        state.counters[contestants[i].name] = median(ratios[i]);
    }
}

void product(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const auto size = static_cast<std::size_t>(n * n);
    const Values a = randomValues(size, 1), b = randomValues(size, 2);
    Values ours(size), theirs(size), eigens(size), opens(size);
    const auto gemm = [&](const bench::LapackLibrary& library, Values& out) {
        const double one = 1.0, zero = 0.0;
        library.gemm("N", "N", &n, &n, &n, &one, a.data(), &n, b.data(), &n, &zero, out.data(), &n);
    };
    const auto count = static_cast<std::uint32_t>(n);
    std::vector<Contestant> all{
        {"ours", [&] { RMatByMat(a.data(), b.data(), count, count, count, ours.data()); }, &ours}};
    if (bench::netlib().gemm) {
        all.push_back({"netlib", [&] { gemm(bench::netlib(), theirs); }, &theirs});
    }
    all.push_back({"eigen",
                   [&] {
                       Map(eigens.data(), n, n).noalias() =
                           Eigen::Map<const Eigen::MatrixXd>(a.data(), n, n) *
                           Eigen::Map<const Eigen::MatrixXd>(b.data(), n, n);
                   },
                   &eigens});
    if (bench::openBlas().gemm) {
        all.push_back({"openblas", [&] { gemm(bench::openBlas(), opens); }, &opens});
    }
    compete(state, all);
}

void inversion(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const auto size = static_cast<std::size_t>(n * n);
    const Values a = randomValues(size, 3);
    Values ours(size), theirs(size), eigens(size), opens(size), work(size * 2 + 64);
    std::vector<int> pivots(static_cast<std::size_t>(n));
    const auto invert = [&](const bench::LapackLibrary& library, Values& out) {
        int info = 0;
        const int length = static_cast<int>(work.size());
        library.getrf(&n, &n, out.data(), &n, pivots.data(), &info);
        library.getri(&n, out.data(), &n, pivots.data(), work.data(), &length, &info);
    };
    std::vector<Contestant> all{{"ours",
                                 [&] {
                                     ours = a;
                                     RMatInvert(ours.data(), static_cast<std::uint64_t>(n), nullptr,
                                                0);
                                 },
                                 &ours}};
    if (bench::netlib().getri) {
        all.push_back({"netlib",
                       [&] {
                           theirs = a;
                           invert(bench::netlib(), theirs);
                       },
                       &theirs});
    }
    all.push_back({"eigen",
                   [&] {
                       eigens = a;
                       const Eigen::MatrixXd inverse = Map(eigens.data(), n, n).inverse();
                       Map(eigens.data(), n, n) = inverse;
                   },
                   &eigens});
    if (bench::openBlas().getri) {
        all.push_back({"openblas",
                       [&] {
                           opens = a;
                           invert(bench::openBlas(), opens);
                       },
                       &opens});
    }
    compete(state, all);
}

struct SvdRun {
    Values a, u, s, v, work;
    std::vector<int> iwork;
};

void singularValues(benchmark::State& state) {
    const int m = static_cast<int>(state.range(0)), n = static_cast<int>(state.range(1));
    const int k = std::min(m, n);
    const auto rows = static_cast<std::size_t>(m), cols = static_cast<std::size_t>(n),
               small = static_cast<std::size_t>(k);
    const Values a = randomValues(rows * cols, 4);
    const auto fresh = [&] {
        return SvdRun{a,
                      Values(rows * small),
                      Values(small),
                      Values(cols * cols),
                      Values(8 * small * small + 70 * (rows + cols)),
                      std::vector<int>(8 * small)};
    };
    SvdRun ours = fresh(), qr = fresh(), divided = fresh(), eigens = fresh(), open = fresh(),
           openDivided = fresh();
    const auto gesvd = [&](const bench::LapackLibrary& library, SvdRun& run) {
        int info = 0;
        const int length = static_cast<int>(run.work.size());
        library.gesvd("S", "S", &m, &n, run.a.data(), &m, run.s.data(), run.u.data(), &m,
                      run.v.data(), &k, run.work.data(), &length, &info);
    };
    const auto gesdd = [&](const bench::LapackLibrary& library, SvdRun& run) {
        int info = 0;
        const int length = static_cast<int>(run.work.size());
        library.gesdd("S", &m, &n, run.a.data(), &m, run.s.data(), run.u.data(), &m, run.v.data(),
                      &k, run.work.data(), &length, run.iwork.data(), &info);
    };
    std::vector<Contestant> all{{"ours",
                                 [&] {
                                     ours.a = a;
                                     RMatThinSVD(ours.a.data(), rows, cols, ours.u.data(),
                                                 ours.s.data(), ours.v.data());
                                 },
                                 &ours.s}};
    if (bench::netlib().gesvd) {
        all.push_back({"netlib",
                       [&] {
                           qr.a = a;
                           gesvd(bench::netlib(), qr);
                       },
                       &qr.s});
        all.push_back({"netlib_dd",
                       [&] {
                           divided.a = a;
                           gesdd(bench::netlib(), divided);
                       },
                       &divided.s});
    }
    all.push_back({"eigen",
                   [&] {
                       eigens.a = a;
                       const Eigen::BDCSVD<Eigen::MatrixXd> svd(
                           Map(eigens.a.data(), m, n), Eigen::ComputeThinU | Eigen::ComputeThinV);
                       Map(eigens.s.data(), k, 1) = svd.singularValues();
                   },
                   &eigens.s});
    if (bench::openBlas().gesvd) {
        all.push_back({"openblas",
                       [&] {
                           open.a = a;
                           gesvd(bench::openBlas(), open);
                       },
                       &open.s});
        all.push_back({"openblas_dd",
                       [&] {
                           openDivided.a = a;
                           gesdd(bench::openBlas(), openDivided);
                       },
                       &openDivided.s});
    }
    compete(state, all);
}

// The eigenvalues are sorted before they are compared.
struct EigenRun {
    Values a, d, sorted, work;
};

void eigenproblem(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const auto count = static_cast<std::size_t>(n);
    Values a = randomValues(count * count, 5);
    for (std::size_t c = 0; c < count; ++c) {
        for (std::size_t r = 0; r < c; ++r) a[r + c * count] = a[c + r * count];
    }
    const auto fresh = [&] {
        return EigenRun{a, Values(count), Values(count), Values(40 * count + 64)};
    };
    EigenRun ours = fresh(), theirs = fresh(), eigens = fresh(), open = fresh();
    const auto sort = [](EigenRun& run) {
        run.sorted = run.d;
        std::sort(run.sorted.begin(), run.sorted.end());
    };
    const auto syev = [&](const bench::LapackLibrary& library, EigenRun& run) {
        int info = 0;
        const int length = static_cast<int>(run.work.size());
        library.syev("V", "L", &n, run.a.data(), &n, run.d.data(), run.work.data(), &length, &info);
        sort(run);
    };
    std::vector<Contestant> all{{"ours",
                                 [&] {
                                     ours.a = a;
                                     RMatDiagonalize(ours.a.data(), count, ours.d.data());
                                     sort(ours);
                                 },
                                 &ours.sorted}};
    if (bench::netlib().syev) {
        all.push_back({"netlib",
                       [&] {
                           theirs.a = a;
                           syev(bench::netlib(), theirs);
                       },
                       &theirs.sorted});
    }
    all.push_back({"eigen",
                   [&] {
                       eigens.a = a;
                       const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> solver(
                           Map(eigens.a.data(), n, n));
                       Map(eigens.d.data(), n, 1) = solver.eigenvalues();
                       sort(eigens);
                   },
                   &eigens.sorted});
    if (bench::openBlas().syev) {
        all.push_back({"openblas",
                       [&] {
                           open.a = a;
                           syev(bench::openBlas(), open);
                       },
                       &open.sorted});
    }
    compete(state, all);
}

void sizes(benchmark::internal::Benchmark* bench) {
    for (int n : {2, 3, 4, 5, 8, 10, 16, 20, 32, 50, 64, 100, 128, 200, 256, 300, 500}) {
        bench->Arg(n);
    }
    bench->Iterations(1)->Unit(benchmark::kMillisecond);
}

void shapes(benchmark::internal::Benchmark* bench) {
    for (int n : {2, 3, 5, 10, 20, 50, 100, 128, 150, 200, 300}) bench->Args({n, n});
    bench->Args({20, 3})->Args({100, 10})->Args({300, 200})->Args({200, 300})->Args({1000, 50});
    bench->Iterations(1)->Unit(benchmark::kMillisecond);
}

BENCHMARK(product)->Apply(sizes);
BENCHMARK(inversion)->Apply(sizes);
BENCHMARK(singularValues)->Apply(shapes);
BENCHMARK(eigenproblem)->Apply(sizes);

}  // namespace
