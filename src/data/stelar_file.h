// Stelar data files, extension "sdf": reading them into zones, and zones written as such a file.
#pragma once

#include <cstdint>

#include "core/data_file.h"
#include "core/line_source.h"
#include "core/owned.h"
#include "data/zone_text.h"

struct cKoData;

struct cKoStelarData : cKoAsciZones {
    cKoStelarData() noexcept = default;
    ~cKoStelarData() override;

    // Reads all zones of a file; a null path asks the user. On failure the object is empty.
    std::uint32_t Open(const char16_t* path);
    // The two halves of Open, for another receiver of the zones: names the file, and reads it.
    std::uint32_t Select(const char16_t* path);
    std::uint32_t Read(nuv64::ZoneSink& sink);

    nuv64::OwnedWideText folder;
    cKoFile file;

  private:
    std::uint32_t choose(const char16_t* path);
    std::uint32_t readZones(nuv64::ZoneSink& sink);
};

namespace nuv64 {

// The first line of a Stelar file begins with this text.
inline constexpr char kStelarDiscriminator[] = "STELAR Data File";

// Reads the zones behind the discriminator line. 27 for an unknown layout, 62 for an end before any
// zone, and what the sink gives. Throws when memory is short.
std::uint32_t parseStelarZones(LineSource& source, ZoneSink& sink);

// The zone that a Stelar file holds for a node and its blocks. 14 without parameters or points.
std::uint32_t stelarZoneFromData(const cKoData& node, cKoAsciZone& zone);

// Writes a zone to a new file; a null path asks the user. A file begun and not finished is removed.
std::uint32_t writeStelarZone(const cKoAsciZone& zone, const char16_t* path);

}  // namespace nuv64
