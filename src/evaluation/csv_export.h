// Writes a node, a zone of blocks or a result node as a table of comma-separated text.
#pragma once

#include <cstdint>

#include "nuv64/core/types.h"

namespace nuv64 {

enum CsvFlags : std::uint32_t {
    CsvWholeZone = 0x1,     // the blocks of a zone side by side, their numbers above them
    CsvEvaluated = 0x2,     // the node's result node; wins over the blocks of a zone
    CsvChannelRow = 0x4,    // a row "Chn" with channel numbers
    CsvNoAxis = 0x8,        // without channel 0
    CsvOneAxis = 0x10,      // channel 0 for the first block of a zone only
    CsvTwoChannels = 0x20,  // at most 2 channels and 2 results
    CsvKindRow = 0x40,      // a row "Flags" with the channel kinds
    CsvPointTags = 0x80,    // a first column with the point tags, hexadecimal
    CsvStatistics = 0x100,  // ten rows "Qval" with the channel statistics
    CsvResults = 0x200,     // the node's results, one a line
};

// path is a wide file name, or null to ask the user (63 when that is cancelled). Lines end in CR
// LF, reals have six digits. The node remembers the path. Status: 14 with nothing to write, 59 for
// a name that can't be, 48 for a file that exists already or can't be made. A node without the
// target that the flags ask for is left alone, status 0. Writing itself is not watched: a disk that
// fills up leaves a table cut short, status 0.
std::uint32_t ExportNodeCsv(cKoData* node, std::uint32_t flags, const char16_t* path);

}  // namespace nuv64
