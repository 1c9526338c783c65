// Zones of a text data file on their way to nodes (or back): parameters, and data lines as text.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "core/list.h"
#include "core/owned.h"
#include "data/parameter_block.h"

namespace nuv64 {

// How a file of zones is laid out; the values are stored in cKoAsciZone::format.
enum ZoneLayout : std::uint64_t {
    kClassicLayout = 1,   // zones that begin with a ZONE line
    kHeadedLayout = 2,    // a header zone, then sequence zones that inherit its parameters
    kSequenceLayout = 3,  // sequence zones without a header
};

}  // namespace nuv64

struct cKoAsciZone : cKoListItem {
    static constexpr std::uint64_t kGrowth = 2000000;  // bytes by which the data text grows

    cKoAsciZone() noexcept = default;
    ~cKoAsciZone() override;

    void Reset() noexcept;
    // Empties the zone for another one to come; the room for data lines stays.
    void Recycle() noexcept;
    // Appends the text and CR LF. Null counts as empty.
    std::uint32_t AddDataLine(const char* text);
    std::uint32_t AddDataLine(std::string_view text) noexcept;
    // Gives back the room that the data lines don't use.
    void Shrink() noexcept;
    std::string_view DataText() const noexcept {
        return dataLength != 0 ? std::string_view(data.get(), dataLength) : std::string_view();
    }

    std::uint64_t zoneNumber = 0;  // from the ZONE line, 0 when there is none
    cKoAsciPars pars;
    std::uint64_t reserved = 0;
    std::uint64_t lineCount = 0;
    nuv64::OwnedText data;  // all data lines, each ended by CR LF
    std::uint64_t format = 0;
    std::uint64_t dataCapacity = 0;
    std::uint64_t dataLength = 0;

  private:
    bool resize(std::uint64_t capacity) noexcept;
};

struct cKoAsciZones : cKoList {
    static constexpr std::uint32_t kLoaded = 1;  // bit of state

    cKoAsciZones() noexcept : owner(this) {}
    ~cKoAsciZones() override;

    cKoAsciZone* FirstZone() const noexcept { return static_cast<cKoAsciZone*>(First()); }
    cKoAsciZone* LastZone() const noexcept { return static_cast<cKoAsciZone*>(Last()); }

    std::uint32_t listFlags = 0;
    void* owner;
    cKoAsciZone* currentZone = nullptr;
    std::uint32_t state = 0;
};

namespace nuv64 {

// Receives the zones of a file in their order, each when it has been read.
class ZoneSink {
  public:
    virtual ~ZoneSink() = default;
    // The sink may take the zone; one that it leaves is used again. A status other than 0 ends the
    // reading.
    virtual std::uint32_t accept(std::unique_ptr<cKoAsciZone>& zone) = 0;
};

// Collects the zones in a list.
class ZoneCollector final : public ZoneSink {
  public:
    explicit ZoneCollector(cKoAsciZones& zones) noexcept : zones_(zones) {}
    std::uint32_t accept(std::unique_ptr<cKoAsciZone>& zone) override;

  private:
    cKoAsciZones& zones_;
};

}  // namespace nuv64
