// Stelar file text -> zones -> nodes, and the first zone back to text. The input is a whole file;
// its first line is taken for the discriminator, as the reader does after checking it.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/guard.h"
#include "core/line_source.h"
#include "data/data_object.h"
#include "data/stelar_file.h"
#include "data/zone_import.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kLargestInput = 32768;  // many tiny zones make work out of all proportion
    if (size > kLargestInput) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    nuv64::guardStatus([&] {
        nuv64::MemoryLineSource source(text);
        std::string_view discriminator;
        source.next(discriminator);
        const nuv64::SourceIdentity identity(5, u"C:\\fuzz.sdf");
        nuv64::ZoneImport import(identity);
        const std::uint32_t status = nuv64::parseStelarZones(source, import);
        if (status != nuv64::kSuccess) return status;
        cKoData root;
        import.finish(root);
        cKoAsciZone written;
        if (cKoData* zone = root.FirstChild()) nuv64::stelarZoneFromData(*zone, written);
        return nuv64::kSuccess;
    });
    return 0;
}
