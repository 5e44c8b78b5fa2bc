// What the player reports to an observer of media_trace.h.
#include "player_fixture.h"

#include "media_trace.h"

using Trace = PlayerTest;

namespace {

/** Keeps the entries as lines, with their times. */
struct Journal {
    Journal() {
        mediaTraceSetCallback(
            [](const MediaTraceEntry* entry, void* journal) { static_cast<Journal*>(journal)->write(*entry); }, this);
    }
    ~Journal() { end(); }

    /** Nothing is written from now on. */
    void end() { mediaTraceSetCallback(nullptr, nullptr); }

    void write(const MediaTraceEntry& entry) {
        times.push_back(entry.timeUs);
        if (entry.kind == MEDIA_TRACE_COMMAND) {
            std::string line = "command " + std::to_string(entry.command.function);
            for (int i = 0; i < entry.command.numberCount; ++i) {
                line += ' ' + std::to_string(entry.command.numbers[i]);
            }
            lines.emplace_back(entry.player, line + (entry.command.url ? std::string(" ") + entry.command.url : "") +
                                                 " = " + std::to_string(entry.command.result));
        } else if (entry.kind == MEDIA_TRACE_REPORT) {
            lines.emplace_back(entry.player, "report " + std::to_string(entry.report.event));
        } else if (entry.kind == MEDIA_TRACE_REQUEST) {
            lines.emplace_back(entry.player, "request " + std::string(entry.request.url) + ' ' +
                                                 std::to_string(entry.request.status));
            hasLength |= entry.request.bytes > 0;
        }
    }

    /** Forgets entries of other players: a former test's may still report that it stopped. */
    void keepOnly(int player) {
        lines.erase(
            std::remove_if(lines.begin(), lines.end(), [player](const auto& line) { return line.first != player; }),
            lines.end());
    }

    /** @return the line's number, that of the end when it is not there */
    size_t find(const std::string& line) const {
        const auto found =
            std::find_if(lines.begin(), lines.end(), [&line](const auto& one) { return one.second == line; });
        return static_cast<size_t>(found - lines.begin());
    }

    std::vector<std::pair<int, std::string>> lines; ///< with their players
    std::vector<int64_t> times;
    bool hasLength = false;
};

std::string command(MediaTraceFunction function, const std::string& rest) {
    return "command " + std::to_string(function) + rest;
}

std::string report(eMEDIA_CALLBACK_EVENT event) {
    return "report " + std::to_string(event);
}

} // namespace

TEST_F(Trace, HasTheArgumentsAndResultsOfCommandsAndWhatTheServerResponded) {
    Journal journal;
    {
        TestPlayer player;
        player.start(filmUrl);
        EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
        EXPECT_EQ(1, Hbbtv_AL_MediaPlayerSeek(player.handle, 5'000));
        EXPECT_EQ(0, Hbbtv_AL_MediaPlayerSelectAVVideoComponent(player.handle, nullptr));
        EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_POSITION_CHANGED));
    }
    journal.end();
    for (const std::string& line :
         {command(MEDIA_FUNCTION_OPEN, " = 1"), command(MEDIA_FUNCTION_SET_WINDOW, " 0 0 320 180 = 1"),
          command(MEDIA_FUNCTION_SET_SOURCE, ' ' + filmUrl + " = 1"), command(MEDIA_FUNCTION_PLAY, " = 1"),
          command(MEDIA_FUNCTION_SET_SPEED, " 1 = 1"), command(MEDIA_FUNCTION_SEEK, " 5000 = 1"),
          command(MEDIA_FUNCTION_SELECT_AV_VIDEO_COMPONENT, " = 0"), "request " + filmUrl + " 200",
          command(MEDIA_FUNCTION_CLOSE, " = 1")}) {
        EXPECT_LT(journal.find(line), journal.lines.size()) << line;
    }
    EXPECT_TRUE(journal.hasLength);
}

TEST_F(Trace, HasACommandBeforeTheReportsThatItCauses) {
    Journal journal;
    TestPlayer player;
    player.start(filmUrl);
    EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerStop(player.handle));
    EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_STOPPED));
    journal.end();
    journal.keepOnly(player.handle);
    ASSERT_LT(journal.find(report(eMEDIA_CALLBACK_STOPPED)), journal.lines.size());
    EXPECT_LT(journal.find(command(MEDIA_FUNCTION_PLAY, " = 1")), journal.find(report(eMEDIA_CALLBACK_CONNECTING)));
    EXPECT_LT(journal.find(command(MEDIA_FUNCTION_STOP, " = 1")), journal.find(report(eMEDIA_CALLBACK_STOPPED)));
    EXPECT_TRUE(std::is_sorted(journal.times.begin(), journal.times.end())) << "and so by time";
}
