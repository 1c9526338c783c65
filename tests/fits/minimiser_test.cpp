#include "fits/minimiser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using nuv64::kCoordinateSearch;
using nuv64::kReportBest;
using nuv64::kSimplexSearch;
using nuv64::Minimiser;
using testing::ElementsAre;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

double at(const MultiParamFit* fit, int k) {
    return *fit->parameters[k];
}

uint32_t rosenbrock(MultiParamFit* fit) {
    const double a = 1.0 - at(fit, 0);
    const double b = at(fit, 1) - at(fit, 0) * at(fit, 0);
    fit->score = a * a + 100.0 * (b * b);
    return 0;
}

uint32_t quadratic(MultiParamFit* fit) {
    const double a = at(fit, 0) - 1.5, b = at(fit, 1) + 0.25, c = at(fit, 2) - 3.0;
    fit->score = a * a + 4.0 * (b * b) + 0.5 * (c * c) + a * b;
    return 0;
}

uint32_t ridge(MultiParamFit* fit) {
    fit->score = std::fabs(at(fit, 0)) + std::fabs(at(fit, 1) - at(fit, 0));
    return 0;
}

// Clamps its first parameter in place, as the exponential fits do.
uint32_t walled(MultiParamFit* fit) {
    double& x = *fit->parameters[0];
    x = std::min(std::max(x, -1.0), 0.75);
    fit->score = (x - 2.0) * (x - 2.0) + (at(fit, 1) + 1.0) * (at(fit, 1) + 1.0);
    return 0;
}

uint32_t notANumber(MultiParamFit* fit) {
    fit->score = kNan;
    return 0;
}

uint32_t constant(MultiParamFit* fit) {
    fit->score = 4.0;
    return 0;
}

struct SearchCase {
    uint64_t method;
    MultiParamScore function;
    std::vector<double> start;
    double step;
    double tolerance;
    uint64_t maxCalls;
    uint32_t status;
    uint64_t calls;
    std::vector<double> place;
    double score;
};

#include "fits/searches_reference.inc"

// A minimiser over its own values, all fitted.
struct Search {
    std::vector<double> values;
    std::vector<double*> list;
    Minimiser minimiser;

    Search(std::vector<double> start, MultiParamScore function,
           MultiParamCallback callback = nullptr, uint32_t flags = 0, void* userData = nullptr)
        : values(std::move(start)), minimiser(flags, callback, userData) {
        for (double& x : values) list.push_back(&x);
        EXPECT_EQ(minimiser.setParameters(list.size(), list.data(), list.data(), function), 0u);
    }
};

TEST(Minimiser, GoesStepByStepAsThePlainTranscription) {
    for (const SearchCase& test : kSearches) {
        Search search(test.start, test.function);
        search.minimiser.step = test.step;
        search.minimiser.tolerance = test.tolerance;
        search.minimiser.maxCalls = test.maxCalls;
        SCOPED_TRACE(testing::Message() << "case " << &test - kSearches);
        EXPECT_EQ(search.minimiser.run(test.method), test.status);
        EXPECT_EQ(search.minimiser.calls, test.calls);
        EXPECT_EQ(search.minimiser.score, test.score);
        std::vector<double> place(test.place);
        if (test.function == walled && test.method == kSimplexSearch) {
            place[0] = std::min(place[0], 0.75);  // the last evaluation leaves its own value
        }
        EXPECT_EQ(search.values, place);
    }
}

TEST(Minimiser, FindsMinima) {
    for (uint64_t method : {kSimplexSearch, kCoordinateSearch}) {
        Search search({0.0, 0.0, 0.0}, quadratic);
        search.minimiser.tolerance = 1e-7;
        EXPECT_EQ(search.minimiser.run(method), 0u);
        EXPECT_NEAR(search.values[0], 1.5, 1e-4);
        EXPECT_NEAR(search.values[1], -0.25, 1e-4);
        EXPECT_NEAR(search.values[2], 3.0, 1e-4);
        EXPECT_NEAR(search.minimiser.bestScore, 0.0, 1e-8);
    }
}

TEST(Minimiser, DefaultsOfTheRecord) {
    const Minimiser fit(0x105, nullptr, nullptr);
    EXPECT_EQ(fit.flags, 0x105u);
    EXPECT_EQ(fit.parameterCount, 0u);
    EXPECT_EQ(fit.maxCalls, 100000u);
    EXPECT_EQ(fit.tolerance, 0.0001);
    EXPECT_EQ(fit.step, 0.2);
    EXPECT_EQ(fit.method, 0u);
    EXPECT_EQ(fit.calls, 0u);
    EXPECT_EQ(fit.parameters, nullptr);
    EXPECT_EQ(fit.fittedList, nullptr);
}

TEST(Minimiser, ListsAreCopied) {
    double x = 1.0;
    double* list[] = {&x, &x};
    double* other[] = {&x, nullptr};
    Minimiser fit(0, nullptr, nullptr);
    EXPECT_EQ(fit.setParameters(2, nullptr, list), 14u);
    EXPECT_EQ(fit.setParameters(2, list, nullptr), 14u);
    EXPECT_EQ(fit.setParameters(0, nullptr, nullptr), 0u);
    EXPECT_EQ(fit.parameterCount, 0u);
    EXPECT_EQ(fit.setParameters(2, list, other), 0u);
    EXPECT_EQ(fit.parameterCount, 2u);
    list[0] = list[1] = other[0] = nullptr;
    EXPECT_EQ(fit.parameters[0], &x);
    EXPECT_EQ(fit.fitted[0], &x);
    EXPECT_EQ(fit.fitted[1], nullptr);
    EXPECT_EQ(fit.setParameters(uint64_t{1} << 60, list, other), 0x80001u);
    EXPECT_EQ(fit.setParameters(UINT64_MAX, list, other), 0x80001u);
    EXPECT_EQ(fit.parameterCount, 2u);
    EXPECT_EQ(fit.setParameters(0, nullptr, nullptr), 0u);
    EXPECT_EQ(fit.parameterCount, 2u);
    fit.release();
    EXPECT_EQ(fit.parameterCount, 0u);
    EXPECT_EQ(fit.parameters, nullptr);
    EXPECT_EQ(fit.fitted, nullptr);
    fit.release();
}

TEST(Minimiser, HeldParametersStay) {
    for (uint64_t method : {kSimplexSearch, kCoordinateSearch}) {
        double values[] = {0.0, 7.0, 0.0};
        double* list[] = {values, values + 1, values + 2};
        double* fitted[] = {values, nullptr, values + 2};
        Minimiser fit(0, nullptr, nullptr);
        fit.setParameters(3, list, fitted, quadratic);
        EXPECT_EQ(fit.run(method), 0u);
        EXPECT_EQ(fit.fittedCount, 2u);
        EXPECT_EQ(fit.fittedList[1], values + 2);
        EXPECT_EQ(values[1], 7.0);
        EXPECT_NEAR(values[0], 1.5 - 7.25 / 2.0, 0.01);
        EXPECT_NEAR(values[2], 3.0, 0.01);
    }
}

TEST(Minimiser, NothingToFitIsOneEvaluation) {
    for (uint64_t method : {kSimplexSearch, kCoordinateSearch}) {
        double values[] = {1.0, 1.0, 1.0};
        double* list[] = {values, values + 1, values + 2};
        double* fitted[] = {nullptr, nullptr, nullptr};
        Minimiser fit(0, nullptr, nullptr);
        fit.setParameters(3, list, fitted, quadratic);
        EXPECT_EQ(fit.run(method), 0u);
        EXPECT_EQ(fit.calls, 1u);
        EXPECT_EQ(fit.bestScore, fit.score);
        Minimiser empty(0, nullptr, nullptr);
        empty.scoreFunction = constant;
        EXPECT_EQ(empty.run(method), 0u);
        EXPECT_EQ(empty.calls, 1u);
    }
}

TEST(Minimiser, MethodsThatAreNotThere) {
    Search search({1.0, 2.0}, rosenbrock);
    EXPECT_EQ(search.minimiser.run(2), 9u);
    EXPECT_EQ(search.minimiser.run(4), 9u);
    EXPECT_EQ(search.minimiser.run(5), 11u);
    EXPECT_EQ(search.minimiser.run(UINT64_MAX), 11u);
    EXPECT_EQ(search.minimiser.calls, 0u);
    EXPECT_EQ(search.minimiser.run(0), 0u);
    EXPECT_EQ(search.minimiser.calls, 0u);
    EXPECT_EQ(search.minimiser.method, 0u);
    search.minimiser.scoreFunction = nullptr;
    EXPECT_EQ(search.minimiser.run(1), 20u);
}

TEST(Minimiser, AFewCallsAreEnoughForOneEvaluationOnly) {
    for (uint64_t limit : {0, 1}) {
        Search search({0.0, 0.0, 0.0}, quadratic);
        search.minimiser.maxCalls = limit;
        EXPECT_EQ(search.minimiser.run(kSimplexSearch), 0u);
        EXPECT_EQ(search.minimiser.calls, 1u);
        EXPECT_THAT(search.values, ElementsAre(0, 0, 0));
        EXPECT_EQ(search.minimiser.run(kCoordinateSearch), 73u);
        EXPECT_EQ(search.minimiser.calls, 1u);
        EXPECT_THAT(search.values, ElementsAre(0, 0, 0));
    }
}

TEST(Minimiser, ScoresThatSayNothingEndTheSearch) {
    for (MultiParamScore function : {notANumber, constant}) {
        for (uint64_t method : {kSimplexSearch, kCoordinateSearch}) {
            Search search({1.0, 2.0}, function);
            EXPECT_EQ(search.minimiser.run(method), 0u);
            EXPECT_LT(search.minimiser.calls, 1000u);
        }
    }
    for (double step : {kNan, std::numeric_limits<double>::infinity()}) {
        for (uint64_t method : {kSimplexSearch, kCoordinateSearch}) {
            Search search({1.0, 2.0}, rosenbrock);
            search.minimiser.step = step;
            search.minimiser.maxCalls = 500;
            const uint32_t status = search.minimiser.run(method);
            EXPECT_TRUE(status == 0 || status == 73);
            EXPECT_LT(search.minimiser.calls, 510u);
        }
    }
    for (uint64_t method : {kSimplexSearch, kCoordinateSearch}) {
        Search search({1.0, 2.0}, rosenbrock);
        search.minimiser.tolerance = -1.0;
        search.minimiser.maxCalls = 5000;
        EXPECT_EQ(search.minimiser.run(method), 73u);
    }
}

// --- callbacks

struct Log {
    std::vector<uint32_t> codes;
    std::vector<uint64_t> calls;
    std::vector<double> bests;
    uint32_t stopAtCode = 0;
    uint64_t stopAtCall = 0;
    uint32_t answer = 0;
};

uint32_t listen(MultiParamFit* fit, uint32_t code) {
    Log& log = *static_cast<Log*>(fit->userData);
    log.codes.push_back(code);
    log.calls.push_back(fit->calls);
    if (code == NUV64_FIT_BEST) {
        log.bests.push_back(fit->bestScore);
        const double told = fit->bestScore;
        fit->scoreFunction(fit);
        EXPECT_EQ(fit->score, told);  // the parameters stand where the best score was found
    }
    return code == log.stopAtCode && fit->calls >= log.stopAtCall ? log.answer : 0;
}

TEST(MinimiserCallback, CodesComeInOrder) {
    for (uint64_t method : {kSimplexSearch, kCoordinateSearch}) {
        Log log;
        Search search({-1.2, 1.0}, rosenbrock, listen, 0, &log);
        EXPECT_EQ(search.minimiser.run(method), 0u);
        ASSERT_GT(log.codes.size(), 10u);
        EXPECT_EQ(log.codes.front(), 61u);
        EXPECT_EQ(log.calls.front(), 0u);
        EXPECT_EQ(log.codes.back(), 64u);
        EXPECT_EQ(std::count(log.codes.begin(), log.codes.end(), 61u), 1);
        EXPECT_EQ(std::count(log.codes.begin(), log.codes.end(), 63u), 0);
        EXPECT_EQ(std::count(log.codes.begin(), log.codes.end(), 62u),
                  static_cast<int64_t>(search.minimiser.calls));
        EXPECT_EQ(log.calls[1], 1u);
    }
}

TEST(MinimiserCallback, BestScoresAreToldOnRequest) {
    for (uint64_t method : {kSimplexSearch, kCoordinateSearch}) {
        Log log;
        Search quiet({-1.2, 1.0}, rosenbrock);
        quiet.minimiser.run(method);
        Search search({-1.2, 1.0}, rosenbrock, listen, kReportBest, &log);
        EXPECT_EQ(search.minimiser.run(method), 0u);
        ASSERT_GT(log.bests.size(), 5u);
        EXPECT_TRUE(std::is_sorted(log.bests.rbegin(), log.bests.rend()));
        EXPECT_EQ(log.bests.back(), search.minimiser.bestScore);
        // Telling changes nothing.
        EXPECT_EQ(search.minimiser.calls, quiet.minimiser.calls);
        EXPECT_EQ(search.values, quiet.values);
    }
}

TEST(MinimiserCallback, AnAnswerEndsTheSearchWithThatStatus) {
    for (uint64_t method : {kSimplexSearch, kCoordinateSearch}) {
        for (uint32_t code : {61, 62, 63, 64}) {
            for (uint64_t call : {0, 1, 2, 3, 4, 5, 9, 40}) {
                Log log;
                log.stopAtCode = code;
                log.stopAtCall = call;
                log.answer = 1234;
                Search search({-1.2, 1.0}, rosenbrock, listen, kReportBest, &log);
                const uint32_t status = search.minimiser.run(method);
                if (code == 61 && call > 0) {
                    EXPECT_EQ(status, 0u);
                    continue;
                }
                EXPECT_EQ(status, 1234u);
                EXPECT_EQ(log.codes.back(), 64u);
                if (code != 64) {
                    EXPECT_EQ(log.codes[log.codes.size() - 2], code);
                }
                if (code == 62) {
                    EXPECT_EQ(search.minimiser.calls, std::max<uint64_t>(call, 1));
                }
            }
        }
    }
}

uint64_t failingCall = 0;

uint32_t failing(MultiParamFit* fit) {
    rosenbrock(fit);
    return fit->calls == failingCall ? 55 : 0;
}

TEST(MinimiserCallback, AFailingScoreEndsTheSearch) {
    for (uint64_t method : {kSimplexSearch, kCoordinateSearch}) {
        for (uint64_t call = 0; call < 60; ++call) {
            failingCall = call;
            Log log;
            Search search({-1.2, 1.0}, failing, listen, 0, &log);
            EXPECT_EQ(search.minimiser.run(method), 55u);
            EXPECT_EQ(search.minimiser.calls, call);
            EXPECT_EQ(log.codes.back(), 64u);
        }
    }
}

TEST(MinimiserCallback, TheEndIsToldForEveryMethod) {
    for (uint64_t method : {0, 1, 2, 3, 4}) {
        Log log;
        Search search({-1.2, 1.0}, rosenbrock, listen, 0, &log);
        search.minimiser.run(method);
        ASSERT_FALSE(log.codes.empty());
        EXPECT_EQ(log.codes.back(), 64u);
        EXPECT_EQ(std::count(log.codes.begin(), log.codes.end(), 64u), 1);
    }
}

TEST(MinimiserCallback, AStopAtTheEndOverridesTheLimitOfCalls) {
    Log log;
    log.stopAtCode = 64;
    log.answer = 99;
    Search search({-1.2, 1.0}, rosenbrock, listen, 0, &log);
    search.minimiser.maxCalls = 20;
    EXPECT_EQ(search.minimiser.run(kSimplexSearch), 99u);
}

}  // namespace
