// The search for a piece of text that all locating functions share.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "core/text.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace nuv64 {

// A pattern and how its characters are met. Wildcards at its ends are taken off: they are met by
// anything, also by nothing behind the end of the searched text.
//
// A vector of places is looked at together: four characters of the pattern, from its first to its
// last, are compared with what stands at their distances from each place, and only where all four
// fit the rest is compared. On texts larger than the caches this runs near the speed of memory,
// whatever the pattern's length; skipping by a table of shifts (Boyer and Moore, Communications of
// the ACM 20, 762, 1977), which it replaced, was two to twenty times slower for the common short
// patterns and only as fast for very long ones.
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
        for (std::size_t i = 0; i < kProbes && !text.empty(); ++i)
            probes_[i] = probeAt((text.size() - 1) * i / (kProbes - 1));
    }

    // Where the first match starts, the wildcards at the pattern's start with it, or npos.
    std::size_t find(View searched) const noexcept {
        if (leading_ > searched.size()) return npos;
        if (text_.empty()) return 0;
        searched.remove_prefix(leading_);
        if (text_.size() > searched.size()) return npos;
        const std::size_t places = searched.size() - text_.size() + 1;
        return ignoreCase_ ? search<true>(searched.data(), places)
                           : search<false>(searched.data(), places);
    }

  private:
    static constexpr std::size_t kProbes = 4;

    // A character of the pattern, in both cases when case doesn't count, and where it stands.
    struct Probe {
        std::size_t offset = 0;
        Ch one = 0;
        Ch other = 0;
    };

    Probe probeAt(std::size_t offset) const noexcept {
        if (wildcard_ != 0 && text_[offset] == wildcard_) offset = 0;
        const Ch ch = text_[offset];
        return ignoreCase_ ? Probe{offset, toUpper(ch), toLower(ch)} : Probe{offset, ch, ch};
    }

    Ch folded(Ch ch) const noexcept { return ignoreCase_ ? toUpper(ch) : ch; }

    bool matches(const Ch* place) const noexcept {
        if (plain_) return std::memcmp(place, text_.data(), text_.size() * sizeof(Ch)) == 0;
        for (std::size_t i = 0; i < text_.size(); ++i) {
            if (wildcard_ != 0 && text_[i] == wildcard_) continue;
            if (folded(place[i]) != folded(text_[i])) return false;
        }
        return true;
    }

    bool fits(const Ch* place, const Probe& probe) const noexcept {
        return place[probe.offset] == probe.one || place[probe.offset] == probe.other;
    }

#if defined(__SSE2__)
    static __m128i equal(__m128i a, __m128i b) noexcept {
        if constexpr (sizeof(Ch) == 1) {
            return _mm_cmpeq_epi8(a, b);
        } else {
            return _mm_cmpeq_epi16(a, b);
        }
    }
    static __m128i everywhere(Ch ch) noexcept {
        if constexpr (sizeof(Ch) == 1) {
            return _mm_set1_epi8(ch);
        } else {
            return _mm_set1_epi16(static_cast<short>(ch));
        }
    }

    template <bool ignoreCase>
    std::size_t search(const Ch* text, std::size_t places) const noexcept {
        constexpr std::size_t kStep = 16 / sizeof(Ch);
        constexpr unsigned kOneBitEach = sizeof(Ch) == 1 ? 0xFFFF : 0x5555;
        __m128i ones[kProbes], others[kProbes];
        for (std::size_t i = 0; i < kProbes; ++i) {
            ones[i] = everywhere(probes_[i].one);
            others[i] = everywhere(probes_[i].other);
        }
        std::size_t place = 0;
        for (; places - place >= kStep; place += kStep) {
            __m128i fit = _mm_set1_epi8(-1);
            for (std::size_t i = 0; i < kProbes; ++i) {
                const auto* const at =
                    reinterpret_cast<const __m128i*>(text + place + probes_[i].offset);
                const __m128i characters = _mm_loadu_si128(at);
                __m128i equals = equal(characters, ones[i]);
                if constexpr (ignoreCase)
                    equals = _mm_or_si128(equals, equal(characters, others[i]));
                fit = _mm_and_si128(fit, equals);
            }
            auto hits = static_cast<unsigned>(_mm_movemask_epi8(fit)) & kOneBitEach;
            for (; hits != 0; hits &= hits - 1) {
                const std::size_t hit =
                    place + static_cast<std::size_t>(std::countr_zero(hits)) / sizeof(Ch);
                if (matches(text + hit)) return hit;
            }
        }
        return searchOneByOne(text, place, places);
    }
#else
    template <bool>
    std::size_t search(const Ch* text, std::size_t places) const noexcept {
        return searchOneByOne(text, 0, places);
    }
#endif

    std::size_t searchOneByOne(const Ch* text, std::size_t place,
                               std::size_t places) const noexcept {
        for (; place < places; ++place) {
            const Ch* const at = text + place;
            if (fits(at, probes_.front()) && fits(at, probes_.back()) && matches(at)) return place;
        }
        return npos;
    }

    View text_;
    std::size_t leading_ = 0;
    bool ignoreCase_;
    bool plain_ = false;
    Ch wildcard_;
    std::array<Probe, kProbes> probes_;
};

}  // namespace nuv64
