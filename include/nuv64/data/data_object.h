/* Experiment data as a host sees it: loading, exporting and reading the tree of nodes.
 *
 * All data lives in one kind of node, used at three levels: the experiment (the root, held in the
 * Data field of the command block), its zones, and their blocks. A zone is one setting of the outer
 * variable of the instrument, in fast field cycling one relaxation field; its parameters describe
 * the measurement, its axis is the block axis. A block is one recorded signal; channel 0 of its
 * matrix holds the times in seconds, channel 1 the real and channel 2 the imaginary part.
 *
 * A tree has no lock: one command at a time works on it. */
#ifndef NUV64_DATA_DATA_OBJECT_H
#define NUV64_DATA_DATA_OBJECT_H

#include "nuv64/core/types.h"

/* Data-source IDs, the field DataSourceId and the sourceType of loads and exports. */
enum {
    NUV64_SOURCE_TEXT = 1,
    NUV64_SOURCE_JSON = 2,
    NUV64_SOURCE_XML = 3,
    NUV64_SOURCE_JCAMP = 4,
    NUV64_SOURCE_STELAR = 5,
    NUV64_SOURCE_SPIN_TRACK = 6,
    NUV64_SOURCE_OXFORD = 7,
    NUV64_SOURCE_BRUKER = 8,
    NUV64_SOURCE_VARIAN = 9,
    NUV64_SOURCE_EXCEL = 10,
    NUV64_SOURCE_CLIPBOARD = 11,
    NUV64_SOURCE_SIMULATION = 12
};

/* Bits of the field Flags. */
#define KoDataSelected 0x1u              /* selected by the host; the task engine doesn't read it */
#define KoDataTimeDomain 0x1000000u      /* the signal of the block is in the time domain */
#define KoDataFrequencyDomain 0x2000000u /* or in the frequency domain */
#define KoDataDosy 0x4000000u            /* made by the diffusion transform */

/* Words of ChannelKinds that the module itself gives. */
#define KoChannelSignal 0u
#define KoChannelFit 2u

/* How a node lies in memory. A host that holds a cKoData* (the Data field of the command block, the
 * Node of an export request, the children below) may read it through a pointer to this record:
 *
 *     const struct KoDataLayout* node = (const struct KoDataLayout*)block->Data;
 *
 * It is for reading only; what it points at is owned by the node and stays valid until the node is
 * changed, undone or closed. Fields called Reserved are the module's own. Texts may be null. */
typedef struct KoDataLayout {
    const void* Reserved1;
    uint32_t ItemFlags; /* the node as a member of its parent's list */
    const void* Reserved2[2];
    const cKoData* NextSibling;     /* null for the last child and for the root */
    const cKoData* PreviousSibling; /* null for the first child and for the root */
    int32_t Serial; /* number of the child in order of addition, from 1; -1 at the root */
    const void* Reserved3[2];
    uint32_t ChildCount;
    uint32_t Reserved4[2];
    const void* Reserved5[2];
    const cKoData* FirstChild;
    const cKoData* LastChild;

    uint32_t Flags;             /* KoData... bits */
    uint64_t ZoneNumber;        /* the number given by the instrument's file, 0 for none */
    const char* DataSourceName; /* name of DataSourceId */
    uint64_t DataSourceId;
    const char* ExperimentName; /* such as "NP/S" */
    uint64_t ExperimentType;    /* all ones for unset */
    uint64_t HostMark;          /* the host's word, commands 140 and 141; all ones for unset */
    const char16_t* FileTitle;
    const char16_t* FileFolder;
    const char16_t* FilePath;
    const char16_t* ExportPath;
    const void* Reserved6;     /* the parameter block from here on: commands 105, 106, 126, 127 */
    const char* ParameterText; /* all lines, each behind a CR */
    uint64_t ParameterLineCount;
    uint64_t Reserved7[3];
    const char* TaskScript;
    uint64_t AxisGrid; /* 1 linear, 2 logarithmic, 3 inverse, 4 square, 0 none (read as linear) */
    double AxisFirst;  /* a zone's axis is that of its block series, a block's is its channel 0 */
    double AxisLast;
    double AxisScale;
    double AxisOffset;
    const char* AxisUnit;
    double ValueScale;
    const char* ValueUnit;
    uint64_t Channels;
    uint64_t Points;
    const double* Samples; /* Channels rows of Points values, row after row; null for none */
    const uint32_t* PointTags;
    const double* ChannelStatistics; /* 10 for each channel */
    const uint32_t* ChannelKinds;    /* KoChannel... words */
    double Results[20];
    const cKoData* Previous;  /* the older state in the undo chain, only at the root */
    const cKoData* Evaluated; /* the result node */
    uint64_t BlockAxisCount;  /* values in BlockAxis, 0 for none */
    const double*
        BlockAxis; /* block-axis values that no grid describes, in seconds; null for none */
} KoDataLayout;

NUV64_BEGIN_DECLS

/* Fills an experiment from an instrument's file.
 *
 * data: the root; the zones of the file are appended to those it has. On success it takes the
 * source ID, name, title, folder and path of this file and a new copy of the default task script.
 * sourceType: NUV64_SOURCE_STELAR. path: full 16-bit file name, or null to ask the user.
 *
 * Returns 0, or
 *   9   a source whose reader is not in this version (Spin Track, Oxford, Bruker, Varian);
 *   14  the file holds no zone;
 *   18  data is null (Stelar, Spin Track);
 *   21  a zone without the number of blocks or of points, or a headed zone without its delays;
 *   27  no known layout; 28 a malformed list of delays;
 *   56  the file is missing or of another kind; 59 an illegal name; 62 it ends before any zone;
 *   63  the dialog was cancelled; 65 any other source;
 *   0x80001 memory is short, or the file declares more points than it can hold.
 * Zones converted before a failing one stay in data; the caller that made data removes it. Numbers
 * that can't be read become ___NAN and stop nothing. Points that the file declares but doesn't hold
 * are left 0. */
NUV64_API uint32_t LoadKoDataEx(cKoData* data, uint32_t sourceType,
                                const char16_t* path) NUV64_NOEXCEPT;

/* Writes one zone to a new file.
 *
 * node: a zone (a node whose children have none), unchanged by the call. sourceType:
 * NUV64_SOURCE_STELAR. path: full 16-bit file name, or null to ask the user; an existing file is
 * never replaced. Values are stored as whole numbers within plus and minus 1,000,000 with one
 * common scale factor; the times are not stored.
 *
 * Returns 0, or
 *   9   a form whose writer is not in this version (Bruker, Varian);
 *   14  no parameters, or no first block with points;
 *   23  node is null; 28 node isn't a zone;
 *   48  the file exists, or can't be created or written (a file begun by this call is removed);
 *   56  the dialog was cancelled; 59 an illegal name; 65 any other source; 0x80001 memory. */
NUV64_API uint32_t ExportToFileEx(cKoData* node, uint32_t sourceType,
                                  const char16_t* path) NUV64_NOEXCEPT;

NUV64_END_DECLS

#endif
