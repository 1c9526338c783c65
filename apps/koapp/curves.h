// The curves of the zones as a table.
#pragma once

#include <string>

#include "host.h"

namespace koapp {

// One line for each point of each zone's curve: the zone's number from 1, its "BRLX", the point's
// value on the block axis, the curve's real and imaginary part and its fit; a column that a zone
// doesn't have stays empty. Only the head when no zone has a curve.
std::string curveTable(Host& host);

// True when a zone has a curve.
bool hasCurves(const Host& host) noexcept;

}  // namespace koapp
