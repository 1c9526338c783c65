// The minimiser behind the MultiParamFit record: owns its lists, runs the searches.
#pragma once

#include <cstdint>

#include "nuv64/fits/multi_param_fit.h"

namespace nuv64 {

inline constexpr std::uint32_t kTooManyCalls = 73;  // counts as success for most callers
inline constexpr std::uint32_t kReportBest = 0x80000000;

// Search methods.
inline constexpr std::uint64_t kNoSearch = 0;
inline constexpr std::uint64_t kSimplexSearch = 1;
inline constexpr std::uint64_t kCoordinateSearch = 3;

// Every fit of the module lets userData point at a record that begins with this, so that one
// progress monitor serves all of them. monitor is whatever the fit's caller handed in, null mostly.
struct FitContext {
    void* monitor = nullptr;
};

class Minimiser : public MultiParamFit {
  public:
    Minimiser(std::uint32_t flags, MultiParamCallback callback, void* userData) noexcept;
    Minimiser(const Minimiser&) = delete;
    Minimiser& operator=(const Minimiser&) = delete;
    ~Minimiser();

    // Copies both lists of count pointers, in place of what was set before; 14 when one is missing.
    // A count of 0 does nothing. The caller's values must outlive the searches. 0x80001 leaves what
    // was set before.
    std::uint32_t setParameters(std::uint64_t count, double* const* parameters,
                                double* const* fitted);
    // The same with the function to be minimised, which is taken in any case.
    std::uint32_t setParameters(std::uint64_t count, double* const* parameters,
                                double* const* fitted, MultiParamScore scoreFunction);

    // Searches from where the parameters stand and leaves them at the best place found. Code 64
    // goes to the callback at the end whatever happened; its answer becomes the status unless the
    // search failed already. Status: 0; 73 the limit of calls was reached, with the best place
    // found loaded all the same; 9 methods 2 and 4; 11 other methods; 20 no score function;
    // 0x80001; or what the score function or the callback gave. With nothing to fit the score is
    // evaluated once.
    std::uint32_t run(std::uint64_t method);

    // Frees the lists; the record is as after construction, but for its settings.
    void release() noexcept;

  private:
    std::uint32_t search();
    std::uint32_t compactFitted();
};

// One evaluation at the parameters as they stand: counts it and lets the callback know.
std::uint32_t evaluateScore(MultiParamFit& fit);

// Takes score as the new best one; the callback hears of it where bit 31 of flags asks for that, so
// that the parameters must then stand at its place.
std::uint32_t recordBest(MultiParamFit& fit, double score);

// The searches, over fit.fittedList, which must not be empty.
std::uint32_t searchBySimplex(MultiParamFit& fit);
std::uint32_t searchByCoordinates(MultiParamFit& fit);

}  // namespace nuv64
