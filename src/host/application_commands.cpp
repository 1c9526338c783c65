#include "host/application_commands.h"

#include <algorithm>

#include "core/console_host.h"
#include "core/guard.h"
#include "core/object.h"
#include "data/data_object.h"
#include "nuv64/core/clock.h"
#include "nuv64/core/formatter.h"
#include "nuv64/core/memory.h"
#include "nuv64/core/status.h"
#include "nuv64/core/system.h"
#include "nuv64/core/text_copy.h"
#include "nuv64/core/version.h"

namespace nuv64 {
namespace {

constexpr std::uint32_t kConsoleKind = 1;
constexpr std::uint32_t kGraphicalKind = 2;

ApplicationInfo defaultInfo() noexcept {
    ApplicationInfo info{};
    info.TextCapacity = 1024;
    info.ApplicationKind = kGraphicalKind;
    info.Reserved1 = 1;
    info.Reserved3 = 10;
    return info;
}

// Process-wide on purpose: the last command 3 of any block wins.
ApplicationInfo currentInfo = defaultInfo();

OwnedWideText systemText(std::uint32_t kind) {
    OwnedWideText text(OsStringNewCopy(kind));
    if (!text) throw std::bad_alloc();
    return text;
}

// Cuts to what the host says that its buffers hold, and never writes past the record's own.
template <std::size_t Room>
void storeText(char16_t (&buffer)[Room], const char16_t* text, std::uint32_t capacity) noexcept {
    StringToBuffer(text, buffer, std::min<std::uint64_t>(capacity, Room));
}

void describeModule(ApplicationInfo& info) {
    constexpr std::uint32_t kFolderKind = 7, kNameKind = 8;
    const OwnedWideText folder = systemText(kFolderKind);
    const OwnedWideText name = systemText(kNameKind);
    const std::uint32_t major = NUV64_VERSION_MAJOR, minor = NUV64_VERSION_MINOR,
                        build = NUV64_VERSION_BUILD;
    const OwnedWideText version(NewSprintf(u"Quorvin %lu.%lu.%lu", major, minor, build));
    if (!version) throw std::bad_alloc();

    info.VersionMajor = major;
    info.VersionMinor = minor;
    info.VersionBuild = build;
    storeText(info.ExecutableFolder, folder.get(), info.TextCapacity);
    storeText(info.ExecutableName, name.get(), info.TextCapacity);
    storeText(info.VersionText, version.get(), info.TextCapacity);
}

}  // namespace

const ApplicationInfo& applicationInfo() noexcept {
    return currentInfo;
}

void closeData(NuvCommandBlock& block) noexcept {
    if (!block.Data) return;
    delete block.Data;
    block.Data = nullptr;
    if (currentInfo.ApplicationKind == kGraphicalKind) notifyHost(block, EvDataClosed);
}

std::uint32_t describeApplication(CommandContext& context) {
    auto* info = inputAs<ApplicationInfo>(context.block);
    if (!info) return kMissingInput;
    describeModule(*info);
    currentInfo = *info;
    setConsoleHost(info->ApplicationKind == kConsoleKind);
    if (info->ApplicationKind == kGraphicalKind) {
        notifyHost(context.block, EvApplicationReady);
        notifyHost(context.block, EvApplicationStart);
    }
    return info->ApplicationKind == kConsoleKind ? kNotYetImplemented : kSuccess;
}

std::uint32_t errorText(CommandContext& context) {
    auto* request = inputAs<ErrorTextRequest>(context.block);
    if (!request) return kMissingInput;
    request->text = KoErrorString(request->code);
    return kSuccess;
}

std::uint32_t errorTextA(CommandContext& context) {
    auto* request = inputAs<ErrorTextRequest>(context.block);
    if (!request) return kMissingInput;
    request->textA = KoErrorStringA(request->code);
    return kSuccess;
}

std::uint32_t shellOpen(CommandContext& context) {
    const auto* path = inputAs<const char16_t>(context.block);
    return path && *path ? OsShellOpen(path) : kUndefinedFile;
}

std::uint32_t localTimeText(CommandContext& context) {
    constexpr std::uint64_t kRoom = 50;
    OsTime now{};
    tOsLocalTime(&now);
    OwnedText text = allocate<char>(kRoom);
    const std::uint32_t date[] = {now.year, now.month, now.day};
    const std::uint32_t time[] = {now.hour, now.minute, now.second};
    SprintfToBufferA(text.get(), kRoom, "%u-%u-%u %u:%u:%u", date[0], date[1], date[2], time[0],
                     time[1], time[2]);
    context.block.Output = pointerBits(text.release());
    return kSuccess;
}

std::uint32_t closeDataCommand(CommandContext& context) {
    closeData(context.block);
    return kSuccess;
}

std::uint32_t deleteObject(CommandContext& context) {
    ObjectKill(inputAs<void*>(context.block));
    return kSuccess;
}

std::uint32_t askImport(CommandContext& context) {
    constexpr std::uint64_t kAskedKind = 13;
    const auto* request = inputAs<const ImportAskRequest>(context.block);
    answer(context.block, request && request->kind == kAskedKind ? kAskedKind : std::uint64_t{0});
    notifyHost(context.block, EvImportAsked);
    return kSuccess;
}

std::uint32_t killBlock(CommandContext& context) {
    KillStringA(inputAs<char*>(context.block));
    return kSuccess;
}

std::uint32_t doNothing(CommandContext&) {
    return kSuccess;
}

std::uint32_t notYetImplemented(CommandContext&) {
    return kNotYetImplemented;
}

}  // namespace nuv64
