// What evaluate shows while a script runs: the reports, and the progress of long fits.
#pragma once

#include <string>

#include "host.h"

namespace koapp {

class RunDisplay : public Listener {
  public:
    RunDisplay(bool quiet, bool onTerminal) : quiet_(quiet), showsProgress_(onTerminal && !quiet) {}

    void stepEnded(const EvpRecord& step) override;
    void fitBegan() override;
    void fitProgress(const char* text) override;
    void fitEnded() override;

    // All reports so far.
    const std::string& reports() const noexcept { return reports_; }

  private:
    void showLine(const std::string& line);

    bool quiet_;
    bool showsProgress_;
    std::size_t shownWidth_ = 0;
    std::string reports_;
};

}  // namespace koapp
