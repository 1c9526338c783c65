// From zones of text to nodes; shared by the readers of text data files.
#pragma once

#include <cstdint>

#include "data/data_object.h"
#include "data/zone_text.h"

namespace nuv64 {

// Where zones come from: copied into every zone node, and into the root after a successful load.
class SourceIdentity {
  public:
    // path: full name of the file, null for none. Throws when memory is short.
    SourceIdentity(std::uint64_t sourceId, const char16_t* path);
    void copyTo(cKoData& node) const;
    void moveTo(cKoData& node) noexcept;
    std::uint64_t id() const noexcept { return id_; }

  private:
    std::uint64_t id_;
    OwnedWideText title_;
    OwnedWideText folder_;
    OwnedWideText path_;
};

// Appends one node for each zone to root, first to last, and gives back the text of each zone when
// its node stands. The first failure ends the walk; the nodes made before it stay. Throws when
// memory is short.
std::uint32_t appendZones(cKoAsciZones& zones, const SourceIdentity& source, cKoData& root);

}  // namespace nuv64
