// The parameter block of a node: lines KEY=VALUE=COMMENT in one text, searched as text on every
// access. Parameters are few; there is no index.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/object.h"
#include "core/owned.h"

struct cKoAsciPars : cKoObject {
    static constexpr std::uint64_t kNotFound = UINT64_MAX;
    static constexpr std::size_t kKeyLimit = 1023;      // characters of a key or comment handed out
    static constexpr std::size_t kValueLimit = 1023;    // GetText
    static constexpr std::size_t kLongValueLimit = 4095;  // NextLine

    cKoAsciPars() noexcept = default;
    ~cKoAsciPars() override;

    void Clear() noexcept;
    std::uint32_t AddText(const char* text);
    std::uint32_t AddLine(const char* key, const char* value, const char* comment);
    std::uint64_t FindValue(const char* key) const;
    std::uint32_t DeleteLine(const char* key);
    std::uint32_t SetLine(const char* key, const char* value, const char* comment);
    // value: room for 1024 characters; comment likewise, or null.
    std::uint64_t GetText(const char* key, char* value, char* comment) const;
    double GetReal(const char* key) const;
    std::uint64_t GetInteger(const char* key) const;
    std::uint32_t GetRealVector(const char* key, double* values, std::uint64_t n) const;
    // key, comment: room for 1024 characters; value: for 4096; comment may be null.
    std::uint64_t NextLine(std::uint64_t position, char* key, char* value, char* comment) const;
    std::uint32_t CopyFrom(const cKoAsciPars* other);

    // Evaluates a formula text with the keys of this block as variables; not-a-number on an error.
    // *end (may be null) is set behind the text consumed.
    double EvaluateExpression(const char* text, const char** end) const;

    nuv64::OwnedText Text;
    std::uint64_t LineCount = 0;
    std::uint64_t Capacity = 0;
    std::uint64_t Length = UINT64_MAX;  // all ones while empty
    std::uint32_t GrowthStep = 10000;
};
