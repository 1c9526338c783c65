// What a load changes on an experiment that is already there, kept so that a failing load can be
// taken back.
#pragma once

#include <cstdint>

#include "core/owned.h"
#include "data/data_object.h"

namespace nuv64 {

class RootState {
  public:
    explicit RootState(const cKoData& root);

    // Removes the zones that came since and puts the names and the script back. Once only.
    void restore(cKoData& root) noexcept;

  private:
    std::uint64_t zones_;
    std::uint64_t zoneNumber_;
    std::uint64_t sourceId_;
    const char* sourceName_;
    OwnedText experimentName_;
    std::uint64_t experimentType_;
    OwnedWideText title_;
    OwnedWideText folder_;
    OwnedWideText path_;
    OwnedText script_;
};

}  // namespace nuv64
