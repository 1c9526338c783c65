#include "data/zone_text.h"

#include <cstring>

#include "core/guard.h"

cKoAsciZone::~cKoAsciZone() = default;

cKoAsciZones::~cKoAsciZones() = default;

void cKoAsciZone::Recycle() noexcept {
    zoneNumber = 0;
    pars.Clear();
    reserved = 0;
    lineCount = 0;
    format = 0;
    dataLength = 0;
}

void cKoAsciZone::Reset() noexcept {
    Recycle();
    data.reset();
    dataCapacity = 0;
}

std::uint32_t cKoAsciZone::AddDataLine(const char* text) {
    return AddDataLine(text ? std::string_view(text) : std::string_view());
}

std::uint32_t cKoAsciZone::AddDataLine(std::string_view text) noexcept {
    const std::uint64_t need = dataLength + text.size() + 3;
    if (need > dataCapacity) {
        const std::uint64_t capacity =
            data || need > kGrowth ? dataLength + kGrowth + text.size() + 1 : kGrowth;
        if (!resize(capacity)) return nuv64::kAllocationFailure;
    }
    char* end = data.get() + dataLength;
    if (!text.empty()) std::memcpy(end, text.data(), text.size());
    end += text.size();
    end[0] = '\r';
    end[1] = '\n';
    end[2] = 0;
    dataLength = need - 1;
    ++lineCount;
    return nuv64::kSuccess;
}

void cKoAsciZone::Shrink() noexcept {
    if (!data || dataCapacity == dataLength + 1) return;
    resize(dataLength + 1);
}

bool cKoAsciZone::resize(std::uint64_t capacity) noexcept {
    char* block = static_cast<char*>(std::realloc(data.get(), capacity));
    if (!block) return false;
    static_cast<void>(data.release());
    data.reset(block);
    dataCapacity = capacity;
    return true;
}

namespace nuv64 {

// A file may hold thousands of small zones: none keeps room that it doesn't use.
std::uint32_t ZoneCollector::accept(std::unique_ptr<cKoAsciZone>& zone) {
    zone->Shrink();
    zones_.AddItem(zone.release());
    return kSuccess;
}

}  // namespace nuv64
