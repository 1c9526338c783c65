/* The one door for a host: a block, a command number, a callback. */
#ifndef NUV64_HOST_COMMAND_H
#define NUV64_HOST_COMMAND_H

#include "nuv64/core/types.h"

/* NuvCommandBlock.Flags */
#define NoUndoSnapshot 0x10000000u /* commands 95, 118, 122 run on Data itself, no roll-back */
#define KeepCommandA 0x20000000u   /* with KeepCommandB: Command stays set after the call */
#define CallbackMuted 0x40000000u  /* the callback is not called */
#define KeepCommandB 0x80000000u

/* Events that the callback receives. Its result counts for EvLoadByHost and EvExportByHost only. */
enum {
    EvCommandBegin = 1,
    EvCommandEnd = 2,
    EvCommandFailed = 3,
    EvConfigName = 9,
    EvApplicationReady = 10,
    EvApplicationStart = 11,
    EvDataClosed = 15,
    EvImportAsked = 17,
    EvStepReport = 20,       /* Input: the EvpRecord, its report text complete */
    EvLoadByHost = 30,       /* Input: a HostLoadRequest; the result becomes Status */
    EvExportByHost = 40,     /* Input: the ExportRequest; the result becomes Status */
    EvCursorPlot = 51,
    EvStepChangedData = 53,  /* Input: the EvpRecord, or a record shaped like it */
    EvUndone = 54,
    EvFitBegin = 60,
    EvFitProgress = 63,      /* Input: 8-bit text; the host may set the low byte of Output to stop */
    EvFitEnd = 64            /* Input: 8-bit text */
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
    uint32_t Reserved1;
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
    const char16_t* text; /* output of command 4 */
    const char* textA;    /* output of command 5 */
} ErrorTextRequest;

typedef struct LoadRequest { /* command 98 */
    uint32_t SourceType;       /* data-source ID */
    const char16_t* Path;
    uint32_t LoadFlags;        /* 0x200: a file name is needed */
    const char* ParameterText; /* may be null */
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

typedef struct ParameterRequest { /* commands 126 and 127 */
    uint64_t Zone;
    const char* Key;
    uint64_t word2;
    const char* Value; /* command 126 */
} ParameterRequest;

typedef struct TextFileRequest { /* command 142 */
    uint64_t FileKind;
    uint64_t word1;
    const char16_t* Path; /* null asks the user */
    const char* Text;
} TextFileRequest;

typedef struct ZoneAttributeRequest { /* command 141 */
    const uint64_t* zone;
    const uint64_t* value;
} ZoneAttributeRequest;

NUV64_BEGIN_DECLS

/* Runs a command. Returns the block for every command from 3 up, a new block for command 1 (null
 * when memory is short), null for command 2 and for a null block. The outcome is block->Status. */
NUV64_API NuvCommandBlock* NuvCommand(uint32_t command, NuvCommandBlock* block) NUV64_NOEXCEPT;
/* The function that does the work of NuvCommand. The two further words carry nothing. */
NUV64_API NuvCommandBlock* LibCommand(uint32_t command, NuvCommandBlock* block, uint64_t extra1,
                                      uint64_t extra2) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
