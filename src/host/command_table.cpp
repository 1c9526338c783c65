#include "host/command_table.h"

#include <algorithm>
#include <iterator>

#include "host/application_commands.h"
#include "host/console_commands.h"
#include "host/data_commands.h"
#include "host/load_commands.h"
#include "host/parameter_commands.h"
#include "host/script_commands.h"

namespace nuv64 {
namespace {

using enum CommandNode;

// In the order of the numbers. The commands of the configuration, of the calculators and
// of the plots are known numbers that answer "Not yet implemented".
constexpr CommandEntry kCommands[] = {
    {CmdApplicationInfo, describeApplication, None},
    {CmdErrorText, errorText, None},
    {CmdErrorTextA, errorTextA, None},
    {CmdShellOpen, shellOpen, None},
    {CmdLocalTimeText, localTimeText, None},
    {CmdExtractBlock, extractBlock, None},
    {CmdRunStep, runStep, None},
    {CmdZoneFolder, giveField<&cKoData::FileFolder>, ZoneOrExperiment},
    {CmdZoneOpenFolder, openZoneFolder, None},
    {CmdLoad, loadData, None},
    {CmdZoneFolderAgain, giveField<&cKoData::FileFolder>, ZoneOrExperiment},
    {CmdZoneTitle, giveField<&cKoData::FileTitle>, ZoneOrExperiment},
    {CmdZonePath, giveField<&cKoData::FilePath>, ZoneOrExperiment},
    {CmdCloseData, closeDataCommand, None},
    {CmdDeleteObject, deleteObject, None},
    {CmdDataTypeId, dataTypeId, None},
    {CmdParameterCount, parameterCount, ZoneOrExperiment},
    {CmdParameterList, parameterList, None},
    {107, notYetImplemented, None},
    {CmdExport, exportData, None},
    {CmdBlockCount, blockCount, Zone},
    {CmdExperimentName, experimentName, ZoneOrExperiment},
    {CmdImportAsk, askImport, None},
    {CmdReserved112, notYetImplemented, None},
    {CmdZoneDataTypeId, giveField<&cKoData::DataSourceId>, ZoneOrExperiment},
    {CmdZoneDataType, giveField<&cKoData::DataSourceName>, ZoneOrExperiment},
    {CmdUndo, undo, None},
    {CmdReserved116, notYetImplemented, None},
    {117, notYetImplemented, None},
    {CmdRunStoredScript, runStoredScript, None},
    {CmdNone, doNothing, None},
    {120, notYetImplemented, None},
    {121, notYetImplemented, None},
    {CmdRunScript, runScript, None},
    {123, notYetImplemented, None},
    {CmdKillText, killBlock, None},
    {CmdKillBlock, killBlock, None},
    {CmdSetParameter, setParameter, None},
    {CmdGetParameter, getParameter, None},
    {CmdBlockPoints, giveField<&cKoData::Points>, FirstBlock},
    {CmdBlockXFirst, giveField<&cKoData::AxisFirst>, FirstBlock},
    {CmdBlockXLast, giveField<&cKoData::AxisLast>, FirstBlock},
    {CmdBlockXUnit, giveField<&cKoData::AxisUnit>, FirstBlock},
    {CmdBlockGrid, giveField<&cKoData::AxisGrid>, FirstBlock},
    {CmdZoneXFirst, giveField<&cKoData::AxisFirst>, Zone},
    {CmdZoneXLast, giveField<&cKoData::AxisLast>, Zone},
    {CmdZoneXUnit, giveField<&cKoData::AxisUnit>, Zone},
    {CmdZoneGrid, giveField<&cKoData::AxisGrid>, Zone},
    {138, notYetImplemented, None},
    {139, notYetImplemented, None},
    {CmdZoneMark, giveField<&cKoData::HostMark>, ZoneOrExperiment},
    {CmdSetZoneMark, setZoneMark, None},
    {CmdWriteTextFile, writeTextFile, None},
    {CmdRestoreZonePrevious, restoreZonePrevious, None},
    {CmdRestoreZoneOldest, restoreZoneOldest, None},
    {145, notYetImplemented, None},
    {CmdConsoleControl, controlConsole, None},
    {CmdConsoleText, consoleText, None},
    {CmdConsoleTextA, consoleTextA, None},
    {CmdConsoleMenu, consoleMenu, None},
    {10001, notYetImplemented, None},
    {10002, notYetImplemented, None},
    {10004, notYetImplemented, None},
    {10005, notYetImplemented, None},
    {10007, notYetImplemented, None},
    {10008, notYetImplemented, None},
    {10009, notYetImplemented, None},
    {10010, notYetImplemented, None},
    {10011, notYetImplemented, None},
    {10012, notYetImplemented, None},
    {10013, notYetImplemented, None},
    {10014, notYetImplemented, None},
    {10015, notYetImplemented, None},
    {10016, notYetImplemented, None},
    {10017, notYetImplemented, None},
    {10018, notYetImplemented, None},
    {10019, notYetImplemented, None},
    {10020, notYetImplemented, None},
    {10021, notYetImplemented, None},
};

constexpr bool numbersAscend() {
    return std::is_sorted(std::begin(kCommands), std::end(kCommands),
                          [](const CommandEntry& a, const CommandEntry& b) {
                              return a.number <= b.number;  // no number twice
                          });
}

}  // namespace

const CommandEntry* findCommand(std::uint32_t number) noexcept {
    static_assert(numbersAscend());
    const auto* entry = std::lower_bound(
        std::begin(kCommands), std::end(kCommands), number,
        [](const CommandEntry& command, std::uint32_t wanted) { return command.number < wanted; });
    return entry != std::end(kCommands) && entry->number == number ? entry : nullptr;
}

}  // namespace nuv64
