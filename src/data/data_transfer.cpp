// Loading instrument files into an experiment, and exporting its zones.
#include "nuv64/data/data_object.h"

#include <cstring>
#include <utility>

#include "core/guard.h"
#include "data/data_object.h"
#include "data/default_task_script.h"
#include "data/stelar_file.h"
#include "data/zone_import.h"

namespace {

constexpr std::uint32_t kNotYetImplemented = 9;
constexpr std::uint32_t kMissingOutput = 18;
constexpr std::uint32_t kMissingNode = 23;
constexpr std::uint32_t kWrongInputFormat = 28;
constexpr std::uint32_t kUnknownSource = 65;

// What the root takes is ready before the first zone is appended, so that a success is whole.
std::uint32_t loadStelar(cKoData& data, const char16_t* path) {
    cKoStelarData reader;
    std::uint32_t status = reader.Select(path);
    if (status != nuv64::kSuccess) return status;
    nuv64::SourceIdentity source(NUV64_SOURCE_STELAR, reader.file.path.get());
    nuv64::OwnedText script =
        nuv64::copyText(nuv64::kDefaultTaskScript, std::strlen(nuv64::kDefaultTaskScript));
    nuv64::ZoneImport import(source);
    status = reader.Read(import);
    if (status == nuv64::kSuccess) status = import.finish(data);
    if (status != nuv64::kSuccess) return status;
    source.moveTo(data);
    data.TaskScript = std::move(script);
    return nuv64::kSuccess;
}

std::uint32_t exportStelar(const cKoData& node, const char16_t* path) {
    cKoAsciZone zone;
    const std::uint32_t status = nuv64::stelarZoneFromData(node, zone);
    return status == nuv64::kSuccess ? nuv64::writeStelarZone(zone, path) : status;
}

}  // namespace

uint32_t LoadKoDataEx(cKoData* data, uint32_t sourceType, const char16_t* path) noexcept {
    return nuv64::guardStatus([&]() -> std::uint32_t {
        switch (sourceType) {
            case NUV64_SOURCE_STELAR:
                return data ? loadStelar(*data, path) : kMissingOutput;
            case NUV64_SOURCE_SPIN_TRACK:
                return data ? kNotYetImplemented : kMissingOutput;
            case NUV64_SOURCE_OXFORD:
            case NUV64_SOURCE_BRUKER:
            case NUV64_SOURCE_VARIAN:
                return kNotYetImplemented;
            default:
                return kUnknownSource;
        }
    });
}

uint32_t ExportToFileEx(cKoData* node, uint32_t sourceType, const char16_t* path) noexcept {
    return nuv64::guardStatus([&]() -> std::uint32_t {
        if (!node) return kMissingNode;
        if (node->Height() != 1) return kWrongInputFormat;
        switch (sourceType) {
            case NUV64_SOURCE_STELAR:
                return exportStelar(*node, path);
            case NUV64_SOURCE_BRUKER:
            case NUV64_SOURCE_VARIAN:
                return kNotYetImplemented;
            default:
                return kUnknownSource;
        }
    });
}
