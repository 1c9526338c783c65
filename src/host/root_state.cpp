#include "host/root_state.h"

#include <utility>

#include "host/owned_copy.h"

namespace nuv64 {

RootState::RootState(const cKoData& root)
    : zones_(root.ChildCount()),
      zoneNumber_(root.ZoneNumber),
      sourceId_(root.DataSourceId),
      sourceName_(root.DataSourceName),
      experimentName_(copyOf(root.ExperimentName)),
      experimentType_(root.ExperimentType),
      title_(copyOf(root.FileTitle)),
      folder_(copyOf(root.FileFolder)),
      path_(copyOf(root.FilePath)),
      script_(copyOf(root.TaskScript)) {}

void RootState::restore(cKoData& root) noexcept {
    while (root.ChildCount() > zones_) root.RemoveItem(root.LastChild());
    root.ZoneNumber = zoneNumber_;
    root.DataSourceId = sourceId_;
    root.DataSourceName = sourceName_;
    root.ExperimentName = std::move(experimentName_);
    root.ExperimentType = experimentType_;
    root.FileTitle = std::move(title_);
    root.FileFolder = std::move(folder_);
    root.FilePath = std::move(path_);
    root.TaskScript = std::move(script_);
}

}  // namespace nuv64
