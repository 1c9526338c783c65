// Holds the class and the record that hosts read it through to one layout.
#include <cstddef>

#include "nuv64/data/data_object.h"

#include "data/data_object.h"
#include "data/stelar_file.h"
#include "data/zone_text.h"

#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace {

#define SAME_PLACE(layoutField, member) \
    static_assert(offsetof(KoDataLayout, layoutField) == offsetof(cKoData, member))

SAME_PLACE(ItemFlags, flags);
SAME_PLACE(NextSibling, next);
SAME_PLACE(PreviousSibling, prev);
SAME_PLACE(Serial, serial);
SAME_PLACE(ChildCount, count);
SAME_PLACE(FirstChild, first);
SAME_PLACE(LastChild, last);
SAME_PLACE(Flags, Flags);
SAME_PLACE(ZoneNumber, ZoneNumber);
SAME_PLACE(DataSourceName, DataSourceName);
SAME_PLACE(DataSourceId, DataSourceId);
SAME_PLACE(ExperimentName, ExperimentName);
SAME_PLACE(ExperimentType, ExperimentType);
SAME_PLACE(HostMark, HostMark);
SAME_PLACE(FileTitle, FileTitle);
SAME_PLACE(FileFolder, FileFolder);
SAME_PLACE(FilePath, FilePath);
SAME_PLACE(ExportPath, ExportPath);
SAME_PLACE(Reserved6, Parameters);
SAME_PLACE(ParameterText, Parameters.Text);
SAME_PLACE(ParameterLineCount, Parameters.LineCount);
SAME_PLACE(TaskScript, TaskScript);
SAME_PLACE(AxisGrid, AxisGrid);
SAME_PLACE(AxisFirst, AxisFirst);
SAME_PLACE(AxisLast, AxisLast);
SAME_PLACE(AxisScale, AxisScale);
SAME_PLACE(AxisOffset, AxisOffset);
SAME_PLACE(AxisUnit, AxisUnit);
SAME_PLACE(ValueScale, ValueScale);
SAME_PLACE(ValueUnit, ValueUnit);
SAME_PLACE(Channels, Channels);
SAME_PLACE(Points, Points);
SAME_PLACE(Samples, Samples);
SAME_PLACE(PointTags, PointTags);
SAME_PLACE(ChannelStatistics, ChannelStatistics);
SAME_PLACE(ChannelKinds, ChannelKinds);
SAME_PLACE(Results, Results);
SAME_PLACE(Previous, Previous);
SAME_PLACE(Evaluated, Evaluated);
SAME_PLACE(BlockAxisCount, BlockAxisCount);
SAME_PLACE(BlockAxis, BlockAxis);

#undef SAME_PLACE

static_assert(sizeof(KoDataLayout) == sizeof(cKoData));
static_assert(sizeof(cKoListItem) == 64 && sizeof(cKoList) == 56);
static_assert(offsetof(cKoData, Flags) == 120 && offsetof(cKoData, ZoneNumber) == 128);

static_assert(offsetof(cKoAsciPars, Text) == 8 && offsetof(cKoAsciPars, LineCount) == 16 &&
              offsetof(cKoAsciPars, Capacity) == 24 && offsetof(cKoAsciPars, Length) == 32 &&
              offsetof(cKoAsciPars, GrowthStep) == 40 && sizeof(cKoAsciPars) == 48);
static_assert(KoDataSelected == cKoData::kSelected && KoDataTimeDomain == cKoData::kTimeDomain &&
              KoDataFrequencyDomain == cKoData::kFrequencyDomain && KoDataDosy == cKoData::kDosy);
static_assert(KoChannelSignal == cKoData::kSignalKind && KoChannelFit == cKoData::kFitKind);

static_assert(offsetof(cKoAsciZone, zoneNumber) == 64 && offsetof(cKoAsciZone, pars) == 72 &&
              offsetof(cKoAsciZone, reserved) == 120 && offsetof(cKoAsciZone, lineCount) == 128 &&
              offsetof(cKoAsciZone, data) == 136 && offsetof(cKoAsciZone, format) == 144 &&
              offsetof(cKoAsciZone, dataCapacity) == 152 &&
              offsetof(cKoAsciZone, dataLength) == 160);
static_assert(offsetof(cKoAsciZones, listFlags) == 56 && offsetof(cKoAsciZones, owner) == 64 &&
              offsetof(cKoAsciZones, currentZone) == 72 && offsetof(cKoAsciZones, state) == 80);
static_assert(offsetof(cKoStelarData, folder) == 88 && offsetof(cKoStelarData, file) == 96);

}  // namespace
