// Where the picture is.
#include "checks/Checks.h"
#include "kit/TestedPlayer.h"

namespace compliance {
namespace {

struct Rectangle {
    int x;
    int y;
    int width;
    int height;
};

constexpr Rectangle RECTANGLES[] = {{0, 0, 1280, 720},     {100, 50, 640, 360},   {-200, -100, 640, 360},
                                    {1200, 700, 640, 360}, {0, 0, 1, 1},          {3, 5, 321, 183},
                                    {0, 0, 100, 700},      {-2000, -2000, 16, 9}, {0, 0, 0, 0}};

std::string describe(const Rectangle& at) {
    return std::to_string(at.width) + 'x' + std::to_string(at.height) + " at " + std::to_string(at.x) + ',' +
           std::to_string(at.y);
}

void requireAccepted(Trial& trial, TestedPlayer& player, const std::string& when) {
    for (const Rectangle& at : RECTANGLES) {
        const int result = player.setWindow(at.x, at.y, at.width, at.height);
        trial.require(result == 1, "SetWindow returned " + std::to_string(result) + " for " + describe(at) + ' ' + when,
                      "1");
    }
}

void acceptsRectangles(Trial& trial) {
    TestedPlayer player(trial);
    requireAccepted(trial, player, "before there is a source");
    player.startPlaying(trial.server.url(media::FILM));
    requireAccepted(trial, player, "while playing");
    player.pause();
    requireAccepted(trial, player, "while paused");
    player.stop();
    requireAccepted(trial, player, "after Stop");
}

void doesNotDisturb(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(200);
    player.forgetReports();
    for (int i = 0; i < 40; ++i) {
        player.setWindow(i * 10, i * 5, 320 + i * 8, 180 + i * 4);
        trial.wait(milliseconds(10));
    }
    trial.wait(milliseconds(300));
    for (int event = eMEDIA_CALLBACK_STOPPED; event < eMEDIA_CALLBACK_MAX; ++event) {
        trial.require(!player.hasReport(static_cast<eMEDIA_CALLBACK_EVENT>(event)),
                      "report " + eventName(event) + " while the picture was moved", "no report because of SetWindow");
    }
    player.awaitPosition(player.position() + 300);
}

} // namespace

std::vector<Check> windowChecks() {
    const char* const header = "medialib.h";
    return {
        {"window-is-accepted",
         header,
         "Places the picture. 1 on success. x,y may be negative.",
         "the film is at the wrong place when the page scrolls or animates it",
         "Places the picture at nine rectangles, also outside of the screen, before, during and after playback.",
         acceptsRectangles,
         {},
         "",
         {"play-starts"}},
        {"window-does-not-disturb",
         header,
         "Places the picture. Playback goes on, and nothing is reported because of it.",
         "a film that a page moves stutters or changes its state",
         "Moves and scales 40 times while playing.",
         doesNotDisturb,
         {},
         "",
         {"play-starts", "position-is-milliseconds"}},
    };
}

} // namespace compliance
