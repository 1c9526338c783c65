// C's printf conversions of reals, the same on every system.
#pragma once

#include <string>

namespace nuv64 {

// The digits of a magnitude (sign excluded, not-a-number and infinity included) as the conversions
// a, e, f, g of C write them; capitals for A, E, F, G. precision below 0 is the conversion's
// default. alternate is the "#" flag. "0x" of the conversions a and A is not part of it.
// Throws std::bad_alloc.
std::string formatMagnitude(double magnitude, char conversion, int precision, bool alternate);

}  // namespace nuv64
