#include "nuv64/evaluation/task_step.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string_view>

#include "core/guard.h"
#include "core/owned.h"
#include "evaluation/step.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/core/text_edit.h"

// Hosts build this record for themselves.
static_assert(offsetof(EvpRecord, Flags) == 8 && offsetof(EvpRecord, Mode) == 16);
static_assert(offsetof(EvpRecord, Option) == 56 && offsetof(EvpRecord, ParameterList) == 64);
static_assert(offsetof(EvpRecord, Callback1) == 72 && offsetof(EvpRecord, Source2) == 80);
static_assert(offsetof(EvpRecord, ReportText) == 88 && offsetof(EvpRecord, Work0) == 112);
static_assert(offsetof(EvpRecord, CoefficientCount) == 136 && sizeof(EvpRecord) == 176);

namespace nuv64 {

EvpRecord emptyStep() noexcept {
    EvpRecord evp{};
    evp.Procedure = kUnset;
    evp.Zone = kUnset;
    evp.Block = kUnset;
    evp.Factor = 1.0;
    return evp;
}

void releaseCoefficients(EvpRecord& evp) noexcept {
    std::free(evp.Coefficients);
    evp.Coefficients = nullptr;
    evp.CoefficientCount = 0;
}

Step::~Step() {
    std::free(ReportText);
    std::free(ParameterList);
    std::free(Option);
    releaseCoefficients(*this);
}

PointWindow pointWindow(const EvpRecord& evp, std::uint64_t points) noexcept {
    PointWindow window;
    window.count = GetEvpIpointEpoint(&evp, &window.first, &window.last, points);
    return window;
}

std::uint64_t parameterCount(const EvpRecord& evp) noexcept {
    if (!evp.ParameterList) return 0;
    const std::string_view list(evp.ParameterList);
    return 1 + static_cast<std::uint64_t>(std::count(list.begin(), list.end(), ','));
}

namespace {

// Item i of the list as it stands there, blanks included.
std::optional<std::string_view> parameterItem(const EvpRecord* evp, std::uint64_t i) noexcept {
    if (!evp || !evp->ParameterList) return std::nullopt;
    std::string_view rest(evp->ParameterList);
    for (; i != 0; --i) {
        const std::size_t comma = rest.find(',');
        if (comma == std::string_view::npos) return std::nullopt;
        rest.remove_prefix(comma + 1);
    }
    return rest.substr(0, rest.find(','));
}

// Reads item i, groomed; the failure value where it is missing or empty. Numbers are short: only
// an item that no stack buffer takes costs memory, so that a step reads the same parameters when
// memory is low.
template <class Result, class Reader>
Result readParameter(const EvpRecord* evp, std::uint64_t i, Result failure, Reader reader) {
    const std::optional<std::string_view> item = parameterItem(evp, i);
    if (!item) return failure;
    std::array<char, 512> buffer;
    OwnedText longText;
    char* text = buffer.data();
    if (item->size() >= buffer.size()) {
        longText = allocate<char>(item->size() + 1);
        text = longText.get();
    }
    item->copy(text, item->size());
    text[item->size()] = 0;
    StringGroomA(text, 0);
    return *text ? reader(text) : failure;
}

constexpr std::uint32_t kNegative = 0x80000;  // the reader's flag for a value below 0
constexpr std::int64_t kUnsetSigned = INT64_MIN;

// The "%p" form: hexadecimal digits with or without a leading 0x.
std::uintptr_t hexadecimal(std::string_view text) noexcept {
    if (text.starts_with("0x") || text.starts_with("0X")) text.remove_prefix(2);
    std::uintptr_t value = 0;
    for (const char c : text) {
        const char lower = static_cast<char>(c | 0x20);
        const bool digit = c >= '0' && c <= '9';
        if (!digit && (lower < 'a' || lower > 'f')) break;
        value = value * 16 + static_cast<std::uintptr_t>(digit ? c - '0' : lower - 'a' + 10);
    }
    return value;
}

}  // namespace
}  // namespace nuv64

using namespace nuv64;

char* NewGetEvpParameterAsString(const EvpRecord* evp, std::uint64_t i) noexcept {
    return guardValue<char*>(nullptr, [&]() -> char* {
        const std::optional<std::string_view> item = parameterItem(evp, i);
        return item ? copyText(item->data(), item->size()).release() : nullptr;
    });
}

std::uint64_t GetEvpParameterAsQword(const EvpRecord* evp, std::uint64_t i) noexcept {
    return guardValue(kUnset, [&] {
        return readParameter(evp, i, kUnset, [](const char* text) {
            std::uint32_t flags = 0;
            const std::uint64_t value = StringToQwordA(text, &flags, nullptr, 10);
            return flags & kNegative ? kUnset : value;
        });
    });
}

std::int64_t GetEvpParameterAsQlong(const EvpRecord* evp, std::uint64_t i) noexcept {
    return guardValue(kUnsetSigned, [&] {
        return readParameter(evp, i, kUnsetSigned, [](const char* text) {
            return StringToQlongA(text, nullptr, nullptr, 10);
        });
    });
}

double GetEvpParameterAsReal(const EvpRecord* evp, std::uint64_t i) noexcept {
    return guardValue(___NAN, [&] {
        return readParameter(evp, i, ___NAN, [](const char* text) {
            return StringToRealA(text, nullptr, nullptr, 10);
        });
    });
}

void* GetEvpParameterAsPointer(const EvpRecord* evp, std::uint64_t i) noexcept {
    return guardValue<void*>(nullptr, [&] {
        return readParameter<void*>(evp, i, nullptr, [](const char* text) {
            return reinterpret_cast<void*>(hexadecimal(text));
        });
    });
}

std::uint64_t GetEvpIpointEpoint(const EvpRecord* evp, std::uint64_t* ipoint, std::uint64_t* epoint,
                                 std::uint64_t n) noexcept {
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    if (n != 0) {
        first = GetEvpParameterAsQword(evp, 0);
        last = GetEvpParameterAsQword(evp, 1);
        first = first == kUnset ? 0 : std::min(first, n - 1);
        last = std::min(last, n - 1);
        if (first > last) std::swap(first, last);
    }
    if (ipoint) *ipoint = first;
    if (epoint) *epoint = last;
    return n == 0 ? 0 : last - first + 1;
}

std::uint32_t SetEvpFlags(EvpRecord* evp, std::uint32_t mask) noexcept {
    return evp ? evp->Flags |= mask : 0;
}

std::uint32_t ClearEvpFlags(EvpRecord* evp, std::uint32_t mask) noexcept {
    return evp ? evp->Flags &= ~mask : 0;
}

std::uint32_t TestEvpFlags(const EvpRecord* evp, std::uint32_t mask) noexcept {
    return evp ? evp->Flags & mask : 0;
}
