// The procedures that a step can name, and the one table that finds them.
#pragma once

#include <cstdint>

#include "nuv64/core/types.h"

namespace nuv64 {

// A pass works on one node. Long fits report to the block and can be stopped by it; it is null
// when no host is there.
using Pass = std::uint32_t (*)(cKoData& node, EvpRecord& evp, NuvCommandBlock* block);

enum ProcedureId : std::uint32_t {
    NoProcedure = 0,
    FitProcedure = 6,
    IltProcedure = 7,
    ExportProcedure = 100,
};

struct Procedure {
    std::uint32_t id;
    const char* name;
    Pass prePass;    // null: nothing to prepare
    Pass blockPass;  // null: nothing to do
};

// Null for an id that the table doesn't hold.
const Procedure* findProcedure(std::uint64_t id) noexcept;
// The first procedure whose name the text begins with; 0xFFFFFFFF when there is none.
std::uint32_t procedureIdFromName(const char* text) noexcept;
// Empty for an id that the table doesn't hold.
const char* procedureName(std::uint64_t id) noexcept;

// conditioning.cpp
std::uint32_t runWindow(cKoData& node, EvpRecord& evp, NuvCommandBlock* block);
// quantification.cpp
std::uint32_t runQuantify(cKoData& node, EvpRecord& evp, NuvCommandBlock* block);
std::uint32_t runQArray(cKoData& node, EvpRecord& evp, NuvCommandBlock* block);
// fit_procedure.cpp
std::uint32_t runFit(cKoData& node, EvpRecord& evp, NuvCommandBlock* block);
// ffc_profile.cpp
std::uint32_t runFfcProfile(cKoData& node, EvpRecord& evp, NuvCommandBlock* block);
// node_report.cpp
std::uint32_t runReport(cKoData& node, EvpRecord& evp, NuvCommandBlock* block);

}  // namespace nuv64
