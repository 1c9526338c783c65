#include "evaluation/procedures.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "evaluation/status_words.h"
#include "nuv64/core/named_id.h"

namespace nuv64 {
namespace {

std::uint32_t notYetImplemented(cKoData&, EvpRecord&, NuvCommandBlock*) {
    return status::kNotYetImplemented;
}

// The order counts: a step's name is matched by its beginning, and the first row wins.
constexpr Procedure kProcedures[] = {
    {2, "FUNCTION", nullptr, notYetImplemented},
    {1, "WINDOW", nullptr, runWindow},
    {3, "PHASOR", nullptr, notYetImplemented},
    {4, "QUANTIFY", nullptr, runQuantify},
    {5, "QARRAY", nullptr, runQArray},
    {FitProcedure, "FIT", nullptr, runFit},
    {IltProcedure, "ILT", nullptr, notYetImplemented},
    {8, "FFCPROFILE", nullptr, runFfcProfile},
    {20, "DENOISING", nullptr, notYetImplemented},
    {22, "APODIZE", nullptr, notYetImplemented},
    {23, "NORMALIZE", nullptr, notYetImplemented},
    {24, "GROUPDELAY", nullptr, notYetImplemented},
    {25, "ZEROFILL", nullptr, notYetImplemented},
    {26, "FOURIER", nullptr, notYetImplemented},
    {27, "PHASING", nullptr, notYetImplemented},
    {28, "BASELINE", nullptr, notYetImplemented},
    {29, "DOSY", nullptr, notYetImplemented},
    {21, "DERIVATIVE", nullptr, notYetImplemented},
    {9, "CALIBPULSE", nullptr, notYetImplemented},
    {ExportProcedure, "EXPORT", nullptr, nullptr},  // the driver answers for it
    {101, "REPORT", nullptr, runReport},
};

// The same names for the look-up by text, ended by a row of zeros.
constexpr auto kNames = [] {
    std::array<NamedIdA, std::size(kProcedures) + 1> names{};
    for (std::size_t i = 0; i < std::size(kProcedures); ++i) {
        names[i] = {kProcedures[i].id, kProcedures[i].name};
    }
    return names;
}();

}  // namespace

const Procedure* findProcedure(std::uint64_t id) noexcept {
    const auto found = std::find_if(std::begin(kProcedures), std::end(kProcedures),
                                    [&](const Procedure& row) { return row.id == id; });
    return found == std::end(kProcedures) ? nullptr : found;
}

std::uint32_t procedureIdFromName(const char* text) noexcept {
    return NamedId_GetIdA(kNames.data(), text);
}

const char* procedureName(std::uint64_t id) noexcept {
    const Procedure* procedure = findProcedure(id);
    return procedure ? procedure->name : "";
}

}  // namespace nuv64
