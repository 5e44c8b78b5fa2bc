/** A player of the platform, used as the plug-in uses it, with all its calls and reports in the journal. */
#ifndef COMPLIANCE_TESTEDPLAYER_H
#define COMPLIANCE_TESTEDPLAYER_H

#include "kit/Trial.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace compliance {

/** Opens in its constructor. Its destructor stops, removes the callback and closes, unless that is done. */
class TestedPlayer {
public:
    explicit TestedPlayer(Trial& trial);
    ~TestedPlayer();
    TestedPlayer(const TestedPlayer&) = delete;
    TestedPlayer& operator=(const TestedPlayer&) = delete;

    int handle() const { return m_handle; }

    int setSource(const std::string& url);
    int setWindow(int x, int y, int width, int height);
    int play();
    int pause();
    int resume();
    int stop();
    int seek(int ms);
    int setSpeed(double speed);
    int addSubtitle(sub_properties_t properties);
    int select(const std::function<int()>& selection); // a call of a Select or Unselect function
    int removeCallback();
    int close();

    int64_t position() const;
    int duration() const;
    int speed() const;

    /** Names the media, starts it and asks for normal speed, as a page's play(1) does. */
    void start(const std::string& url);

    /** As start(), and waits for PLAYING. @throws Finding when an error or nothing comes */
    void startPlaying(const std::string& url);

    /**
     * Waits for the next report of that kind and forgets those before it.
     * @return its code; none when it does not come, or ERROR comes first
     */
    std::optional<int> waitFor(eMEDIA_CALLBACK_EVENT event);

    /** As waitFor(). @throws Finding when it does not come, expected as `why` says */
    int await(eMEDIA_CALLBACK_EVENT event, const std::string& why);

    /** @return whether a report of that kind has come since the last one that was waited for; does not wait */
    bool hasReport(eMEDIA_CALLBACK_EVENT event) const;
    int countReports(eMEDIA_CALLBACK_EVENT event) const;
    void forgetReports();

    /** Waits until the position is at least that. @throws Finding when it does not come there */
    void awaitPosition(int64_t ms);

    /** @return the last few calls and reports, as people read them */
    std::string story() const;

    /** Called in each report, on the player's thread, before it is noted as ended. Set before the first command. */
    void onReport(std::function<void(eMEDIA_CALLBACK_EVENT)> action);

private:
    /** What the callback writes to. Never freed, so that a report that comes too late finds it. */
    struct Mailbox;

    static void receive(unsigned int playerId, eMEDIA_CALLBACK_EVENT event, int code, void* data, void* userData);

    template <typename Call> int command(Command what, int value, Call call);

    Trial& m_trial;
    const int m_number;
    int m_handle = -1;
    bool m_isOpen = false;
    bool m_hasCallback = false;
    Mailbox* m_mailbox;
};

} // namespace compliance

#endif
