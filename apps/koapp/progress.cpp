#include "progress.h"

#include <algorithm>
#include <cstdio>

#include "native.h"

namespace koapp {

void RunDisplay::stepEnded(const EvpRecord& step) {
    if (!step.ReportText) return;
    reports_ += step.ReportText;
    if (quiet_) return;
    print(step.ReportText);
    flushOutput();
}

void RunDisplay::fitBegan() {
    showLine("fit begins");
}

// The module's text has a line for each number; here they stand on one, written over the last.
void RunDisplay::fitProgress(const char* text) {
    std::string line = text ? text : "";
    for (std::size_t at = 0; (at = line.find('\n', at)) != std::string::npos; at += 2) {
        line.replace(at, 1, ", ");
    }
    showLine(line);
}

void RunDisplay::fitEnded() {
    showLine("");
    if (showsProgress_) std::fputc('\r', stderr);
}

void RunDisplay::showLine(const std::string& line) {
    if (!showsProgress_) return;
    const std::string rest(shownWidth_ > line.size() ? shownWidth_ - line.size() : 0, ' ');
    std::fprintf(stderr, "\r%s%s", line.c_str(), rest.c_str());
    std::fflush(stderr);
    shownWidth_ = line.size();
}

}  // namespace koapp
