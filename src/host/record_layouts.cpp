// The records that cross the boundary keep their places: hosts in other languages address them by
// offset.
#include "nuv64/host/command.h"

#include <cstddef>

#define AT(record, field, offset) static_assert(offsetof(record, field) == (offset))

AT(NuvCommandBlock, Flags, 0);
AT(NuvCommandBlock, Status, 4);
AT(NuvCommandBlock, Command, 8);
AT(NuvCommandBlock, Callback, 16);
AT(NuvCommandBlock, Input, 24);
AT(NuvCommandBlock, Output, 32);
AT(NuvCommandBlock, Data, 40);
static_assert(sizeof(NuvCommandBlock) == 48);

AT(ApplicationInfo, TextCapacity, 0);
AT(ApplicationInfo, ApplicationKind, 4);
AT(ApplicationInfo, Reserved1, 8);
AT(ApplicationInfo, Reserved2, 12);
AT(ApplicationInfo, Reserved3, 16);
AT(ApplicationInfo, Title, 20);
AT(ApplicationInfo, ExecutableName, 1044);
AT(ApplicationInfo, ExecutableFolder, 3092);
AT(ApplicationInfo, Reserved4, 5144);
AT(ApplicationInfo, VersionMajor, 5152);
AT(ApplicationInfo, VersionMinor, 5156);
AT(ApplicationInfo, VersionBuild, 5160);
AT(ApplicationInfo, VersionText, 5164);
AT(ApplicationInfo, Reserved5, 7212);
static_assert(sizeof(ApplicationInfo) == 9264);

AT(ErrorTextRequest, code, 0);
AT(ErrorTextRequest, word1, 8);
AT(ErrorTextRequest, text, 16);
AT(ErrorTextRequest, textA, 24);
static_assert(sizeof(ErrorTextRequest) == 32);

AT(LoadRequest, SourceType, 0);
AT(LoadRequest, Path, 8);
AT(LoadRequest, LoadFlags, 16);
AT(LoadRequest, ParameterText, 24);
static_assert(sizeof(LoadRequest) == 32);

AT(HostLoadRequest, SourceType, 0);
AT(HostLoadRequest, Data, 8);
AT(HostLoadRequest, Path, 16);
AT(HostLoadRequest, zero, 24);
static_assert(sizeof(HostLoadRequest) == 32);

AT(ExportRequest, ExportType, 0);
AT(ExportRequest, Path, 8);
AT(ExportRequest, Node, 16);
AT(ExportRequest, Zone, 24);
AT(ExportRequest, Block, 32);
AT(ExportRequest, ExportFlags, 40);
static_assert(sizeof(ExportRequest) == 48);

AT(ImportAskRequest, word0, 0);
AT(ImportAskRequest, word1, 8);
AT(ImportAskRequest, word2, 16);
AT(ImportAskRequest, word3, 24);
AT(ImportAskRequest, kind, 32);
static_assert(sizeof(ImportAskRequest) == 40);

AT(ParameterRequest, Zone, 0);
AT(ParameterRequest, Key, 8);
AT(ParameterRequest, word2, 16);
AT(ParameterRequest, Value, 24);
static_assert(sizeof(ParameterRequest) == 32);

AT(TextFileRequest, FileKind, 0);
AT(TextFileRequest, word1, 8);
AT(TextFileRequest, Path, 16);
AT(TextFileRequest, Text, 24);
static_assert(sizeof(TextFileRequest) == 32);

AT(ZoneAttributeRequest, zone, 0);
AT(ZoneAttributeRequest, value, 8);
static_assert(sizeof(ZoneAttributeRequest) == 16);
