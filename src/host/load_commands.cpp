#include "host/load_commands.h"

#include <memory>
#include <string>
#include <utility>

#include "core/guard.h"
#include "evaluation/csv_export.h"
#include "host/node_lookup.h"
#include "host/root_state.h"
#include "nuv64/core/file.h"
#include "nuv64/core/file_dialog.h"
#include "nuv64/core/system.h"

namespace nuv64 {
namespace {

constexpr std::uint32_t kNeedsFileName = 0x200;
constexpr std::uint32_t kSimulation = 12;
constexpr std::uint32_t kCsvTable = 10;

std::uint32_t appendSimulatedZone(cKoData& data, const char* parameterText) {
    auto zone = std::make_unique<cKoData>();
    const std::uint32_t status =
        parameterText ? zone->Parameters.AddText(withCarriageReturns(parameterText).c_str())
                      : kSuccess;
    if (status == kSuccess) data.AppendChild(zone.release());
    return status;
}

// The readers of the module itself: text tables, other exchange formats, simulated data.
std::uint32_t loadByModule(cKoData& data, const LoadRequest& request) {
    switch (request.SourceType) {
        case kSimulation: {
            const std::uint32_t status = appendSimulatedZone(data, request.ParameterText);
            return status == kSuccess ? kNotYetImplemented : status;
        }
        case 1:
        case 2:
        case 3:
        case 4:
        case 10:
        case 11:
        case 14:
        case 15:
        case 16:
            return kNotYetImplemented;
        default:
            return kUnknownDataSource;
    }
}

// How the instrument formats come in: the host knows which file is which, and calls LoadKoDataEx.
std::uint32_t loadByHost(NuvCommandBlock& block, const LoadRequest& request) {
    HostLoadRequest hostRequest{request.SourceType, block.Data, request.Path, 0};
    block.Input = pointerBits(&hostRequest);
    return static_cast<std::uint32_t>(notifyHost(block, EvLoadByHost));
}

std::uint32_t loadInto(NuvCommandBlock& block, const LoadRequest& request) {
    const std::uint32_t status = loadByModule(*block.Data, request);
    if (status != kUnknownDataSource || !hostListens(block)) return status;
    return loadByHost(block, request);
}

std::uint32_t loadAsFirst(NuvCommandBlock& block, const LoadRequest& request) {
    cKoData* const made = std::make_unique<cKoData>().release();
    block.Data = made;
    const std::uint32_t status = guardStatus([&] { return loadInto(block, request); });
    if (status != kSuccess && block.Data == made) {
        delete block.Data;
        block.Data = nullptr;
    }
    return status;
}

std::uint32_t loadAsFurther(NuvCommandBlock& block, const LoadRequest& request) {
    cKoData* const data = block.Data;
    RootState before(*data);
    const std::uint32_t status = guardStatus([&] { return loadInto(block, request); });
    if (status != kSuccess && block.Data == data) before.restore(*data);
    return status;
}

std::uint32_t resolveNode(const NuvCommandBlock& block, ExportRequest& request) {
    if (request.Zone == kAllOnes) {
        request.Node = block.Data;
        return kSuccess;
    }
    cKoData* const zone = zoneAt(block.Data, request.Zone);
    if (!zone) return kIllegalArgument;
    request.Node = request.Block == kAllOnes ? zone : zone->ChildAt(request.Block);
    return kSuccess;
}

// The writer notes the path on the node before it writes; without memory the old one stays.
std::uint32_t exportCsv(const ExportRequest& request) {
    OwnedWideText before;
    if (request.Node) before.swap(request.Node->ExportPath);
    const std::uint32_t status = ExportNodeCsv(request.Node, request.ExportFlags, request.Path);
    const bool unnamed = request.Node && !request.Node->ExportPath;
    if (request.Node && (unnamed || status == kAllocationFailure)) {
        request.Node->ExportPath.swap(before);
    }
    return status;
}

std::uint32_t exportByModule(const ExportRequest& request) {
    switch (request.ExportType) {
        case 1:
        case 2:
        case 3:
        case 4:
        case 11:
            return kNotYetImplemented;
        case kCsvTable:
            return exportCsv(request);
        default:
            return kUnknownDataSource;
    }
}

OwnedWideText askForNewFile(std::uint64_t fileKind) {
    constexpr std::uint32_t kSaveNew = 0x20005;
    const char16_t* extension = fileKind == 1 ? u"txt" : fileKind == 10 ? u"csv" : nullptr;
    if (!extension) return {};
    const char16_t* filter =
        fileKind == 1 ? u"Text files (*.txt)|*.txt|" : u"Comma-Separated Values (*.csv)|*.csv|";
    return OwnedWideText(NewOsFileSelectDialog(u"Select a new file", nullptr, extension, filter,
                                               kSaveNew, 0, nullptr));
}

}  // namespace

std::string withCarriageReturns(const char* text) {
    std::string lines;
    for (const char* c = text; *c; ++c) {
        if (c[0] == '\r' && c[1] == '\n') continue;  // the LF behind it becomes the CR
        lines.push_back(*c == '\n' ? '\r' : *c);
    }
    return lines;
}

std::uint32_t loadData(CommandContext& context) {
    NuvCommandBlock& block = context.block;
    const auto* request = inputAs<const LoadRequest>(block);
    if (!request) return kSuccess;
    if ((request->LoadFlags & kNeedsFileName) && !request->Path) return kMissingFile;
    return block.Data ? loadAsFurther(block, *request) : loadAsFirst(block, *request);
}

std::uint32_t exportData(CommandContext& context) {
    auto* request = inputAs<ExportRequest>(context.block);
    if (!request) return kIllegalArgument;
    std::uint32_t status = resolveNode(context.block, *request);
    if (status != kSuccess) return status;
    status = exportByModule(*request);
    if (status == kFileSystemError) return kIllegalFileName;
    if (status == kUnknownDataSource && hostListens(context.block)) {
        return static_cast<std::uint32_t>(notifyHost(context.block, EvExportByHost));
    }
    return status;
}

std::uint32_t writeTextFile(CommandContext& context) {
    constexpr std::uint32_t kWriteNew = 5;
    constexpr std::int64_t kBadHandle = -1;
    const auto* request = inputAs<const TextFileRequest>(context.block);
    if (!request) return kMissingInput;
    OwnedWideText chosen;
    const char16_t* path = request->Path;
    if (!path) {
        chosen = askForNewFile(request->FileKind);
        path = chosen.get();
    }
    if (!path) return kSuccess;

    std::int64_t handle = FileOpen(path, kWriteNew);
    if (handle == kBadHandle) {
        OsMessagefA(2, "Invalid file.");
        return kSuccess;
    }
    const bool written = FileWriteA(handle, request->Text ? request->Text : "");
    FileClose(&handle, 1);
    return written ? kSuccess : kFileNotAccessible;
}

}  // namespace nuv64
