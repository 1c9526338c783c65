#include "curves.h"

#include "numbers.h"

namespace koapp {
namespace {

constexpr std::uint64_t kNone = UINT64_MAX;

// The channels of a zone in the table's order.
struct CurveChannels {
    std::uint64_t column[4];  // axis, real, imaginary, fit

    explicit CurveChannels(const KoDataLayout& zone) : column{0, kNone, kNone, kNone} {
        for (std::uint64_t channel = 1; channel < zone.Channels; ++channel) {
            if (zone.ChannelKinds[channel] == KoChannelFit) {
                if (column[3] == kNone) column[3] = channel;
            } else if (column[1] == kNone) {
                column[1] = channel;
            } else if (column[2] == kNone) {
                column[2] = channel;
            }
        }
    }
};

bool hasCurve(const KoDataLayout& zone) noexcept {
    return zone.Samples && zone.Channels > 1 && zone.Points != 0;
}

void appendCurve(std::string& table, const KoDataLayout& zone, const std::string& lineHead) {
    const CurveChannels channels(zone);
    for (std::uint64_t point = 0; point < zone.Points; ++point) {
        table += lineHead;
        for (const std::uint64_t channel : channels.column) {
            table += ',';
            if (channel != kNone) {
                table += numberText(zone.Samples[channel * zone.Points + point], 0);
            }
        }
        table += "\r\n";
    }
}

}  // namespace

bool hasCurves(const Host& host) noexcept {
    for (const KoDataLayout* zone = firstChild(*host.data()); zone; zone = nextSibling(*zone)) {
        if (hasCurve(*zone)) return true;
    }
    return false;
}

std::string curveTable(Host& host) {
    std::string table = "Zone,BRLX,Axis,Real,Imaginary,Fit\r\n";
    std::uint64_t index = 0;
    for (const KoDataLayout* zone = firstChild(*host.data()); zone; zone = nextSibling(*zone)) {
        if (hasCurve(*zone)) {
            appendCurve(table, *zone, numberText(index + 1) + ',' + host.parameter(index, "BRLX"));
        }
        ++index;
    }
    return table;
}

}  // namespace koapp
