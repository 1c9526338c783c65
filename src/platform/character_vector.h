// As many characters as one register of the processor holds, compared at once. Where there are no
// such registers NUV64_CHARACTER_VECTORS is not defined, and callers go character by character.
#pragma once

#include <bit>
#include <cstddef>

#if defined(__SSE2__)
#define NUV64_CHARACTER_VECTORS 1
#include <emmintrin.h>

namespace nuv64::platform {

template <class Ch>
class CharacterVector {
    static_assert(sizeof(Ch) <= 2);

  public:
    static constexpr std::size_t kSize = 16 / sizeof(Ch);

    // The characters from text on, kSize of which must be readable.
    static CharacterVector load(const Ch* text) noexcept {
        return CharacterVector(_mm_loadu_si128(reinterpret_cast<const __m128i*>(text)));
    }
    static CharacterVector all(Ch ch) noexcept {
        if constexpr (sizeof(Ch) == 1) {
            return CharacterVector(_mm_set1_epi8(static_cast<char>(ch)));
        } else {
            return CharacterVector(_mm_set1_epi16(static_cast<short>(ch)));
        }
    }

    // All bits set where the characters are equal, none elsewhere.
    CharacterVector operator==(CharacterVector other) const noexcept {
        if constexpr (sizeof(Ch) == 1) {
            return CharacterVector(_mm_cmpeq_epi8(bits_, other.bits_));
        } else {
            return CharacterVector(_mm_cmpeq_epi16(bits_, other.bits_));
        }
    }
    CharacterVector operator|(CharacterVector other) const noexcept {
        return CharacterVector(_mm_or_si128(bits_, other.bits_));
    }
    CharacterVector operator&(CharacterVector other) const noexcept {
        return CharacterVector(_mm_and_si128(bits_, other.bits_));
    }

    // One bit for each place of a comparison where it held; see placeOf.
    unsigned places() const noexcept {
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(bits_));
        return sizeof(Ch) == 1 ? mask : mask & 0x5555;
    }
    // The first place in what places gave, which is not 0.
    static std::size_t placeOf(unsigned places) noexcept {
        return static_cast<std::size_t>(std::countr_zero(places)) / sizeof(Ch);
    }

  private:
    explicit CharacterVector(__m128i bits) noexcept : bits_(bits) {}
    __m128i bits_;
};

}  // namespace nuv64::platform
#endif
