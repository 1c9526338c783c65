/* The one door for a host: a block, a command number, a callback.
 *
 * A host opens a block with NuvCommand(CmdOpen, 0), sets Callback and Flags in it, describes itself
 * with CmdApplicationInfo and then gives any command in any order; CmdClose ends it. The argument
 * of a command travels in Input, its result in Output, its outcome in Status.
 *
 * Conventions shared by all commands:
 * - Records behind Input are rows of 64-bit words; a word that is not named is ignored.
 * - "Zone" is the index of a zone among the children of Data; where the experiment itself may be
 *   meant, the number of zones stands for it.
 * - A command that needs data gives 23 without it, one that needs a zone 26 when there is none of
 *   that index. Running out of memory gives 0x80001 and leaves Data as it was.
 * - A command that fails, or that has no result, leaves Output as it was unless stated.
 * - Texts in Output are either owned by a node, and then valid until the node is changed, undone or
 *   closed, or new, and then given back through CmdKillText.
 * - A block belongs to one thread and runs one command at a time. The callback runs inside the
 *   command, on the calling thread. */
#ifndef NUV64_HOST_COMMAND_H
#define NUV64_HOST_COMMAND_H

#include "nuv64/core/types.h"

/* NuvCommandBlock.Flags; the bits not named are free for the host. */
#define NoUndoSnapshot 0x10000000u /* commands 95, 118, 122 run on Data itself, no roll-back */
#define KeepCommandA 0x20000000u   /* this or KeepCommandB: Command stays set after the call */
#define CallbackMuted 0x40000000u  /* the callback is not called */
#define KeepCommandB 0x80000000u

/* Events that the callback receives. Its result counts for EvLoadByHost and EvExportByHost only. */
enum {
    EvCommandBegin = 1,  /* before every command but CmdOpen and CmdClose; Command is set */
    EvCommandEnd = 2,    /* after it; Status and Output are set, Input is restored */
    EvCommandFailed = 3, /* after EvCommandEnd when Status is not 0; Command is cleared by now */
    EvConfigName = 9,    /* Output: the host stores the base name of its configuration */
    EvApplicationReady = 10, /* with EvApplicationStart at the end of CmdApplicationInfo, kind 2 */
    EvApplicationStart = 11,
    EvDataClosed = 15,      /* data was closed, kind 2 */
    EvImportAsked = 17,     /* Output: 0 or 13 */
    EvStepReport = 20,      /* Input: the EvpRecord, its report text complete */
    EvLoadByHost = 30,      /* Input: a HostLoadRequest; the result becomes Status */
    EvExportByHost = 40,    /* Input: the ExportRequest; the result becomes Status */
    EvCursorPlot = 51,      /* Output: the host stores the plot to read */
    EvStepChangedData = 53, /* Input: the EvpRecord, or a record shaped like it */
    EvUndone = 54,          /* CmdUndo removed a snapshot */
    EvFitBegin = 60,        /* the low byte of Input is 1 */
    EvFitProgress = 63,     /* Input: 8-bit text; the host may set the low byte of Output to stop */
    EvFitEnd = 64           /* Input: 8-bit text */
};

/* Command numbers. A number that no command has gives status 10, one whose part of the module is
 * not there yet gives 9. */
enum {
    CmdOpen = 1,            /* returns a new block, zeroed, Command 1; null when memory is short */
    CmdClose = 2,           /* as CmdCloseData, then releases the block; returns null */
    CmdApplicationInfo = 3, /* Input: ApplicationInfo. The module writes its version and folders
                               into the record and keeps a copy for the whole process. Kind 2:
                               events 10 and 11. Kind 1 gives 9 */
    CmdErrorText = 4,       /* Input: ErrorTextRequest; text receives the words of code */
    CmdErrorTextA = 5,      /* the same for textA */
    CmdShellOpen = 6,       /* Input: wide path or link, opened by the system; null or empty: 63 */
    CmdLocalTimeText = 7,   /* Output: new 8-bit text, such as "2026-11-15 0:18:59" */
    CmdExtractBlock = 94, /* Input: zone + block * 4096. A copy of the block becomes the only block
                             of a new zone at the end; a missing zone or block gives 0x80001 */
    CmdRunStep = 95,      /* Input: EvpRecord; runs one step under the undo rule of CmdRunScript */
    CmdZoneFolder = 96,   /* Input: zone or experiment. Output: wide text, owned by the node */
    CmdZoneOpenFolder = 97, /* Input: zone; its folder is opened by the system */
    CmdLoad = 98, /* Input: LoadRequest; appends the zones of a source to Data. A load that
                     fails leaves Data as it was before */
    CmdZoneFolderAgain = 99, /* as CmdZoneFolder */
    CmdZoneTitle = 100,      /* Input: zone or experiment. Output: wide file name, owned */
    CmdZonePath = 101,       /* Input: zone or experiment. Output: wide full path, owned */
    CmdCloseData = 102,      /* deletes Data with its undo chain; kind 2: event 15 */
    CmdDeleteObject = 103,   /* Input: address of a pointer to an object; deletes it, writes null */
    CmdDataTypeId = 104,     /* Output: source ID of Data, 0 without data */
    CmdParameterCount = 105, /* Input: zone or experiment. Output: lines in its parameter block */
    CmdParameterList = 106,  /* Input: zone or experiment. Output: new 8-bit text, each parameter as
                                key, tab, value, tab; 0 without data or node */
    CmdExport = 108,         /* Input: ExportRequest; type 10 writes a CSV table */
    CmdBlockCount = 109,     /* Input: zone. Output: its number of blocks */
    CmdExperimentName = 110, /* Input: zone or experiment. Output: 8-bit text, owned, of the nearest
                                node at or above that has parameters */
    CmdImportAsk = 111,      /* Input: ImportAskRequest. Output: 13 or 0; then event 17 */
    CmdReserved112 = 112,
    CmdZoneDataTypeId = 113, /* Input: zone or experiment. Output: source ID */
    CmdZoneDataType = 114, /* Input: zone or experiment. Output: 8-bit name, owned by the module */
    CmdUndo = 115,         /* removes the newest snapshot. Output: 1 and event 54, or 0 */
    CmdReserved116 = 116,
    CmdRunStoredScript = 118, /* CmdRunScript with the script stored in Data */
    CmdNone = 119,            /* does nothing */
    CmdRunScript = 122,       /* Input: 8-bit task script, or 0 for the stored one. Unless
                                 NoUndoSnapshot is set a snapshot is taken before, and a failing script
                                 takes it back. Without data 14 */
    CmdKillText = 124,        /* Input: address of a pointer to a text that the caller owns */
    CmdKillBlock = 125,       /* Input: address of a pointer to a block that the caller owns */
    CmdSetParameter = 126,    /* Input: ParameterRequest; Zone all ones sets every zone */
    CmdGetParameter = 127, /* Input: ParameterRequest. Output: new 8-bit text; 0 and status 21 when
                              there is no such key */
    CmdBlockPoints = 128,  /* Input: zone, here and below. Output, of its first block: points */
    CmdBlockXFirst = 129,  /* first axis value, the bits of a double */
    CmdBlockXLast = 130,   /* last axis value, the bits of a double */
    CmdBlockXUnit = 131,   /* 8-bit text, owned */
    CmdBlockGrid = 132,    /* grid type */
    CmdZoneXFirst = 133,   /* Output, of the zone itself: first value of its block axis */
    CmdZoneXLast = 134,
    CmdZoneXUnit = 135,
    CmdZoneGrid = 136,
    CmdZoneMark = 140,            /* Input: zone or experiment. Output: the host's mark */
    CmdSetZoneMark = 141,         /* Input: ZoneAttributeRequest */
    CmdWriteTextFile = 142,       /* Input: TextFileRequest */
    CmdRestoreZonePrevious = 143, /* Input: zone, replaced by its state in the previous snapshot;
                                     does nothing when either is missing */
    CmdRestoreZoneOldest = 144,   /* the same with the oldest snapshot that still holds the zone */
    CmdConsoleControl = 1000, /* Input: wide control text for ConScipio, whose result is dropped */
    CmdConsoleText = 1001,    /* Input: wide text, printed on the console */
    CmdConsoleTextA = 1002,   /* the same with 8-bit text */
    CmdConsoleMenu = 1003 /* Input: the first ConMenuRow of a menu. ConMenu with the word of that
                             row as flags and the block as context; Status is what it gives, 0.
                             A null Input does nothing, here and in the three above */
};

/* Allocated by command 1, owned by the module, freed by command 2. The host reads and writes its
 * fields between calls. */
struct NuvCommandBlock {
    uint32_t Flags;   /* the host's switches; the module never writes it */
    uint32_t Status;  /* status of the last command */
    uint32_t Command; /* number of the command in progress */
    uint64_t (*Callback)(uint32_t event, NuvCommandBlock* block);
    uint64_t Input;  /* a value, or a pointer to text or to a command's record */
    uint64_t Output; /* integer, pointer or the bits of a double */
    cKoData* Data;   /* the experiment in hand; null until data is loaded */
};

/* Command 3: the host's description of itself. */
typedef struct ApplicationInfo {
    uint32_t TextCapacity;    /* capacity of the text buffers below, 1024 */
    uint32_t ApplicationKind; /* 1 console application, 2 graphical host */
    uint32_t Reserved1;       /* carried only, as the other reserved fields */
    uint32_t Reserved2;
    uint32_t Reserved3;
    char16_t Title[512];
    char16_t ExecutableName[1024];   /* written by the module */
    char16_t ExecutableFolder[1024]; /* written by the module */
    uint64_t Reserved4;
    uint32_t VersionMajor; /* written by the module, with the two below */
    uint32_t VersionMinor;
    uint32_t VersionBuild;
    char16_t VersionText[1024]; /* written by the module */
    char16_t Reserved5[1024];
} ApplicationInfo;

typedef struct ErrorTextRequest { /* commands 4 and 5 */
    uint32_t code;
    uint64_t word1;
    const char16_t* text; /* output of command 4: one buffer for the whole process */
    const char* textA;    /* output of command 5: constant */
} ErrorTextRequest;

typedef struct LoadRequest { /* command 98 */
    uint32_t SourceType;     /* data-source ID */
    const char16_t* Path;
    uint32_t LoadFlags;        /* 0x200: a file name is needed, 56 without one */
    const char* ParameterText; /* parameter lines of a simulated source; may be null */
} LoadRequest;

typedef struct HostLoadRequest { /* event 30 */
    uint64_t SourceType;
    cKoData* Data;
    const char16_t* Path;
    uint64_t zero;
} HostLoadRequest;

typedef struct ExportRequest { /* command 108, event 40 */
    uint32_t ExportType;
    const char16_t* Path; /* null asks the user */
    cKoData* Node;        /* output: the node that the module resolved */
    uint64_t Zone;        /* all ones for the experiment itself */
    uint64_t Block;       /* all ones for the whole zone */
    uint32_t ExportFlags;
} ExportRequest;

typedef struct ImportAskRequest { /* command 111 */
    uint64_t word0;
    uint64_t word1;
    uint64_t word2;
    uint64_t word3;
    uint64_t kind;
} ImportAskRequest;

typedef struct ParameterRequest { /* commands 126 and 127 */
    uint64_t Zone;
    const char* Key;
    uint64_t word2;
    const char* Value; /* command 126 */
} ParameterRequest;

typedef struct TextFileRequest { /* command 142 */
    uint64_t FileKind;           /* 1 text, 10 CSV: the kind of file that the user is asked for */
    uint64_t word1;
    const char16_t* Path; /* null asks the user */
    const char* Text;
} TextFileRequest;

typedef struct ZoneAttributeRequest { /* command 141 */
    const uint64_t* zone;
    const uint64_t* value;
} ZoneAttributeRequest;

NUV64_BEGIN_DECLS

/* Runs a command: LibCommand without the two further words.
 * command: a number of the table above. block: the block of command 1, any value for CmdOpen.
 * Returns the block, a new block for CmdOpen (null when memory is short), null for CmdClose and for
 * a null block. The outcome is block->Status. */
NUV64_API NuvCommandBlock* NuvCommand(uint32_t command, NuvCommandBlock* block) NUV64_NOEXCEPT;

/* The function that does the work of NuvCommand. The two further words carry nothing. */
NUV64_API NuvCommandBlock* LibCommand(uint32_t command, NuvCommandBlock* block, uint64_t extra1,
                                      uint64_t extra2) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
