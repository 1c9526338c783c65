// A small Stelar file of known rates, written to the system's temporary folder.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace nuv64::test {

// A path as the module takes it.
inline std::u16string modulePath(const std::filesystem::path& path) {
    std::u16string text = std::filesystem::absolute(path).u16string();
    std::replace(text.begin(), text.end(), u'/', u'\\');
    return text;
}

// The place for a file that goes with the object; its name is used by no other process.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& name)
        : path_(std::filesystem::temp_directory_path() /
                ("nuv64_host_" + std::to_string(std::random_device{}()) + name)) {
        remove();
    }
    ~TemporaryFile() { remove(); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void write(const std::string& text) const { std::ofstream(path_, std::ios::binary) << text; }
    std::string read() const {
        std::ifstream file(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    void remove() const {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    const std::filesystem::path& path() const { return path_; }
    std::u16string module() const { return modulePath(path_); }

  private:
    std::filesystem::path path_;
};

// The rate of zone z, in 1/s.
inline double sampleRate(std::uint64_t zone) {
    return 4.0 + 3.0 * static_cast<double>(zone);
}

// Zones of "NP/S" with a logarithmic block axis: a magnetisation that grows towards 1000 in every
// block, flat over its points, without noise.
inline std::string sampleText(std::uint64_t zones = 3, std::uint64_t blocks = 8,
                              std::uint64_t points = 6) {
    constexpr double kFirst = 0.01, kLast = 1.0;
    std::string text = "STELAR Data File\r\n\r\n";
    for (std::uint64_t z = 0; z < zones; ++z) {
        text += "ZONE=\t" + std::to_string(z + 1) + "\r\nEXP =\tNP/S\r\nEXPT=\t0\r\n";
        text += "BRLX=\t" + std::to_string(10 * (z + 1)) + "\r\nBS  =\t" + std::to_string(points) +
                "\r\nDW  =\t2\r\nXOFF=\t0\r\nVFAC=\t0.001\r\nNBLK=\t" + std::to_string(blocks) +
                "\r\nBGRD=\tLOG\r\nBINI=\t0.01\r\nBEND=\t1\r\nDATA=\t0\r\n";
        for (std::uint64_t b = 0; b < blocks; ++b) {
            const double place = static_cast<double>(b) / static_cast<double>(blocks - 1);
            const double tau = kFirst * std::pow(kLast / kFirst, place);
            const long value = std::lround(1e6 * (1.0 - std::exp(-sampleRate(z) * tau)));
            for (std::uint64_t p = 0; p < points; ++p) {
                text += std::to_string(value) + "\t0\r\n";
            }
        }
        text += "\r\n";
    }
    return text;
}

// Curves, one-component fits, the profile and its report.
inline constexpr const char* kSampleScript =
    "# QARRAY, 1, 0, 1, , 0, -1\n"
    "# FIT, 3, 0, 1, , 0, -1, 1\n"
    "# FFCPROFILE, 1, 0, 2, , 1\n"
    "# REPORT, 1, 0, 2\n";

}  // namespace nuv64::test
