// The parameter block of a node: lines KEY=VALUE=COMMENT in one text, searched as text on every
// access. Parameters are few; there is no index.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/object.h"
#include "core/owned.h"

// Text begins with one CR and every line ends with one CR. A line is KEY=VALUE=COMMENT, KEY=VALUE=,
// or KEY=COMMENT when the value was empty at the time of writing: that comment is read back as the
// value. Keys are compared exactly; the first of two lines with one key hides the second.
struct cKoAsciPars : cKoObject {
    static constexpr std::uint64_t kNotFound = UINT64_MAX;
    static constexpr std::size_t kKeyLimit = 1023;    // characters of a key or comment handed out
    static constexpr std::size_t kValueLimit = 1023;  // GetText
    static constexpr std::size_t kLongValueLimit = 4095;  // NextLine

    cKoAsciPars() noexcept = default;
    ~cKoAsciPars() override;

    void Clear() noexcept;
    // Appends a text of whole lines and a CR, literally. Null and empty texts add nothing.
    std::uint32_t AddText(const char* text);
    // Null counts as empty; an empty key adds nothing.
    std::uint32_t AddLine(const char* key, const char* value, const char* comment);
    // The index of the character behind KEY= at the start of a line, or kNotFound.
    std::uint64_t FindValue(const char* key) const;
    // 21 when no line has this key.
    std::uint32_t DeleteLine(const char* key);
    // Replaces the first line of this key, or adds one; the line moves to the end.
    std::uint32_t SetLine(const char* key, const char* value, const char* comment);
    // value: room for 1024 characters; comment likewise; both may be null and are emptied first.
    // The index behind the line, or kNotFound.
    std::uint64_t GetText(const char* key, char* value, char* comment) const;
    // A number, or a formula when the value begins with "("; not-a-number when absent or
    // unreadable.
    double GetReal(const char* key) const;
    // All ones when absent, negative or not a number.
    std::uint64_t GetInteger(const char* key) const;
    // Reads n numbers, each from the next digit on: a sign or a point in front of it is lost.
    // 12 when the key is absent, 28 when there are fewer numbers, 18 for null values.
    std::uint32_t GetRealVector(const char* key, double* values, std::uint64_t n) const;
    // Reads the line behind the next CR and returns the index of the CR that ends it, kNotFound at
    // the end; starting at 0 visits all lines. key, comment: room for 1024 characters; value: for
    // 4096; each may be null.
    std::uint64_t NextLine(std::uint64_t position, char* key, char* value, char* comment) const;
    // 22, and nothing changed, for null. A failure leaves the block empty.
    std::uint32_t CopyFrom(const cKoAsciPars* other);

    // Evaluates a formula text with the keys of this block as variables; not-a-number on an error
    // and for a formula that refers to itself. *end (may be null) is set behind the text consumed.
    double EvaluateExpression(const char* text, const char** end) const;

    std::string_view View() const noexcept {
        return Text ? std::string_view(Text.get(), Length) : std::string_view();
    }

    nuv64::OwnedText Text;
    std::uint64_t LineCount = 0;
    std::uint64_t Capacity = 0;         // characters that Text holds besides its terminator
    std::uint64_t Length = UINT64_MAX;  // all ones while empty
    std::uint32_t GrowthStep = 10000;

  private:
    struct Evaluation;
    static double variable(const char* name, void* context);
    double evaluate(const char* text, const char** end, Evaluation& evaluation) const;
    double readReal(const char* key, Evaluation& evaluation) const;
    std::uint32_t reserve(std::uint64_t need);
    void append(std::string_view text) noexcept;
};
