#include "timeline/PlaybackTracker.h"

#include "medialib.h"

namespace tv {

namespace {

using Kind = TimelineEntry::Kind;

constexpr int64_t stallUs = 1'000'000;
constexpr int64_t lookIntervalUs = 200'000;
constexpr int refused = 400; // the first such HTTP status

} // namespace

void PlaybackTracker::tell(TimelineEntry entry, TimelineEntries& told) {
    const QString name = entry.fields.value(QLatin1String("name")).toString();
    if (entry.kind == Kind::CREATED) {
        m_newest = entry.object;
    } else if (entry.kind == Kind::COMMAND && name == QLatin1String("Open")) {
        m_objectOfPlayer[entry.player] = m_newest;
        m_stories[m_newest].player = entry.player;
    }
    if (entry.object == 0 && entry.player >= 0) {
        entry.object = m_objectOfPlayer.value(entry.player);
    }
    if (entry.object > 0 && entry.kind != Kind::GONE) {
        Story& story = m_stories[entry.object];
        switch (entry.kind) {
        case Kind::READ: {
            QString& last = story.reads[name];
            const QString value = entry.fields.value(QLatin1String("value")).toString();
            if (last == value) {
                return; // pages poll
            }
            last = value;
            break;
        }
        case Kind::STATE:
            story.state = entry.fields.value(QLatin1String("state")).toInt();
            story.position = -1;
            story.stalls = false;
            break;
        case Kind::COMMAND:
            if (name == QLatin1String("SetSource")) {
                story.url = entry.fields.value(QLatin1String("arguments")).toString();
            }
            break;
        case Kind::REQUEST:
            if (entry.fields.value(QLatin1String("status")).toInt() >= refused) {
                story.url = entry.fields.value(QLatin1String("url")).toString();
            }
            break;
        default:
            break;
        }
    }
    told.append(entry);
    if (entry.kind == Kind::REPORT && name == QLatin1String("ERROR")) {
        told.append(errorOf(entry));
    } else if (entry.kind == Kind::GONE) {
        m_objectOfPlayer.remove(m_stories.take(entry.object).player);
    }
}

TimelineEntry PlaybackTracker::errorOf(const TimelineEntry& report) const {
    const int code = report.fields.value(QLatin1String("code")).toInt();
    const QString cause = report.fields.value(QLatin1String("detail")).toString();
    const QString url = m_stories.value(report.object).url;
    TimelineEntry error = report;
    error.kind = Kind::ERROR;
    error.fields = {{QStringLiteral("code"), code},
                    {QStringLiteral("name"), playbackErrorName(code)},
                    {QStringLiteral("cause"), cause},
                    {QStringLiteral("url"), url}};
    error.text =
        QStringLiteral("%1: %2%3, %4")
            .arg(code)
            .arg(playbackErrorName(code), cause.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(cause), url);
    return error;
}

void PlaybackTracker::lookForStalls(int64_t nowUs, TimelineEntries& told) {
    if (nowUs - m_lookedUs < lookIntervalUs) {
        return;
    }
    m_lookedUs = nowUs;
    for (auto it = m_stories.begin(); it != m_stories.end(); ++it) {
        Story& story = *it;
        if (PlayState{story.state} != PlayState::PLAYING || story.player < 0 ||
            Hbbtv_AL_MediaPlayerGetSpeed(story.player) == 0) {
            story.position = -1;
            continue;
        }
        const int position = static_cast<int>(Hbbtv_AL_MediaPlayerGetPosition(story.player));
        if (position != story.position) {
            story.position = position;
            story.positionUs = nowUs;
            story.stalls = false;
        } else if (!story.stalls && nowUs - story.positionUs > stallUs) {
            story.stalls = true;
            TimelineEntry stall;
            stall.kind = Kind::STALL;
            stall.timeUs = nowUs;
            stall.object = it.key();
            stall.player = story.player;
            stall.text = QStringLiteral("playing, but the position stands still at %1 ms").arg(position);
            stall.fields = {{QStringLiteral("position"), position},
                            {QStringLiteral("since"), static_cast<qint64>(nowUs - story.positionUs)}};
            told.append(stall);
        }
    }
}

} // namespace tv
