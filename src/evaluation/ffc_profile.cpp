// FFCPROFILE: gathers the fitted rates of all zones into a relaxation-dispersion profile, the
// rates against the relaxation field or the temperature.
#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/guard.h"
#include "data/data_object.h"
#include "evaluation/procedures.h"
#include "evaluation/status_words.h"
#include "evaluation/step.h"
#include "evaluation/task_engine.h"
#include "nuv64/arrays/sorting.h"
#include "nuv64/core/special_reals.h"
#include "nuv64/core/system.h"

namespace nuv64 {
namespace {

constexpr std::uint32_t kWarning = 2;
constexpr std::uint64_t kRatesInResults = cKoData::kResultCount - 2;
constexpr std::uint64_t kRatesInReport = 18;
constexpr std::uint64_t kRowsSorted = 19;
constexpr std::uint32_t kProfileKind = 1;

struct ProfileMode {
    const char* key;
    const char* heading;
    bool onEvaluated;  // keeps the profile on the result node
};

constexpr ProfileMode kModes[] = {
    {"BRLX", " # BRLX [MHz]  Rates [1/s]\n", false},
    {"TEMP", " # T [K]  Rates [1/s]\n", true},
};

struct SelectedZone {
    cKoData* node;
    std::uint64_t index;
};

bool isProfileName(std::string_view name) noexcept {
    constexpr std::string_view kNames[] = {"PP/S", "PP1E/S", "NP/S", "NP1E/S"};
    return std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
}

// Instruments also store sequences as files, "00_NP-S": a piece between underscores counts, with
// "-" for "/", which no file name can hold.
bool isProfileSequence(const char* name) {
    if (!name) return false;
    std::string rest = name;
    if (isProfileName(rest)) return true;
    std::replace(rest.begin(), rest.end(), '-', '/');
    std::string_view pieces = rest;
    while (true) {
        const std::size_t end = pieces.find('_');
        if (isProfileName(pieces.substr(0, end))) return true;
        if (end == std::string_view::npos) return false;
        pieces.remove_prefix(end + 1);
    }
}

// Zones by the indices of parameters 1 and up, in the order of that list; without a list those
// whose sequence makes a profile.
std::vector<SelectedZone> selectZones(const cKoData& node, const EvpRecord& evp) {
    std::vector<SelectedZone> zones;
    for (cKoData* zone = node.FirstChild(); zone; zone = zone->Next()) {
        zones.push_back({zone, zones.size()});
    }
    std::vector<SelectedZone> selected;
    bool listed = false;
    const std::uint64_t parameters = parameterCount(evp);
    for (std::uint64_t i = 1; i < parameters; ++i) {
        const std::uint64_t index = GetEvpParameterAsQword(&evp, i);
        if (index == kUnset) continue;
        listed = true;
        if (index < zones.size()) selected.push_back(zones[index]);
    }
    if (!listed) {
        std::copy_if(zones.begin(), zones.end(), std::back_inserter(selected),
                     [](const SelectedZone& zone) {
                         return isProfileSequence(zone.node->ExperimentName.get());
                     });
    }
    return selected;
}

void warnMissingCurve(std::uint64_t zoneIndex) {
    std::array<char, 64> text{};
    SprintfToBufferA(text.data(), text.size(), "Need to build Relax curve in zone %u",
                     narrow(zoneIndex + 1));
    OsMessageA(kWarning, text.data(), nullptr);
}

// A multi-exponential fit over the zone's whole curve; all ones for as many components as it finds.
std::uint32_t fitZone(cKoData& zone, std::uint64_t components, NuvCommandBlock* block) {
    Step fit;
    fit.Procedure = FitProcedure;
    fit.Mode = 3;
    fit.Level = zone.Height();
    fit.ParameterList = NewSprintfA("0,-1, %lli", static_cast<long long>(components));
    if (!fit.ParameterList) return kAllocationFailure;
    return DispatchEvp(&zone, &fit, block);
}

// Row after row: the field or temperature of each zone, then each rate of each zone.
class Profile {
  public:
    Profile(std::uint64_t zones, std::uint64_t components) : zones_(zones), rows_(components + 1) {
        if (rows_ == 0 || rows_ > SIZE_MAX / sizeof(double) / zones) throw std::bad_alloc();
        values_.resize(rows_ * zones);
    }
    double& at(std::uint64_t row, std::uint64_t zone) { return values_[row * zones_ + zone]; }
    double* row(std::uint64_t index) { return values_.data() + index * zones_; }
    std::uint64_t components() const noexcept { return rows_ - 1; }

    // Every row follows its own copy of the unsorted key.
    void sort() {
        const std::vector<double> key(row(0), row(0) + zones_);
        std::vector<double> scratch;
        for (std::uint64_t k = 1; k <= std::min(components(), kRowsSorted); ++k) {
            scratch = key;
            RArrHeapSortR(scratch.data(), zones_, row(k), nullptr, nullptr, nullptr, nullptr,
                          nullptr);
        }
        RArrHeapSortR(row(0), zones_, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    }

    std::uint32_t store(cKoData& node) {
        const std::uint32_t status = node.SetShape(zones_, rows_, 0, row(0)[0], row(0)[zones_ - 1]);
        if (status != kSuccess) return status;
        std::copy(values_.begin(), values_.end(), node.Samples.get());
        std::fill_n(node.ChannelKinds.get(), rows_, kProfileKind);
        return kSuccess;
    }

  private:
    std::uint64_t zones_;
    std::uint64_t rows_;
    std::vector<double> values_;
};

// The components of the first zone, where the step doesn't say how many.
std::uint64_t foundComponents(const cKoData& zone) noexcept {
    return zone.Results[0] >= 1.0 ? static_cast<std::uint64_t>(zone.Results[0]) : 0;
}

void reportZone(EvpRecord& evp, Profile& profile, std::uint64_t column, std::uint64_t zoneIndex) {
    report(evp, " %3u %10.5g", narrow(zoneIndex + 1), profile.at(0, column));
    for (std::uint64_t k = 1; k <= std::min(profile.components(), kRatesInReport); ++k) {
        report(evp, " %10g", profile.at(k, column));
    }
    report(evp, "\n");
}

void fillColumn(Profile& profile, std::uint64_t column, cKoData& zone, const char* key) {
    const cKoData* owner = zone.ParameterOwner();
    profile.at(0, column) = owner ? owner->Parameters.GetReal(key) : ___NAN;
    for (std::uint64_t k = 0; k < profile.components(); ++k) {
        profile.at(k + 1, column) = k < kRatesInResults ? zone.Results[2 + k] : ___NAN;
    }
}

cKoData& targetOf(cKoData& node, const ProfileMode& mode) {
    if (!mode.onEvaluated) return node;
    if (!node.Evaluated) node.Evaluated = new cKoData;
    return *node.Evaluated;
}

std::uint32_t buildProfile(cKoData& node, EvpRecord& evp, const ProfileMode& mode,
                           const std::vector<SelectedZone>& zones, std::uint64_t components,
                           NuvCommandBlock* block) {
    const bool reporting = reportIsEmpty(evp);
    std::optional<Profile> profile;  // made when the first zone has told the number of components
    for (std::uint64_t column = 0; column < zones.size(); ++column) {
        const SelectedZone& zone = zones[column];
        if (!zone.node->Samples) {
            warnMissingCurve(zone.index);
            return status::kMissingInput;
        }
        const std::uint32_t status = fitZone(*zone.node, components, block);
        if (status != kSuccess) return status;
        if (column == 0) {
            if (components == kUnset) components = foundComponents(*zone.node);
            profile.emplace(zones.size(), components);
            if (reporting) report(evp, " Components: %u\n", narrow(components));
            if (reporting) report(evp, mode.heading);
        }
        fillColumn(*profile, column, *zone.node, mode.key);
        if (reporting) reportZone(evp, *profile, column, zone.index);
    }
    profile->sort();
    const std::uint32_t status = profile->store(targetOf(node, mode));
    if (status == kSuccess) SetEvpFlags(&evp, EvpDataChanged);
    return status;
}

}  // namespace

std::uint32_t runFfcProfile(cKoData& node, EvpRecord& evp, NuvCommandBlock* block) {
    if (evp.Mode == 0) return kSuccess;
    const std::uint64_t components = GetEvpParameterAsQword(&evp, 0);
    if (components == 0) return kSuccess;
    if (evp.Mode > std::size(kModes)) return status::kUnknownProcedure;
    if (!node.FirstChild()) return status::kIllegalData;
    const std::vector<SelectedZone> zones = selectZones(node, evp);
    if (zones.empty()) {
        OsMessageA(kWarning, "No zones to build an NMRD profile", nullptr);
        return status::kIllegalInput;
    }
    return buildProfile(node, evp, kModes[evp.Mode - 1], zones, components, block);
}

}  // namespace nuv64
