// What the parameters of a text zone say about its node: name, delays, block axis.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/owned.h"
#include "data/parameter_block.h"

namespace nuv64 {

// Compares a parameter's text with a word, blanks around it and letter case apart.
bool isGridWord(const char* text, const char* word) noexcept;

// The grid type that a text names: 2 for "LOG" in any case, otherwise 1.
std::uint64_t gridFromText(const char* text) noexcept;

// The experiment name of a zone of this layout: a text up to the first character below 33, from EXP
// in the classic layout, otherwise from the file name in NMRD SEQUENCE NAME. Throws when memory is
// short.
OwnedText experimentName(const cKoAsciPars& pars, std::uint64_t layout);

// Spreads the delays of a headed zone, TAU = [grid:first:last:count] in microseconds, over BGRD,
// BINI, BEND (seconds) and NBLK. 21 when the key is absent, 28 for a text of another form.
std::uint32_t unpackDelays(cKoAsciPars& pars);

// The values of a block list, in seconds: groups first:last;LOG:count (or LIN), and plain values,
// separated by ";", "," or blanks; limits and values are expressions over the block. At most limit
// values; an empty list for a malformed text. Throws when memory is short.
std::vector<double> blockList(const cKoAsciPars& pars, std::string_view text, std::uint64_t limit);

}  // namespace nuv64
