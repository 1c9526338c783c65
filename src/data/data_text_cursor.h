// A cursor that runs through the data text of a zone, number by number and line by line.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

#include "core/number_text.h"
#include "nuv64/core/special_reals.h"

namespace nuv64 {

// Numbers are read only inside the current line; a missing one is ___NAN and the cursor stays. The
// text must be terminated.
class DataTextCursor {
  public:
    explicit DataTextCursor(std::string_view text) noexcept
        : at_(text.data()), end_(text.data() + text.size()) {}

    bool atEnd() const noexcept { return at_ == end_; }

    double number() noexcept {
        while (at_ != end_ && isWhite(*at_) && *at_ != '\r' && *at_ != '\n') ++at_;
        return at_ == end_ ? ___NAN : shortInteger(at_);
    }

    void nextLine() noexcept {
        if (end_ - at_ >= 2 && at_[0] == '\r' && at_[1] == '\n') {
            at_ += 2;
            return;
        }
        const void* lineEnd =
            at_ == end_ ? nullptr : std::memchr(at_, '\n', static_cast<std::size_t>(end_ - at_));
        at_ = lineEnd ? static_cast<const char*>(lineEnd) + 1 : end_;
    }

  private:
    // Nearly every number in such files is a whole number of a few digits; all others go the
    // general way.
    double shortInteger(const char* p) noexcept {
        const bool negative = *p == '-';
        p += negative;
        unsigned digit = static_cast<unsigned char>(*p) - unsigned{'0'};
        unsigned value = digit;
        if (digit <= 9) {
            const char* const limit = p + 9;
            while ((digit = static_cast<unsigned char>(*++p) - unsigned{'0'}) <= 9 && p != limit) {
                value = value * 10 + digit;
            }
            if (static_cast<unsigned char>(*p) <= ' ') {
                at_ = p;
                const double real = value;
                return negative ? -real : real;
            }
        }
        return readReal(at_, end_, &at_);
    }

    const char* at_;
    const char* end_;
};

}  // namespace nuv64
