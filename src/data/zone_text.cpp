#include "data/zone_text.h"

#include <cstring>

#include "core/guard.h"

cKoAsciZone::~cKoAsciZone() = default;

cKoAsciZones::~cKoAsciZones() = default;

void cKoAsciZone::Reset() noexcept {
    zoneNumber = 0;
    pars.Clear();
    reserved = 0;
    lineCount = 0;
    data.reset();
    format = 0;
    dataCapacity = 0;
    dataLength = 0;
}

std::uint32_t cKoAsciZone::AddDataLine(const char* text) {
    return AddDataLine(text ? std::string_view(text) : std::string_view());
}

std::uint32_t cKoAsciZone::AddDataLine(std::string_view text) noexcept {
    const std::uint64_t need = dataLength + text.size() + 3;
    if (need > dataCapacity) {
        const std::uint64_t capacity =
            data || need > kGrowth ? dataLength + kGrowth + text.size() + 1 : kGrowth;
        nuv64::OwnedText grown = nuv64::tryAllocate<char>(capacity);
        if (!grown) return nuv64::kAllocationFailure;
        if (data) std::memcpy(grown.get(), data.get(), dataLength);
        data = std::move(grown);
        dataCapacity = capacity;
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

// A file may hold thousands of small zones.
void cKoAsciZone::Shrink() noexcept {
    if (!data || dataCapacity == dataLength + 1) return;
    char* smaller = static_cast<char*>(std::realloc(data.get(), dataLength + 1));
    if (!smaller) return;
    static_cast<void>(data.release());
    data.reset(smaller);
    dataCapacity = dataLength + 1;
}
