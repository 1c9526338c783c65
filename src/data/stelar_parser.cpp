// The text of a Stelar data file, line by line, into zones.
#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "core/guard.h"
#include "core/number_text.h"
#include "data/stelar_file.h"
#include "nuv64/core/number_reading.h"
#include "nuv64/core/text_edit.h"

namespace nuv64 {

namespace {

constexpr std::uint32_t kMissingData = 14;
constexpr std::uint32_t kIllegalFormat = 27;
constexpr std::uint32_t kFileSystemError = 48;
constexpr std::uint32_t kUnexpectedEnd = 62;

bool isAsciiLetter(char c) {
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'z';
}

std::string_view behindWhite(std::string_view line) {
    return line.substr(static_cast<std::size_t>(
        std::find_if_not(line.begin(), line.end(), [](char c) { return isWhite(c); }) -
        line.begin()));
}

bool isDiscriminator(std::string_view line) {
    return behindWhite(line).starts_with(kStelarDiscriminator);
}

// What the last line read has told about the input.
struct Line {
    std::string_view text;
    std::int64_t offset = 0;          // where it began
    std::uint32_t status = kSuccess;  // not 0: there was no further line
};

class StelarParser {
  public:
    StelarParser(LineSource& source, ZoneSink& sink) : source_(source), sink_(sink) {}

    std::uint32_t run() {
        std::uint64_t layout = 0;
        std::uint32_t status = detectLayout(layout);
        if (status != kSuccess) return status;
        while (status == kSuccess) status = nextZone(layout);
        if (status != kUnexpectedEnd) return status;
        return zoneRead_ ? kSuccess : kMissingData;
    }

  private:
    Line readLine();
    std::uint32_t detectLayout(std::uint64_t& layout);
    std::uint32_t nextZone(std::uint64_t& layout);
    std::uint32_t handOver(std::uint32_t ending);
    std::uint32_t parseZone(cKoAsciZone& zone, std::uint64_t layout);
    std::uint32_t parseParameters(cKoAsciZone& zone, std::uint64_t layout);
    std::uint32_t addParameter(cKoAsciZone& zone, std::uint64_t layout);
    std::uint32_t parseData(cKoAsciZone& zone);
    void splitParameter(std::string_view line, std::uint64_t layout);
    void groom(std::string& text, std::string_view source);
    // Hands a line back to whoever reads next.
    std::uint32_t stepBack(const Line& line) {
        return source_.seek(line.offset) ? kSuccess : kFileSystemError;
    }

    LineSource& source_;
    ZoneSink& sink_;
    std::unique_ptr<cKoAsciZone> zone_;
    cKoAsciPars inherited_;  // parameters of the previous zone of a headed run
    bool zoneRead_ = false;
    bool atRunStart_ = true;  // no zone of the present run has been read
    bool cutInside_ = false;  // the parameters ended at the start of another run
    std::string key_;
    std::string value_;
    std::string comment_;
};

// A last line without a line end is a line as well.
Line StelarParser::readLine() {
    Line line;
    line.offset = source_.tell();
    const std::int64_t consumed = source_.next(line.text);
    if (consumed < 0) {
        line.status = consumed == -2 ? kAllocationFailure : kFileSystemError;
    } else if (consumed == 0 && line.text.empty()) {
        line.status = kUnexpectedEnd;
    }
    return line;
}

// The first line that isn't blank shows the layout; it stays to be read.
std::uint32_t StelarParser::detectLayout(std::uint64_t& layout) {
    Line line = readLine();
    while (line.status == kSuccess && behindWhite(line.text).empty()) line = readLine();
    if (line.status != kSuccess) {
        return line.status == kUnexpectedEnd ? kUnexpectedEnd : kIllegalFormat;
    }
    if (line.text.starts_with("ZONE")) {
        layout = kClassicLayout;
    } else if (line.text.starts_with("VERSION")) {
        layout = kHeadedLayout;
    } else if (line.text.starts_with("NMRD SEQUENCE NAME")) {
        layout = kSequenceLayout;
    } else {
        return kIllegalFormat;
    }
    return stepBack(line);
}

// Files of several runs are files appended to one another: each run has its own layout and header.
std::uint32_t StelarParser::nextZone(std::uint64_t& layout) {
    const Line line = readLine();
    if (line.status == kSuccess && isDiscriminator(line.text)) {
        atRunStart_ = true;
        const std::uint32_t status = detectLayout(layout);
        if (status != kSuccess) return status;
    } else if (stepBack(line) != kSuccess) {
        return kFileSystemError;
    }
    if (zone_) {
        zone_->Recycle();
    } else {
        zone_ = std::make_unique<cKoAsciZone>();
    }
    std::uint64_t workingLayout = layout;
    std::uint32_t status = kSuccess;
    if (layout == kHeadedLayout && !atRunStart_) {
        status = detectLayout(workingLayout);
        if (status == kSuccess && workingLayout == kSequenceLayout) {
            status = zone_->pars.CopyFrom(&inherited_);
        }
        if (status != kSuccess) return status;
    }
    atRunStart_ = false;
    const std::uint32_t ending = parseZone(*zone_, workingLayout);
    zone_->format = layout;
    return handOver(ending);
}

// The last zone is handed over too, before the status that ended it ends the walk.
std::uint32_t StelarParser::handOver(std::uint32_t ending) {
    std::uint32_t status = kSuccess;
    if (zone_->format == kHeadedLayout) status = inherited_.CopyFrom(&zone_->pars);
    if (status == kSuccess) status = sink_.accept(zone_);
    zoneRead_ = true;
    return status != kSuccess ? status : ending;
}

std::uint32_t StelarParser::parseZone(cKoAsciZone& zone, std::uint64_t layout) {
    cutInside_ = false;
    // The end of the file ends a list of zones, and so does whatever goes wrong among parameters.
    if (parseParameters(zone, layout) != kSuccess) return kUnexpectedEnd;
    if (cutInside_) return kSuccess;
    if (layout != kClassicLayout) {  // the heading of the columns
        const Line heading = readLine();
        if (heading.status != kSuccess) return heading.status;
    }
    return parseData(zone);
}

std::uint32_t StelarParser::parseParameters(cKoAsciZone& zone, std::uint64_t layout) {
    bool first = true;
    for (;;) {
        const Line line = readLine();
        if (line.status != kSuccess) return line.status;
        if (behindWhite(line.text).empty()) continue;
        if (isDiscriminator(line.text)) {
            cutInside_ = true;
            return stepBack(line);
        }
        splitParameter(line.text, layout);
        if (key_ == "DATA") return kSuccess;
        if (layout == kClassicLayout && first && key_ == "ZONE") {
            zone.zoneNumber = StringToDwordA(value_.c_str(), nullptr, nullptr, 10);
        }
        first = false;
        const std::uint32_t status = addParameter(zone, layout);
        if (status != kSuccess) return status;
    }
}

std::uint32_t StelarParser::addParameter(cKoAsciZone& zone, std::uint64_t layout) {
    return layout == kClassicLayout
               ? zone.pars.AddLine(key_.c_str(), value_.c_str(), comment_.c_str())
               : zone.pars.SetLine(key_.c_str(), value_.c_str(), comment_.c_str());
}

// key=comment=value with an optional comment; headed layouts also know key:value.
void StelarParser::splitParameter(std::string_view line, std::uint64_t layout) {
    std::size_t at = line.find('=');
    if (at == std::string_view::npos && layout != kClassicLayout) at = line.find(':');
    std::string_view right =
        at == std::string_view::npos ? std::string_view() : line.substr(at + 1);
    const std::size_t second = right.find('=');
    groom(key_, line.substr(0, at));
    if (second == std::string_view::npos) {
        comment_.clear();
    } else {
        groom(comment_, right.substr(0, second));
        right.remove_prefix(second + 1);
    }
    groom(value_, right);
}

void StelarParser::groom(std::string& text, std::string_view source) {
    text = source;
    if (text.empty()) return;
    StringGroomA(text.data(), 0);
    text.resize(std::char_traits<char>::length(text.c_str()));
}

// Data lines go on to the end of the file or to a line that begins with a letter.
std::uint32_t StelarParser::parseData(cKoAsciZone& zone) {
    for (;;) {
        const Line line = readLine();
        if (line.status != kSuccess) return line.status;
        const std::string_view text = behindWhite(line.text);
        if (text.empty()) continue;
        if (isAsciiLetter(text.front())) return stepBack(line);
        const std::uint32_t status = zone.AddDataLine(text);
        if (status != kSuccess) return status;
    }
}

}  // namespace

std::uint32_t parseStelarZones(LineSource& source, ZoneSink& sink) {
    return StelarParser(source, sink).run();
}

}  // namespace nuv64
