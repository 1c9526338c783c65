// Small Stelar files for tests, and trees read from them.
#pragma once

#include <string>
#include <string_view>

#include "core/guard.h"
#include "core/line_source.h"
#include "data/data_object.h"
#include "data/stelar_file.h"
#include "data/zone_import.h"

namespace stelar_test {

inline std::string classicZone(int number, const std::string& extra = "") {
    return "ZONE=\t" + std::to_string(number) +
           "\nEXP =\tNP/S [Sequences.ssf]\nEXPT=\t0\nT1MX=\t0.04\nBRLX=\t19.5\nBS  =\t3\nDW  "
           "=\t0.5\n"
           "NBLK=\t2\nBGRD=\tLOG\nBINI=\t(4*T1MX)\nBEND=\t0.001\nVFAC=\t2\nXOFF=\t1e-05\n" +
           extra + "DATA=\t0\n10\t-1\n20\t-2\n30\t-3\n40\t-4\n50\t-5\n60\t-6\n";
}

inline std::string headedHeader() {
    return "VERSION = 2.0\nOWNER = ..\n\nNMRD SEQUENCE NAME: C:/sequences/00_NP-S.ssf \n\n"
           "PARAMETER SUMMARY\nBS = 2.0\nTAU = [log:4*T1MAX:0.01*T1MAX:2]\nDW = 49.6\nNBLK = 2\n"
           "BR = {9.0,7.1}\n\n";
}

inline std::string headedZone(int number, const std::string& field) {
    return "ZONE 1." + std::to_string(number) + "\nBR = " + field +
           "\nT1MAX = 200000.0\n\nDATA\nREAL\t\tIMG\t\tMOD\t\tTIME(us)\n"
           "-441\t\t-298\t\t532\t\t215.00\n-479\t\t-164\t\t506\t\t264.60\n"
           "-486\t\t-15\t\t486\t\t314.20\n-450\t\t112\t\t463\t\t363.80\n\n";
}

inline std::string sequenceLine() {
    return "NMRD SEQUENCE NAME: C:/sequences/00_PP-S.ssf \n\n";
}

// text begins behind the discriminator line.
inline std::uint32_t load(std::string_view text, cKoData& root) {
    return nuv64::guardStatus([&] {
        const nuv64::SourceIdentity identity(5, u"C:\\d\\a.sdf");
        nuv64::ZoneImport import(identity);
        nuv64::MemoryLineSource source(text);
        const std::uint32_t status = nuv64::parseStelarZones(source, import);
        return status != 0 ? status : import.finish(root);
    });
}

}  // namespace stelar_test
