#include "data/zone_parameters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "core/guard.h"
#include "core/number_text.h"
#include "core/real_rounding.h"
#include "data/zone_text.h"
#include "nuv64/arrays/grid.h"
#include "nuv64/core/number_printing.h"
#include "nuv64/core/special_reals.h"

namespace nuv64 {

namespace {

constexpr std::uint32_t kMissingParameters = 21;
constexpr std::uint32_t kWrongInputFormat = 28;
constexpr std::uint64_t kLinear = 1;
constexpr std::uint64_t kLogarithmic = 2;
constexpr std::size_t kNameLimit = 511;

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isWhite(text.front())) text.remove_prefix(1);
    while (!text.empty() && isWhite(text.back())) text.remove_suffix(1);
    return text;
}

char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool isWord(std::string_view text, std::string_view word) {
    text = trimmed(text);
    return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                      [](char a, char b) { return upper(a) == upper(b); });
}

// The part behind the last "/" and before the last "." of a file name.
std::string_view bareName(std::string_view path) {
    path.remove_prefix(path.rfind('/') + 1);  // npos + 1 is 0
    return path.substr(0, path.rfind('.'));
}

std::uint32_t setReal(cKoAsciPars& pars, const char* key, double value) {
    char text[128];
    RealToBufferA(value, text, 0, 10);
    return pars.SetLine(key, text, nullptr);
}

std::uint32_t setWord(cKoAsciPars& pars, const char* key, std::string_view value) {
    return pars.SetLine(key, std::string(trimmed(value)).c_str(), nullptr);
}

double evaluated(const cKoAsciPars& pars, std::string_view text) {
    return pars.EvaluateExpression(std::string(trimmed(text)).c_str(), nullptr);
}

// Cuts off and returns the text up to the next of the separators that stands outside parentheses.
std::string_view cutPiece(std::string_view& text, std::string_view separators) {
    int depth = 0;
    std::size_t end = 0;
    for (; end < text.size(); ++end) {
        if (text[end] == '(') ++depth;
        if (text[end] == ')') --depth;
        if (depth <= 0 && separators.find(text[end]) != std::string_view::npos) break;
    }
    const std::string_view piece = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return trimmed(piece);
}

// The values behind one list, collected up to a limit; every step tells whether the text is sound.
class ListReader {
  public:
    ListReader(const cKoAsciPars& pars, std::uint64_t limit) : pars_(pars), limit_(limit) {}

    bool read(std::string_view text) {
        while (!text.empty() && values.size() < limit_) {
            std::string_view piece = cutPiece(text, ";,");
            if (piece.empty()) continue;
            std::string_view rest = piece;
            const std::string_view first = cutPiece(rest, ":");
            const bool sound = rest.empty() && first.size() == piece.size()
                                   ? addPlain(std::string(piece))
                                   : addGroup(first, rest, cutPiece(text, ";,"));
            if (!sound) return false;
        }
        return true;
    }

    std::vector<double> values;

  private:
    // An expression that takes all of the text; not-a-number otherwise.
    double whole(std::string_view text) const {
        const std::string copy(trimmed(text));
        const char* end = nullptr;
        const double value = pars_.EvaluateExpression(copy.c_str(), &end);
        return end == copy.c_str() + copy.size() ? value : ___NAN;
    }

    bool add(double value) {
        if (!std::isfinite(value)) return false;
        values.push_back(value);
        return true;
    }

    // Values apart by blanks.
    bool addPlain(const std::string& piece) {
        const char* at = piece.c_str();
        const char* const end = at + piece.size();
        while (at < end && values.size() < limit_) {
            const char* behind = at;
            if (!add(pars_.EvaluateExpression(at, &behind)) || behind <= at) return false;
            for (at = behind; at < end && isWhite(*at);) ++at;
        }
        return true;
    }

    // limits first:last with LOG:count or LIN:count behind them
    bool addGroup(std::string_view first, std::string_view last, std::string_view grid) {
        const std::string_view kind = cutPiece(grid, ":");
        if (!isWord(kind, "LOG") && !isWord(kind, "LIN")) return false;
        const std::uint64_t type = isWord(kind, "LOG") ? kLogarithmic : kLinear;
        const std::uint64_t count = clampToQword(whole(grid));
        const double from = whole(first);
        const double to = whole(last);
        for (std::uint64_t i = 0; i < count && values.size() < limit_; ++i) {
            if (!add(count == 1 ? from : RArrGridValue(i, type, count, from, to))) return false;
        }
        return count != 0;
    }

    const cKoAsciPars& pars_;
    std::uint64_t limit_;
};

}  // namespace

bool isGridWord(const char* text, const char* word) noexcept {
    return text && isWord(text, word);
}

std::uint64_t gridFromText(const char* text) noexcept {
    return isGridWord(text, "LOG") ? kLogarithmic : kLinear;
}

OwnedText experimentName(const cKoAsciPars& pars, std::uint64_t layout) {
    char value[cKoAsciPars::kValueLimit + 1];
    pars.GetText(layout == kClassicLayout ? "EXP" : "NMRD SEQUENCE NAME", value, nullptr);
    std::string_view name = layout == kClassicLayout ? std::string_view(value) : bareName(value);
    name = name.substr(0, kNameLimit);
    const auto end = std::find_if(name.begin(), name.end(),
                                  [](char c) { return static_cast<unsigned char>(c) < 33; });
    return copyText(name.data(), static_cast<std::uint64_t>(end - name.begin()));
}

std::uint32_t unpackDelays(cKoAsciPars& pars) {
    char value[cKoAsciPars::kValueLimit + 1];
    if (pars.GetText("TAU", value, nullptr) == cKoAsciPars::kNotFound) return kMissingParameters;
    std::string_view text = trimmed(value);
    if (text.empty() || text.front() != '[') return kWrongInputFormat;
    text.remove_prefix(1);
    std::array<std::string_view, 4> parts;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::size_t end = text.find(i < 3 ? ':' : ']');
        if (end == std::string_view::npos) return kWrongInputFormat;
        parts[i] = text.substr(0, end);
        text.remove_prefix(end + 1);
    }
    const double first = evaluated(pars, parts[1]) * 1e-6;
    const double last = evaluated(pars, parts[2]) * 1e-6;
    std::uint32_t status = setWord(pars, "BGRD", parts[0]);
    if (status == kSuccess) status = setReal(pars, "BINI", first);
    if (status == kSuccess) status = setReal(pars, "BEND", last);
    if (status == kSuccess) status = setWord(pars, "NBLK", parts[3]);
    return status;
}

std::vector<double> blockList(const cKoAsciPars& pars, std::string_view text, std::uint64_t limit) {
    ListReader reader(pars, limit);
    if (!reader.read(text)) return {};
    return std::move(reader.values);
}

}  // namespace nuv64
