// The search for a piece of text that all locating functions share.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "core/text.h"
#include "platform/character_vector.h"

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

#if defined(NUV64_CHARACTER_VECTORS)
    using Vector = platform::CharacterVector<Ch>;

    struct VectorProbe {
        std::size_t offset;
        Vector one, other;
        explicit VectorProbe(const Probe& probe) noexcept
            : offset(probe.offset), one(Vector::all(probe.one)), other(Vector::all(probe.other)) {}

        template <bool ignoreCase>
        Vector fits(const Ch* places) const noexcept {
            const Vector characters = Vector::load(places + offset);
            if constexpr (ignoreCase) return (characters == one) | (characters == other);
            return characters == one;
        }
    };

    template <bool ignoreCase>
    std::size_t search(const Ch* text, std::size_t places) const noexcept {
        const VectorProbe a(probes_[0]), b(probes_[1]), c(probes_[2]), d(probes_[3]);
        std::size_t place = 0;
        for (; places - place >= Vector::kSize; place += Vector::kSize) {
            const Ch* const at = text + place;
            const Vector fit = a.template fits<ignoreCase>(at) & b.template fits<ignoreCase>(at) &
                               c.template fits<ignoreCase>(at) & d.template fits<ignoreCase>(at);
            for (unsigned hits = fit.places(); hits != 0; hits &= hits - 1) {
                const std::size_t hit = Vector::placeOf(hits);
                if (matches(at + hit)) return place + hit;
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
