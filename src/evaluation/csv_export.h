// Writes a node, a zone of blocks or a result node as a table of comma-separated text.
#pragma once

#include <cstdint>

#include "nuv64/core/types.h"

namespace nuv64 {

enum CsvFlags : std::uint32_t {
    CsvWholeZone = 0x1,
    CsvEvaluated = 0x2,
    CsvChannelRow = 0x4,
    CsvNoAxis = 0x8,
    CsvOneAxis = 0x10,
    CsvTwoChannels = 0x20,
    CsvKindRow = 0x40,
    CsvPointTags = 0x80,
    CsvStatistics = 0x100,
    CsvResults = 0x200,
};

// path is a wide file name, or null to ask the user.
std::uint32_t ExportNodeCsv(cKoData* node, std::uint32_t flags, const char16_t* path);

}  // namespace nuv64
