#include "checks/medialib/ErrorExpectation.h"

namespace compliance {
namespace {

std::string described(const std::set<int>& codes) {
    std::string text;
    for (const int code : codes) {
        text += (text.empty() ? "ERROR " : " or ") + std::to_string(code);
    }
    return text;
}

void expectEnd(Trial& trial, const std::string& url, const std::set<int>& codes, bool mayFinish) {
    TestedPlayer player(trial);
    const std::string expected = described(codes) + (mayFinish ? " or FINISHED" : "") + " for " + url;
    player.setSource(url);
    if (player.play() == 0) {
        trial.fail("Play returned 0", expected);
    }
    player.setSpeed(1);
    const bool came = trial.comesToHold([&] {
        return player.hasReport(eMEDIA_CALLBACK_ERROR) || (mayFinish && player.hasReport(eMEDIA_CALLBACK_FINISHED));
    });
    trial.require(came, "no end came: " + player.story(), expected);
    const auto code = player.hasReport(eMEDIA_CALLBACK_ERROR) ? player.waitFor(eMEDIA_CALLBACK_ERROR) : std::nullopt;
    trial.require(!code || codes.count(*code) > 0, "ERROR " + std::to_string(code.value_or(-1)), expected);
}

} // namespace

void expectError(Trial& trial, const std::string& url, const std::set<int>& codes) {
    expectEnd(trial, url, codes, false);
}

void expectErrorOrEnd(Trial& trial, const std::string& url, const std::set<int>& codes) {
    expectEnd(trial, url, codes, true);
}

} // namespace compliance
