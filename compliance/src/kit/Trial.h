/** What a check has in its hands while it runs: platform, server, profile, journal, and the ways to fail. */
#ifndef COMPLIANCE_TRIAL_H
#define COMPLIANCE_TRIAL_H

#include "kit/Check.h"
#include "kit/Journal.h"
#include "kit/Platform.h"
#include "kit/Profile.h"
#include "server/HttpServer.h"

#include <chrono>
#include <functional>
#include <string>
#include <thread>

namespace compliance {

using std::chrono::milliseconds;

/** The media of the kit, as its script makes them. */
namespace media {
constexpr const char* FILM = "/media/film.mp4";   // 30 s, picture and audio
constexpr const char* SHORT = "/media/short.mp4"; // 3 s
constexpr const char* LANGUAGES = "/media/languages.mp4";
constexpr int FILM_MS = 30'000;
constexpr int SHORT_MS = 3'000;
constexpr int DURATION_TOLERANCE_MS = 200; // containers round, and audio ends with a whole frame
} // namespace media

/** The thread that makes one is the browser's plug-in thread of the check. */
class Trial {
public:
    Trial(Platform& thePlatform, HttpServer& theServer, const Profile& theProfile, Journal& theJournal);

    [[noreturn]] void fail(const std::string& came, const std::string& expected) const;

    /** Fails unless the condition holds. */
    void require(bool condition, const std::string& came, const std::string& expected) const;

    /** Waits until the condition holds, as long as the profile's patience. @return whether it does */
    bool comesToHold(const std::function<bool()>& condition) const;
    bool comesToHold(const std::function<bool()>& condition, std::chrono::seconds patience) const;

    void wait(milliseconds time) const { std::this_thread::sleep_for(time); }

    /** Says in the report what a passed check saw. */
    void note(const std::string& text);
    const std::string& notes() const { return m_notes; }

    /** Runs something that the platform may wait in, on a thread of the kit. @return false when it did not return */
    bool returnsInTime(const std::function<void()>& action, const std::function<void()>& whenLate,
                       std::chrono::seconds limit = std::chrono::seconds(10)) const;

    Platform& platform;
    HttpServer& server;
    const Profile& profile;
    Journal& journal;

private:
    std::string m_notes;
};

/** @return true on threads that the kit made, and on the one that makes the first Trial */
bool& isOwnThread();

} // namespace compliance

#endif
