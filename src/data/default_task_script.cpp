#include "data/default_task_script.h"

namespace nuv64 {

// One line of text a row, empty rows included; every line ends in LF. A host shows and stores this
// text, so its blanks stay as they are.
const char* const kDefaultTaskScript =
    "// Cuts away points outside the window. \n"
    "# Window,   0, 0x0, 0,      , 3, -1,\n"
    "\n"
    "// mode 1: replace with a constant\n"
    "// modes 2(3): magnitude and (regularized) phase\n"
    "// modes 4(5): square magnitude and (regularized) phase\n"
    "# Function, 0, 0x0, 0,      , 0, -1, \n"
    "\n"
    "// Corrects phase/offset. par: ipoint, epoint, n coefficients\n"
    "// mode 1: phase each blocks individually\n"
    "// modes 2,3,4: phase with the strongest/last/first block as reference\n"
    "# Phasor,   0, 0x0, 0, -FFC , 0, 100, 2\n"
    "\n"
    "// mode 1: Savitsky-Golay\n"
    "# Denoising, 0, 0x0, 0,     , 0, -1, \n"
    "\n"
    "// mode 1: window average. par: ipoint, epoint\n"
    "// mode 2: Savitsky-Golay extrapolation. par: ipoint, epoint, order\n"
    "// mode 3: Chebyshev extrapolation. par: ipoint, epoint, order\n"
    "# Quantify, 0, 0x0, 0,      , 0, 15,\n"
    "\n"
    "// Creates arrayed Q(tau) data\n"
    "// mode 1: quantified blocks (multiblock experiments)\n"
    "// mode 2: filter block data (CPMG only). 1 every 10, from 3\n"
    "# QArray,   0, 0x0, 1,      , 3, 10,\n"
    "\n"
    "// mode 1: multi-exponential fit. par: ipoint, epoint, (n components, Tmin, Tmax)\n"
    "// mode 2: truncated SVD approx.  par: ipoint, epoint, n Times, Tmin, Tmax, (threshold) \n"
    "# ExpoFit,  0, 0x0, 1,      , 0, -1, 20, 1e-3, 1\n"
    "\n"
    "// Generate a data & evaluation report\n"
    "# Report,   0, 0x0, *,      , *,  *,\n"
    "\n"
    "// Export all data to a Stelar file\n"
    "# Export,   0, 0x0, *,      , *,  *, Stelar, Test.sdf\n";

}  // namespace nuv64
