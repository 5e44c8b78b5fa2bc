#include "app/TimelineRecording.h"

#include "app/CommandLine.h"
#include "page/TvPage.h"
#include "timeline/TimelineFile.h"
#include "timeline/TimelinePrinter.h"

#include <QWebFrame>

namespace tv {

namespace {

timeline::Details detailsOf(const ConsoleMessage& message) {
    const timeline::SourceLine where{message.file, message.line};
    if (message.isScriptError) {
        return timeline::ScriptError{message.text, where};
    }
    return timeline::Console{message.level, message.text, where};
}

} // namespace

TimelineRecording::TimelineRecording(const CommandLine& commandLine, int64_t startUs) {
    if (commandLine.headless && !commandLine.trace && commandLine.timelineFile.isEmpty()) {
        return;
    }
    m_timeline = std::make_unique<Timeline>(startUs);
    if (commandLine.trace) {
        connect(m_timeline.get(), &Timeline::grown, &printTrace);
    }
    if (!commandLine.timelineFile.isEmpty()) {
        m_file = std::make_unique<TimelineFile>(commandLine.timelineFile);
        connect(m_timeline.get(), &Timeline::grown, this,
                [this](const TimelineEntries& entries) { m_file->write(entries); });
    }
}

TimelineRecording::~TimelineRecording() = default;

Result<void, QString> TimelineRecording::checkFile() const {
    return m_file ? m_file->check() : Result<void, QString>();
}

void TimelineRecording::follow(TvPage& page) {
    if (!m_timeline) {
        return;
    }
    connect(&page.console(), &PageConsole::printed, this,
            [this](const ConsoleMessage& message) { m_timeline->add(detailsOf(message)); });
    connect(&page, &TvPage::loaded, this, [this, &page] {
        m_timeline->add(timeline::Page{page.mainFrame()->url().toString(), {}});
    });
    connect(&page, &TvPage::loadFailed, this, [this, &page](const QString& reason) {
        m_timeline->add(timeline::Page{page.mainFrame()->requestedUrl().toString(), reason});
    });
}

void TimelineRecording::addKey(const RemoteKey& key, bool isReceived) {
    if (m_timeline) {
        m_timeline->add(timeline::Key{QString::fromLatin1(key.name), isReceived});
    }
}

} // namespace tv
