// The search for a piece of text that all locating functions share.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "core/text.h"

namespace nuv64 {

// A pattern and how its characters are met. Wildcards at its ends are taken off: they are met by
// anything, also by nothing behind the end of the searched text.
//
// Blocks of the text are looked over for places where both the first and the last character of the
// pattern fit, in loops without branches that compilers vectorise, and only these places are
// compared. On texts larger than the caches this runs at the speed of memory, which no table of
// shifts does for the short patterns that are common. With a table of shifts by the last character
// (Horspool, Software: Practice and Experience 10, 501, 1980) the search steps by that instead.
template <class Ch>
class SubString {
  public:
    using View = std::basic_string_view<Ch>;
    static constexpr std::size_t npos = View::npos;

    SubString(View text, bool ignoreCase, Ch wildcard) noexcept
        : ignoreCase_(ignoreCase), wildcard_(wildcard) {
        if (wildcard != 0) {
            leading_ = std::min(text.find_first_not_of(wildcard), text.size());
            text = text.substr(leading_, text.find_last_not_of(wildcard) + 1 - leading_);
        }
        text_ = text;
        plain_ = !ignoreCase && (wildcard == 0 || text.find(wildcard) == npos);
        if (text_.empty()) return;
        first_ = bothCases(text_.front());
        last_ = bothCases(text_.back());
    }

    // Where the first match starts, the wildcards at the pattern's start with it, or npos. table
    // (may be null): for the low byte of a character how far the pattern may be moved when that
    // character stands at its last place.
    std::size_t find(View searched, const std::uint64_t* table = nullptr) const noexcept {
        if (leading_ > searched.size()) return npos;
        if (text_.empty()) return 0;
        searched.remove_prefix(leading_);
        if (text_.size() > searched.size()) return npos;
        return table ? findByTable(searched, table) : findByBlocks(searched);
    }

  private:
    static constexpr std::size_t kBlock = 64;  // characters

    struct Cases {
        Ch one = 0;
        Ch other = 0;
        bool fits(Ch ch) const noexcept { return (ch == one) | (ch == other); }
    };

    Ch folded(Ch ch) const noexcept { return ignoreCase_ ? toUpper(ch) : ch; }

    Cases bothCases(Ch ch) const noexcept {
        if (!ignoreCase_) return {ch, ch};
        return {toUpper(ch), toLower(ch)};
    }

    bool matches(const Ch* place) const noexcept {
        if (plain_) return std::memcmp(place, text_.data(), text_.size() * sizeof(Ch)) == 0;
        for (std::size_t i = 0; i < text_.size(); ++i) {
            if (wildcard_ != 0 && text_[i] == wildcard_) continue;
            if (folded(place[i]) != folded(text_[i])) return false;
        }
        return true;
    }

    // Whether a match may start within a block of places.
    bool mayStartIn(const Ch* places) const noexcept {
        using Hits = std::make_unsigned_t<Ch>;
        const Ch* const ends = places + text_.size() - 1;
        const Cases first = first_, last = last_;
        Hits hits = 0;
        if (ignoreCase_) {
            for (std::size_t i = 0; i < kBlock; ++i)
                hits = static_cast<Hits>(hits | (first.fits(places[i]) & last.fits(ends[i])));
        } else {
            for (std::size_t i = 0; i < kBlock; ++i)
                hits = static_cast<Hits>(hits | ((places[i] == first.one) & (ends[i] == last.one)));
        }
        return hits != 0;
    }

    std::size_t findByBlocks(View searched) const noexcept {
        const Ch* const start = searched.data();
        const Ch* const ends = start + text_.size() - 1;
        const std::size_t places = searched.size() - text_.size() + 1;
        for (std::size_t block = 0; block < places; block += kBlock) {
            const bool whole = places - block >= kBlock;
            if (whole && !mayStartIn(start + block)) continue;
            const std::size_t behind = whole ? block + kBlock : places;
            for (std::size_t i = block; i < behind; ++i) {
                if (first_.fits(start[i]) && last_.fits(ends[i]) && matches(start + i)) return i;
            }
        }
        return npos;
    }

    std::size_t findByTable(View searched, const std::uint64_t* table) const noexcept {
        const std::size_t places = searched.size() - text_.size() + 1;
        const Ch* const ends = searched.data() + text_.size() - 1;
        for (std::size_t i = 0; i < places;) {
            const Ch end = ends[i];
            if (last_.fits(end) && matches(searched.data() + i)) return i;
            const std::uint64_t shift = table[folded(end) & 0xFF];
            if (shift >= places - i) break;
            i += shift != 0 ? shift : 1;  // a table of zeros must not stop the search
        }
        return npos;
    }

    View text_;
    std::size_t leading_ = 0;
    bool ignoreCase_;
    bool plain_ = false;
    Ch wildcard_;
    Cases first_;
    Cases last_;
};

}  // namespace nuv64
