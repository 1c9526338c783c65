#include "data/parameter_block.h"

#include <algorithm>
#include <cmath>

#include "core/expression.h"
#include "core/guard.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/core/text_edit.h"
#include "nuv64/numeric/real_rounding.h"

namespace {

constexpr char kLineEnd = '\r';
constexpr std::uint32_t kMissingItem = 12;
constexpr std::uint32_t kMissingOutput = 18;
constexpr std::uint32_t kMissingParameters = 21;
constexpr std::uint32_t kMissingArguments = 22;
constexpr std::uint32_t kWrongInputFormat = 28;
constexpr std::uint32_t kNumUnderflow = 0x200;  // negative or not a number

std::string_view viewOf(const char* text) {
    return text ? std::string_view(text) : std::string_view();
}

// Copies at most limit characters of text and terminates; a null target takes nothing.
void handOut(std::string_view text, char* target, std::size_t limit) {
    if (!target) return;
    const std::size_t length = std::min(text.size(), limit);
    text.copy(target, length);
    target[length] = 0;
}

// Cuts off and returns the text before the first separator, or all of it; the separator goes too.
std::string_view cutField(std::string_view& text, char separator) {
    const std::size_t at = text.find(separator);
    const std::string_view field = text.substr(0, at);
    text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
    return field;
}

std::string_view lineAt(std::string_view text, std::size_t start) {
    text.remove_prefix(start);
    return text.substr(0, text.find(kLineEnd));
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

// What the formulas of one evaluation share. They may use each other, and a block comes from a
// file: a formula that leads back to itself, or doubles its work at every step, ends as
// not-a-number.
struct cKoAsciPars::Evaluation {
    const cKoAsciPars* block = nullptr;
    nuv64::ExpressionChain chain;
};

cKoAsciPars::~cKoAsciPars() = default;

void cKoAsciPars::Clear() noexcept {
    Text.reset();
    LineCount = 0;
    Capacity = 0;
    Length = UINT64_MAX;
}

// Makes room for need more characters behind the lines, and the first CR in an empty block. The
// block is unchanged when memory is short.
std::uint32_t cKoAsciPars::reserve(std::uint64_t need) {
    const std::uint64_t used = Text ? Length : 1;
    std::uint64_t capacity = Text ? Capacity : std::max<std::uint64_t>(GrowthStep, 1);
    if (used + need > capacity) capacity = used + GrowthStep + need;
    if (Text && capacity == Capacity) return nuv64::kSuccess;
    nuv64::OwnedText grown = nuv64::tryAllocate<char>(capacity + 1);
    if (!grown) return nuv64::kAllocationFailure;
    if (Text) {
        std::memcpy(grown.get(), Text.get(), used);
    } else {
        grown[0] = kLineEnd;
    }
    grown[used] = 0;
    Text = std::move(grown);
    Capacity = capacity;
    Length = used;
    return nuv64::kSuccess;
}

void cKoAsciPars::append(std::string_view text) noexcept {
    text.copy(Text.get() + Length, text.size());
    Length += text.size();
    Text[Length] = 0;
}

std::uint32_t cKoAsciPars::AddText(const char* text) {
    const std::string_view lines = viewOf(text);
    if (lines.empty()) return nuv64::kSuccess;
    const std::uint32_t status = reserve(lines.size() + 1);
    if (status != nuv64::kSuccess) return status;
    append(lines);
    append("\r");
    LineCount += static_cast<std::uint64_t>(std::count(lines.begin(), lines.end(), kLineEnd)) + 1;
    return nuv64::kSuccess;
}

std::uint32_t cKoAsciPars::AddLine(const char* key, const char* value, const char* comment) {
    const std::string_view keyText = viewOf(key);
    const std::string_view valueText = viewOf(value);
    const std::string_view commentText = viewOf(comment);
    if (keyText.empty()) return nuv64::kSuccess;
    const std::uint32_t status =
        reserve(keyText.size() + valueText.size() + commentText.size() + 3);
    if (status != nuv64::kSuccess) return status;
    append(keyText);
    append("=");
    if (!valueText.empty()) {
        append(valueText);
        append("=");
    }
    append(commentText);
    append("\r");
    ++LineCount;
    return nuv64::kSuccess;
}

std::uint64_t cKoAsciPars::FindValue(const char* key) const {
    const std::string_view name = viewOf(key);
    const std::string_view text = View();
    if (name.empty()) return kNotFound;
    for (std::size_t end = text.find(kLineEnd); end != std::string_view::npos;
         end = text.find(kLineEnd, end + 1)) {
        const std::size_t behind = end + 1 + name.size();
        if (behind < text.size() && text[behind] == '=' &&
            text.compare(end + 1, name.size(), name) == 0) {
            return behind + 1;
        }
    }
    return kNotFound;
}

std::uint32_t cKoAsciPars::DeleteLine(const char* key) {
    const std::uint64_t value = FindValue(key);
    if (value == kNotFound) return kMissingParameters;
    const std::uint64_t start = value - 1 - viewOf(key).size();
    const std::uint64_t end = std::min(value + lineAt(View(), value).size() + 1, Length);
    std::memmove(Text.get() + start, Text.get() + end, Length - end + 1);
    Length -= end - start;
    --LineCount;
    return nuv64::kSuccess;
}

std::uint32_t cKoAsciPars::SetLine(const char* key, const char* value, const char* comment) {
    const std::uint32_t status = DeleteLine(key);
    if (status != nuv64::kSuccess && status != kMissingParameters) return status;
    return AddLine(key, value, comment);
}

std::uint64_t cKoAsciPars::GetText(const char* key, char* value, char* comment) const {
    handOut({}, value, 0);
    handOut({}, comment, 0);
    const std::uint64_t start = FindValue(key);
    if (start == kNotFound) return kNotFound;
    std::string_view line = lineAt(View(), start);
    const std::uint64_t behind = std::min(start + line.size() + 1, Length);
    handOut(cutField(line, '='), value, kValueLimit);
    handOut(line, comment, kKeyLimit);
    return behind;
}

double cKoAsciPars::GetReal(const char* key) const {
    Evaluation evaluation;
    evaluation.block = this;
    return readReal(key, evaluation);
}

double cKoAsciPars::readReal(const char* key, Evaluation& evaluation) const {
    char value[kValueLimit + 1];
    if (GetText(key, value, nullptr) == kNotFound) return ___NAN;
    StringGroomA(value, 0);
    if (value[0] == '(') return evaluate(value, nullptr, evaluation);
    return StringToRealA(value, nullptr, nullptr, 10);
}

std::uint64_t cKoAsciPars::GetInteger(const char* key) const {
    std::uint32_t flags = 0;
    const std::uint64_t value = uRealRoundToQword(GetReal(key), &flags);
    return (flags & kNumUnderflow) != 0 ? UINT64_MAX : value;
}

std::uint32_t cKoAsciPars::GetRealVector(const char* key, double* values, std::uint64_t n) const {
    if (!values && n != 0) return kMissingOutput;
    const std::uint64_t start = FindValue(key);
    if (start == kNotFound) return kMissingItem;
    const std::string_view line = lineAt(View(), start);
    const std::string_view list = line.substr(0, line.find('='));
    std::size_t at = 0;
    for (std::uint64_t i = 0; i < n; ++i) {
        while (at < list.size() && !isDigit(list[at])) ++at;
        if (at == list.size()) return kWrongInputFormat;
        std::uint64_t consumed = 0;
        values[i] = StringToRealA(list.data() + at, nullptr, &consumed, 10);
        if (consumed == 0) return kWrongInputFormat;
        at = std::min(at + consumed, list.size());
    }
    return nuv64::kSuccess;
}

std::uint64_t cKoAsciPars::NextLine(std::uint64_t position, char* key, char* value,
                                    char* comment) const {
    handOut({}, key, 0);
    handOut({}, value, 0);
    handOut({}, comment, 0);
    const std::string_view text = View();
    if (position >= text.size()) return kNotFound;
    const std::size_t before = text.find(kLineEnd, position);
    if (before == std::string_view::npos || before + 1 >= text.size()) return kNotFound;
    std::string_view line = lineAt(text, before + 1);
    const std::uint64_t end = before + 1 + line.size();
    handOut(cutField(line, '='), key, kKeyLimit);
    handOut(cutField(line, '='), value, kLongValueLimit);
    handOut(line, comment, kKeyLimit);
    return end;
}

std::uint32_t cKoAsciPars::CopyFrom(const cKoAsciPars* other) {
    if (!other) return kMissingArguments;
    if (other == this) return nuv64::kSuccess;
    Clear();
    if (!other->Text) return nuv64::kSuccess;
    nuv64::OwnedText copy = nuv64::tryAllocate<char>(other->Length + 1);
    if (!copy) return nuv64::kAllocationFailure;
    std::memcpy(copy.get(), other->Text.get(), other->Length + 1);
    Text = std::move(copy);
    LineCount = other->LineCount;
    Length = other->Length;
    Capacity = Length;
    return nuv64::kSuccess;
}

double cKoAsciPars::variable(const char* name, void* context) {
    Evaluation& evaluation = *static_cast<Evaluation*>(context);
    return evaluation.block->readReal(name, evaluation);
}

double cKoAsciPars::evaluate(const char* text, const char** end, Evaluation& evaluation) const {
    if (end) *end = text;
    if (!text) return ___NAN;
    cKoExpression expression;
    expression.context = &evaluation;
    expression.chain = &evaluation.chain;
    expression.getVariable = variable;
    const double result = expression.Evaluate(text, end);
    return expression.error != 0 ? ___NAN : result;
}

double cKoAsciPars::EvaluateExpression(const char* text, const char** end) const {
    Evaluation evaluation;
    evaluation.block = this;
    return evaluate(text, end, evaluation);
}
