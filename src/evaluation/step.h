// What the engine and the procedures share of a step: its life, its window, its report.
#pragma once

#include <cstdint>
#include <new>

#include "nuv64/core/formatter.h"
#include "nuv64/evaluation/task_step.h"

namespace nuv64 {

inline constexpr std::uint64_t kUnset = UINT64_MAX;

// The state of a step before its text is read.
EvpRecord emptyStep() noexcept;
void releaseCoefficients(EvpRecord& evp) noexcept;

// A step whose texts and coefficients live as long as it does.
class Step : public EvpRecord {
  public:
    Step() noexcept : EvpRecord(emptyStep()) {}
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    ~Step();
};

// A range of points, both ends included.
struct PointWindow {
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    std::uint64_t count = 0;
};

// Parameters 0 and 1 of the step over that many points.
PointWindow pointWindow(const EvpRecord& evp, std::uint64_t points) noexcept;

// Items of the parameter list, empty ones too; 0 without a list.
std::uint64_t parameterCount(const EvpRecord& evp) noexcept;

// Most procedures report once for a step, on the first node that they meet.
inline bool reportIsEmpty(const EvpRecord& evp) noexcept {
    return !evp.ReportText || !*evp.ReportText;
}

// Appends to the report text; throws std::bad_alloc.
template <class... Arguments>
void report(EvpRecord& evp, const char* format, Arguments... arguments) {
    if (!SprintfAppendA(&evp.ReportText, format, arguments...)) throw std::bad_alloc();
}

// Numbers in the width that %llu and %u of the formatter take.
inline unsigned long long wide(std::uint64_t value) noexcept {
    return value;
}
inline std::uint32_t narrow(std::uint64_t value) noexcept {
    return static_cast<std::uint32_t>(value);
}

}  // namespace nuv64
