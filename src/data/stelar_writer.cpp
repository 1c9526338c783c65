// A zone node as a Stelar data file.
#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "core/guard.h"
#include "data/data_object.h"
#include "data/stelar_file.h"
#include "nuv64/core/file.h"
#include "nuv64/core/number_printing.h"
#include "nuv64/numeric/real_rounding.h"

namespace nuv64 {

namespace {

constexpr std::uint32_t kMissingData = 14;
constexpr std::uint32_t kFileSystemError = 48;
constexpr std::uint32_t kMissingFile = 56;
constexpr std::uint32_t kIllegalFileName = 59;
constexpr double kLargestStored = 1000000.0;
constexpr std::size_t kFieldLimit = 255;  // characters of a key or a comment in the file
constexpr std::uint32_t kSaveDialog = 1;

struct ParameterLine {
    char key[cKoAsciPars::kKeyLimit + 1];
    char value[cKoAsciPars::kLongValueLimit + 1];
    char comment[cKoAsciPars::kKeyLimit + 1];
};

// Calls visit(line) for all lines in order while it returns 0.
template <class Visit>
std::uint32_t forEachLine(const cKoAsciPars& pars, Visit&& visit) {
    ParameterLine line;
    std::uint64_t at = 0;
    std::uint32_t status = kSuccess;
    while (status == kSuccess &&
           (at = pars.NextLine(at, line.key, line.value, line.comment)) != cKoAsciPars::kNotFound) {
        status = visit(line);
    }
    return status;
}

// The parameters, with the real point count and the real first time where they tell others.
std::uint32_t copyParameters(const cKoData& node, const cKoData& block, cKoAsciPars& target) {
    const cKoAsciPars& pars = node.Parameters;
    const bool otherSize = pars.GetInteger("BS") != block.Points;
    const bool otherStart = pars.GetReal("XOFF") != block.Channel(0)[0];
    return forEachLine(pars, [&](ParameterLine& line) {
        const std::string_view key = line.key;
        if (key == "BS" && otherSize) QwordToBufferA(block.Points, line.value, 10);
        if (key == "XOFF" && otherStart) RealToBufferA(block.Channel(0)[0], line.value, 0, 10);
        return target.AddLine(line.key, line.value, line.comment);
    });
}

double largestIn(const double* values, std::uint64_t n, double largest) {
    for (std::uint64_t i = 0; values && i < n; ++i) {
        const double magnitude = std::fabs(values[i]);
        if (std::isfinite(magnitude)) largest = std::max(largest, magnitude);
    }
    return largest;
}

// The factor that brings the largest value to the end of the stored range.
double scaleOf(const cKoData& node) {
    double largest = 0.0;
    for (const cKoData* block = node.FirstChild(); block; block = block->Next()) {
        largest = largestIn(block->Channel(1), block->Points, largest);
        largest = largestIn(block->Channel(2), block->Points, largest);
    }
    const double scale = largest == 0.0 ? 1.0 : kLargestStored / largest;
    return std::isfinite(scale) ? scale : 1.0;
}

// VFAC and DATA move to the end, DATA last: it ends the parameters when the file is read.
std::uint32_t finishParameters(cKoAsciPars& pars, double scale) {
    char text[cKoAsciPars::kValueLimit + 1];
    RealToBufferA(1.0 / scale, text, 0, 10);
    const std::uint32_t status = pars.SetLine("VFAC", text, nullptr);
    if (status != kSuccess) return status;
    pars.GetText("DATA", text, nullptr);
    return pars.SetLine("DATA", text, nullptr);
}

std::uint64_t printValue(const double* channel, std::uint64_t point, double scale, char* text) {
    const double value = channel ? channel[point] * scale : 0.0;
    return LongToBufferA(iRealRoundToLong(value, nullptr), text, 10);
}

std::uint32_t addBlock(const cKoData& block, double scale, cKoAsciZone& zone) {
    char text[64];
    for (std::uint64_t i = 0; i < block.Points; ++i) {
        std::uint64_t length = printValue(block.Channel(1), i, scale, text);
        text[length++] = '\t';
        length += printValue(block.Channel(2), i, scale, text + length);
        const std::uint32_t status = zone.AddDataLine(std::string_view(text, length));
        if (status != kSuccess) return status;
    }
    return kSuccess;
}

// All that follows the discriminator line: each parameter behind a line end, the last one ended
// too, then the data. A comment stands in front of its value here.
std::string fileText(const cKoAsciZone& zone) {
    std::string text;
    forEachLine(zone.pars, [&](const ParameterLine& line) {
        text += "\r\n";
        text.append(std::string_view(line.key).substr(0, kFieldLimit)) += '=';
        if (line.comment[0] != 0) {
            text.append(std::string_view(line.comment).substr(0, kFieldLimit)) += '=';
        }
        text += line.value;
        return kSuccess;
    });
    text += "\r\n";
    return text.append(zone.DataText());
}

std::uint32_t chooseTarget(cKoFile& file, const char16_t* path) {
    if (path) return file.SetPath(path, nullptr, nullptr) ? kSuccess : kIllegalFileName;
    const bool chosen =
        file.SelectFile(u"Specify a new Stelar data file", nullptr, u"sdf",
                        u"Stelar data files (.sdf)|*.sdf|All files|*.*|", kSaveDialog, 0, nullptr);
    return chosen ? kSuccess : kMissingFile;
}

}  // namespace

std::uint32_t stelarZoneFromData(const cKoData& node, cKoAsciZone& zone) {
    const cKoData* first = node.FirstChild();
    if (node.Parameters.LineCount == 0 || !first || first->Points == 0) return kMissingData;
    zone.format = kClassicLayout;
    const double scale = scaleOf(node);
    std::uint32_t status = copyParameters(node, *first, zone.pars);
    if (status == kSuccess) status = finishParameters(zone.pars, scale);
    for (const cKoData* block = first; block && status == kSuccess; block = block->Next()) {
        status = addBlock(*block, scale, zone);
    }
    return status;
}

std::uint32_t writeStelarZone(const cKoAsciZone& zone, const char16_t* path) {
    const std::string text = fileText(zone);
    cKoFile file;
    const std::uint32_t status = chooseTarget(file, path);
    if (status != kSuccess) return status;
    const std::int32_t created = file.CreateWithDiscriminator(kStelarDiscriminator, 0);
    if (created < 0) return kFileSystemError;  // an existing file stays as it is
    const bool written =
        created == 0 && file.Write(text.data(), static_cast<std::int64_t>(text.size()));
    if (file.Close() && written) return kSuccess;
    FileDelete(file.path.get());
    return kFileSystemError;
}

}  // namespace nuv64
