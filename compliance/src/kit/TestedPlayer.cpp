#include "kit/TestedPlayer.h"

#include "kit/DataBlock.h"

#include <algorithm>
#include <atomic>
#include <set>

namespace compliance {
namespace {

struct Report {
    eMEDIA_CALLBACK_EVENT event;
    int code;
};

int nextNumber() {
    static std::atomic<int> last{0};
    return ++last;
}

} // namespace

struct TestedPlayer::Mailbox {
    Mailbox(Journal& theJournal, int theNumber) : journal(theJournal), number(theNumber) {
        const std::lock_guard<std::mutex> lock(all().mutex);
        all().known.insert(this);
    }
    struct Known {
        std::mutex mutex; // guards `known`
        std::set<const void*> known;
    };
    static Known& all() {
        static Known& instance = *new Known;
        return instance;
    }
    static bool isKnown(const void* mailbox) {
        const std::lock_guard<std::mutex> lock(all().mutex);
        return all().known.count(mailbox) > 0;
    }

    Journal& journal;
    const int number;
    std::atomic<int> handle{-1};
    std::function<void(eMEDIA_CALLBACK_EVENT)> action; // set before the first report
    std::mutex mutex;                                  // guards all below
    std::condition_variable changed;
    std::vector<Report> reports;
};

void TestedPlayer::receive(unsigned int playerId, eMEDIA_CALLBACK_EVENT event, int code, void* data, void* userData) {
    Entry entry = {
        Entry::REPORT, 0, static_cast<int32_t>(event), code, 0, takeDataBlock(data), isOwnThread() ? 1 : 0, 0, 0};
    static Journal* journal = nullptr; // of the process, for a report with userData that nobody gave
    if (!Mailbox::isKnown(userData)) {
        entry.wrongUser = 1;
        if (journal) {
            journal->add(entry);
        }
        return;
    }
    auto* mailbox = static_cast<Mailbox*>(userData);
    journal = &mailbox->journal;
    entry.player = mailbox->number;
    entry.wrongId = static_cast<int>(playerId) == mailbox->handle ? 0 : 1;
    mailbox->journal.add(entry);
    {
        const std::lock_guard<std::mutex> lock(mailbox->mutex);
        mailbox->reports.push_back({event, code});
        mailbox->changed.notify_all();
    }
    if (mailbox->action) {
        mailbox->action(event);
    }
    entry.kind = Entry::REPORT_END;
    mailbox->journal.add(entry);
}

TestedPlayer::TestedPlayer(Trial& trial)
    : m_trial(trial), m_number(nextNumber()), m_mailbox(new Mailbox(trial.journal, m_number)) {
    command(Command::OPEN, 0, [&] { return m_trial.platform.open(&m_handle); });
    m_isOpen = m_handle >= 0;
    m_mailbox->handle = m_handle;
    command(Command::SET_USER_AGENT, 0, [&] { return m_trial.platform.setUserAgent(m_handle); });
    command(Command::ADD_CALLBACK, 0, [&] {
        return m_trial.platform.addCallback(m_handle, &TestedPlayer::receive, static_cast<void*>(m_mailbox));
    });
    m_hasCallback = true;
    setWindow(0, 0, 320, 180);
}

TestedPlayer::~TestedPlayer() {
    try {
        if (m_isOpen) {
            stop();
            removeCallback();
            close();
        }
    } catch (const MissingFunction&) {
        // The check of the table says so.
    }
}

template <typename Call> int TestedPlayer::command(Command what, int value, Call call) {
    Entry entry = {Entry::CALL, m_number, static_cast<int32_t>(what), value, 0, DataKind::NONE, 0, 0, 0};
    m_trial.journal.add(entry);
    const int result = call();
    entry.kind = Entry::RETURN;
    entry.value = result;
    m_trial.journal.add(entry);
    return result;
}

int TestedPlayer::setSource(const std::string& url) {
    // A copy that is gone when the call has returned.
    const auto text = std::make_unique<std::string>(url);
    const int result =
        command(Command::SET_SOURCE, 0, [&] { return m_trial.platform.setSource(m_handle, text->c_str()); });
    std::fill(text->begin(), text->end(), '#');
    return result;
}

int TestedPlayer::setWindow(int x, int y, int width, int height) {
    return command(Command::SET_WINDOW, 0, [&] { return m_trial.platform.setWindow(m_handle, x, y, width, height); });
}

int TestedPlayer::play() {
    return command(Command::PLAY, 0, [&] { return m_trial.platform.play(m_handle, 0); });
}

int TestedPlayer::pause() {
    return command(Command::PAUSE, 0, [&] { return m_trial.platform.pause(m_handle); });
}

int TestedPlayer::resume() {
    return command(Command::RESUME, 0, [&] { return m_trial.platform.resume(m_handle); });
}

int TestedPlayer::stop() {
    return command(Command::STOP, 0, [&] { return m_trial.platform.stop(m_handle); });
}

int TestedPlayer::seek(int ms) {
    return command(Command::SEEK, ms, [&] { return m_trial.platform.seek(m_handle, ms); });
}

int TestedPlayer::setSpeed(double speed) {
    return command(Command::SET_SPEED, static_cast<int>(speed),
                   [&] { return m_trial.platform.setSpeed(m_handle, speed); });
}

int TestedPlayer::addSubtitle(sub_properties_t properties) {
    const int result =
        command(Command::ADD_SUBTITLE, 0, [&] { return m_trial.platform.addSubtitle(m_handle, &properties); });
    std::fill_n(reinterpret_cast<char*>(&properties), sizeof properties, '#'); // it was the caller's
    return result;
}

int TestedPlayer::select(const std::function<int()>& selection) {
    return command(Command::SELECT, 0, selection);
}

int TestedPlayer::removeCallback() {
    if (!m_hasCallback) {
        return 1;
    }
    m_hasCallback = false;
    return command(Command::REMOVE_CALLBACK, 0, [&] { return m_trial.platform.removeCallback(m_handle); });
}

int TestedPlayer::close() {
    m_isOpen = false;
    return command(Command::CLOSE, 0, [&] { return m_trial.platform.close(m_handle); });
}

int64_t TestedPlayer::position() const {
    return m_trial.platform.getPosition(m_handle);
}

int TestedPlayer::duration() const {
    return m_trial.platform.getDuration(m_handle);
}

int TestedPlayer::speed() const {
    return m_trial.platform.getSpeed(m_handle);
}

void TestedPlayer::start(const std::string& url) {
    setSource(url);
    const int result = play();
    m_trial.require(result != 0, "Play returned 0 for " + url, "a result other than 0");
    setSpeed(1);
}

void TestedPlayer::startPlaying(const std::string& url) {
    start(url);
    await(eMEDIA_CALLBACK_PLAYING, "after Play of " + url);
}

std::optional<int> TestedPlayer::waitFor(eMEDIA_CALLBACK_EVENT event) {
    std::unique_lock<std::mutex> lock(m_mailbox->mutex);
    auto& reports = m_mailbox->reports;
    const auto find = [&](eMEDIA_CALLBACK_EVENT wanted) {
        return std::find_if(reports.begin(), reports.end(),
                            [&](const Report& report) { return report.event == wanted; });
    };
    m_mailbox->changed.wait_for(lock, m_trial.profile.patience, [&] {
        return find(event) != reports.end() || find(eMEDIA_CALLBACK_ERROR) != reports.end();
    });
    const auto found = find(event);
    if (found == reports.end()) {
        return std::nullopt;
    }
    const int code = found->code;
    reports.erase(reports.begin(), found + 1);
    return code;
}

int TestedPlayer::await(eMEDIA_CALLBACK_EVENT event, const std::string& why) {
    const std::optional<int> code = waitFor(event);
    if (!code) {
        m_trial.fail("no " + eventName(event) + " came within " + std::to_string(m_trial.profile.patience.count()) +
                         " s, or ERROR came first: " + story(),
                     "report " + eventName(event) + ' ' + why);
    }
    return *code;
}

bool TestedPlayer::hasReport(eMEDIA_CALLBACK_EVENT event) const {
    return countReports(event) > 0;
}

int TestedPlayer::countReports(eMEDIA_CALLBACK_EVENT event) const {
    const std::lock_guard<std::mutex> lock(m_mailbox->mutex);
    return static_cast<int>(std::count_if(m_mailbox->reports.begin(), m_mailbox->reports.end(),
                                          [&](const Report& report) { return report.event == event; }));
}

void TestedPlayer::forgetReports() {
    const std::lock_guard<std::mutex> lock(m_mailbox->mutex);
    m_mailbox->reports.clear();
}

void TestedPlayer::awaitPosition(int64_t ms) {
    int64_t seen = -1;
    const bool came = m_trial.comesToHold([&] {
        seen = position();
        return seen >= ms || hasReport(eMEDIA_CALLBACK_ERROR);
    });
    if (!came || seen < ms) {
        m_trial.fail("the position is " + std::to_string(seen) + ": " + story(),
                     "a position of " + std::to_string(ms) + " ms or more while the media plays");
    }
}

std::string TestedPlayer::story() const {
    const Entries entries = m_trial.journal.entries();
    for (size_t i = entries.size(); i-- > 0;) {
        if (entries[i].player == m_number) {
            return describeUpTo(entries, i);
        }
    }
    return "nothing";
}

void TestedPlayer::onReport(std::function<void(eMEDIA_CALLBACK_EVENT)> action) {
    m_mailbox->action = std::move(action);
}

} // namespace compliance
