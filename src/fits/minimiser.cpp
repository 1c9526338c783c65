#include "fits/minimiser.h"

#include <cstdlib>
#include <utility>

#include "core/guard.h"
#include "core/owned.h"

namespace nuv64 {

namespace {

using PointerList = Owned<double*>;

PointerList copyList(std::uint64_t count, double* const* list) noexcept {
    PointerList copy = tryAllocate<double*>(count);
    if (copy) std::memcpy(copy.get(), list, count * sizeof(double*));
    return copy;
}

// Puts list into a field of the record, which owns bare pointers, and frees what was there.
void store(double**& field, PointerList list) noexcept {
    const PointerList old(std::exchange(field, list.release()));
}

std::uint32_t notify(MultiParamFit& fit, std::uint32_t code) {
    return fit.callback ? fit.callback(&fit, code) : kSuccess;
}

}  // namespace

Minimiser::Minimiser(std::uint32_t fitFlags, MultiParamCallback fitCallback, void* context) noexcept
    : MultiParamFit{} {
    flags = fitFlags;
    maxCalls = 100000;
    tolerance = 0.0001;
    step = 0.2;
    userData = context;
    callback = fitCallback;
}

Minimiser::~Minimiser() {
    release();
}

void Minimiser::release() noexcept {
    store(parameters, {});
    store(fitted, {});
    store(fittedList, {});
    parameterCount = 0;
    fittedCount = 0;
}

std::uint32_t Minimiser::setParameters(std::uint64_t count, double* const* newParameters,
                                       double* const* newFitted) {
    if (count == 0) return kSuccess;
    if (!newParameters || !newFitted) return 14;
    PointerList parameterCopy = copyList(count, newParameters);
    PointerList fittedCopy = copyList(count, newFitted);
    if (!parameterCopy || !fittedCopy) return kAllocationFailure;
    store(parameters, std::move(parameterCopy));
    store(fitted, std::move(fittedCopy));
    parameterCount = count;
    return kSuccess;
}

std::uint32_t Minimiser::setParameters(std::uint64_t count, double* const* newParameters,
                                       double* const* newFitted, MultiParamScore function) {
    scoreFunction = function;
    return setParameters(count, newParameters, newFitted);
}

std::uint32_t Minimiser::compactFitted() {
    PointerList list = tryAllocate<double*>(parameterCount);
    if (!list && parameterCount != 0) return kAllocationFailure;
    fittedCount = 0;
    for (std::uint64_t i = 0; i < parameterCount; ++i) {
        if (fitted[i]) list[fittedCount++] = fitted[i];
    }
    store(fittedList, std::move(list));
    return kSuccess;
}

std::uint32_t Minimiser::search() {
    if (method == kNoSearch) return kSuccess;
    if (method == 2 || method == 4) return 9;
    if (method != kSimplexSearch && method != kCoordinateSearch) return 11;
    if (!scoreFunction) return 20;
    calls = 0;
    const std::uint32_t status = evaluateScore(*this);
    if (status != kSuccess) return status;
    bestScore = score;
    if (fittedCount == 0) return kSuccess;
    return method == kSimplexSearch ? searchBySimplex(*this) : searchByCoordinates(*this);
}

std::uint32_t Minimiser::run(std::uint64_t searchMethod) {
    method = searchMethod;
    std::uint32_t status = compactFitted();
    if (status == kSuccess) status = search();
    const std::uint32_t answer = notify(*this, NUV64_FIT_END);
    const bool failed = status != kSuccess && status != kTooManyCalls;
    return failed || answer == kSuccess ? status : answer;
}

std::uint32_t evaluateScore(MultiParamFit& fit) {
    std::uint32_t status = fit.scoreFunction(&fit);
    if (status == kSuccess && fit.calls == 0) status = notify(fit, NUV64_FIT_BEGIN);
    if (status != kSuccess) return status;
    ++fit.calls;
    return notify(fit, NUV64_FIT_EVALUATED);
}

std::uint32_t recordBest(MultiParamFit& fit, double score) {
    fit.bestScore = score;
    return fit.flags & kReportBest ? notify(fit, NUV64_FIT_BEST) : kSuccess;
}

}  // namespace nuv64
