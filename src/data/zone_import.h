// From zones of text to nodes; shared by the readers of text data files.
#pragma once

#include <cstdint>
#include <memory>

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

// How many points may be made that no data line can fill. A file that was cut short leaves some; a
// file that lies about its sizes must not take the machine's memory.
class SpareRoom {
  public:
    // False when the room is used up for a zone of these sizes and this many data lines.
    bool take(std::uint64_t blocks, std::uint64_t points, std::uint64_t lines);

  private:
    static constexpr std::uint64_t kBlockCost = 48;  // an empty block, in points
    std::uint64_t points_ = 1 << 21;
};

// Turns every zone into a node as soon as it has been read, so that the text of one zone at a time
// is held. The nodes wait until the whole file is known to be sound.
class ZoneImport final : public ZoneSink {
  public:
    explicit ZoneImport(const SourceIdentity& source) noexcept : source_(source) {}
    std::uint32_t accept(std::unique_ptr<cKoAsciZone>& zone) override;
    // Appends the nodes to root. Not 0 when a zone could not be turned into a node: then those in
    // front of it are appended.
    std::uint32_t finish(cKoData& root) noexcept;

  private:
    const SourceIdentity& source_;
    cKoData nodes_;
    SpareRoom room_;
    std::uint32_t status_ = 0;  // of the first zone that failed
};

}  // namespace nuv64
