#include "timeline/TimelinePrinter.h"

#include "timeline/ObservedText.h"
#include "timeline/TimelineText.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace tv {

void printTrace(const TimelineEntries& entries) {
    for (const TimelineEntry& entry : entries) {
        const std::string who = entry.player >= 0  ? "player " + std::to_string(entry.player)
                                : entry.object > 0 ? "object " + std::to_string(entry.object)
                                                   : "browser";
        std::string text = timelineText(entry).toStdString();
        std::replace(text.begin(), text.end(), '\n', ' ');
        text.erase(text.find_last_not_of(' ') + 1);
        std::printf("%8.3f %-9s %-8s%s%s\n", static_cast<double>(entry.timeUs) / 1e6, who.c_str(),
                    timelineKindName(entry.kind()), text.empty() ? "" : " ", text.c_str());
    }
    std::fflush(stdout);
}

} // namespace tv
