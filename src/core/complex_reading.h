// Reading a complex number "(re, im)".
#pragma once

#include <cstdint>

#include "core/number_text.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/special_reals.h"

namespace nuv64 {

inline double partOfText(const char16_t* text, std::uint32_t* flags,
                         std::uint64_t* consumed) noexcept {
    return StringToReal(text, flags, consumed, 10);
}
inline double partOfText(const char* text, std::uint32_t* flags, std::uint64_t* consumed) noexcept {
    return StringToRealA(text, flags, consumed, 10);
}

// Walks along the text of a complex number and notes what is wrong with it.
template <class Ch>
class ComplexReader {
  public:
    explicit ComplexReader(const Ch* text) noexcept : text_(text) {}

    // The report in NUM_ bits. z is set to the number, or to ___NAN in both parts.
    std::uint32_t read(Complex& z) noexcept {
        z = {___NAN, ___NAN};
        double re = 0.0, im = 0.0;
        if (!text_ || !take('(') || !part(re) || !take(',') || !part(im) || !take(')'))
            return report_;
        z = {re, im};
        return text_[at_] == 0 ? 0 : NUM_ILLEGALCHAR;
    }
    std::uint64_t consumed() const noexcept { return at_; }

  private:
    bool take(char wanted) noexcept {
        while (text_[at_] != 0 && isWhite(text_[at_])) ++at_;
        if (text_[at_] == static_cast<Ch>(wanted)) return ++at_, true;
        report_ |= NUM_NOSTRUCT | NUM_ILLEGALCHAR;
        return false;
    }

    bool part(double& value) noexcept {
        std::uint32_t flags = 0;
        std::uint64_t consumed = 0;
        value = partOfText(text_ + at_, &flags, &consumed);
        at_ += consumed;
        if (!(flags & (NUM_UNDEFINED | NUM_OVERFLOW))) return true;
        report_ = flags | NUM_NOSTRUCT;
        return false;
    }

    const Ch* text_;
    std::uint64_t at_ = 0;
    std::uint32_t report_ = NUM_UNDEFINED | NUM_NOSTRUCT;
};

}  // namespace nuv64
