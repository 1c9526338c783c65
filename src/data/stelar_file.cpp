#include "data/stelar_file.h"

#include "core/guard.h"
#include "nuv64/core/path.h"

namespace {

constexpr std::uint32_t kMissingFile = 56;
constexpr std::uint32_t kIllegalFileName = 59;
constexpr std::uint32_t kUndefinedFile = 63;
constexpr std::uint32_t kFolderPart = 4;
constexpr std::uint32_t kFileMustExist = 2;

}  // namespace

cKoStelarData::~cKoStelarData() {
    file.Close();
    Clear(1);
}

std::uint32_t cKoStelarData::choose(const char16_t* path) {
    if (path) return file.SetPath(path, nullptr, nullptr) ? nuv64::kSuccess : kIllegalFileName;
    const bool chosen = file.SelectFile(u"Specify an existing Stelar data file", nullptr, u"sdf",
                                        u"Stelar data files (sdf)|*.sdf|All files|*.*|",
                                        kFileMustExist, 0, nullptr);
    return chosen ? nuv64::kSuccess : kUndefinedFile;
}

// A file of another kind counts as missing too.
std::uint32_t cKoStelarData::readZones(nuv64::ZoneSink& sink) {
    if (file.CheckDiscriminator(nuv64::kStelarDiscriminator, 0) != 0) return kMissingFile;
    file.ReadLineAndDrop();
    nuv64::FileLineSource source(file);
    return nuv64::guardStatus([&] { return nuv64::parseStelarZones(source, sink); });
}

std::uint32_t cKoStelarData::Select(const char16_t* path) {
    file.Close();
    Clear(1);
    state = 0;
    folder.reset();
    const std::uint32_t status = choose(path);
    if (status == nuv64::kSuccess) {
        folder.reset(NewFilePathFraction(file.path.get(), kFolderPart));
    }
    return status;
}

std::uint32_t cKoStelarData::Read(nuv64::ZoneSink& sink) {
    const std::uint32_t status = readZones(sink);
    file.Close();
    if (status == nuv64::kSuccess) {
        state |= kLoaded;
    } else {
        Clear(1);
        folder.reset();
        file.Reset();
    }
    return status;
}

std::uint32_t cKoStelarData::Open(const char16_t* path) {
    nuv64::ZoneCollector collector(*this);
    const std::uint32_t status = Select(path);
    return status == nuv64::kSuccess ? Read(collector) : status;
}
