#include "app/Automation.h"

#include "app/CommandLine.h"
#include "base/MonotonicTime.h"
#include "base/Print.h"
#include "base/Seconds.h"
#include "desk/Desk.h"
#include "page/TvPage.h"
#include "screen/Compositor.h"
#include "screen/ScreenProbe.h"

#include <QCoreApplication>
#include <QTimer>
#include <QWebFrame>
#include <algorithm>

namespace tv {

namespace {

constexpr double keyGapSeconds = 0.1;

void injectNow(const InjectedReport& report) {
    if (!inject(report)) {
        printError(QStringLiteral("--inject %1: the page has no A/V Control object").arg(report.name));
    }
}

} // namespace

Automation::Automation(const CommandLine& commandLine, TvPage& page, Compositor& screen, Desk* desk, int64_t startUs)
    : m_commandLine(commandLine), m_page(page), m_screen(screen), m_desk(desk), m_startUs(startUs) {
    connect(&page, &TvPage::loaded, this, &Automation::pageLoaded);
    connect(&page, &TvPage::loadFailed, this, &Automation::loadFailed);
    connect(&m_heldKey, &KeyRepeat::remoteKey, this, &Automation::remoteKey);
    if (commandLine.verdict) {
        m_probe = std::make_unique<ScreenProbe>(screen, *page.mainFrame());
        connect(page.mainFrame(), &QWebFrame::titleChanged, this, &Automation::titleChanged);
    }
}

Automation::~Automation() = default;

void Automation::start() {
    if (!m_commandLine.screenshotFile.isEmpty() && m_commandLine.screenshotAfter) {
        after(*m_commandLine.screenshotAfter, &Automation::takeScreenshot);
    }
    if (m_commandLine.exitAfter) {
        after(*m_commandLine.exitAfter, &Automation::timeUp);
    }
}

/** Calls a function at a time since the program's start. */
void Automation::after(double seconds, void (Automation::*action)()) {
    const double past = static_cast<double>(monotonicUs() - m_startUs) / 1e6;
    QTimer::singleShot(toMilliseconds(std::max(0.0, seconds - past)), Qt::PreciseTimer, this, action);
}

void Automation::pageLoaded() {
    if (m_wasLoaded) {
        return;
    }
    m_wasLoaded = true;
    pressNextKey();
    for (const InjectedReport& report : m_commandLine.reports) {
        QTimer::singleShot(toMilliseconds(report.seconds), this, [report] { injectNow(report); });
    }
}

void Automation::loadFailed() {
    if (!m_wasLoaded && !m_desk) {
        QCoreApplication::exit(1);
    }
}

void Automation::titleChanged(const QString& title) {
    const bool failed = title.startsWith(QLatin1String("FAIL"));
    if (!failed && title != QLatin1String("PASS")) {
        return;
    }
    if (failed) {
        printError(QStringLiteral("the page's verdict: %1").arg(title));
    }
    // Later: the page's script still runs, and what it has just changed is not painted yet.
    QTimer::singleShot(0, this, [this, failed] {
        if (!m_commandLine.screenshotFile.isEmpty() && !m_commandLine.screenshotAfter) {
            takeScreenshot();
        }
        QCoreApplication::exit(failed ? 1 : 0);
    });
}

void Automation::pressNextKey() {
    if (m_nextKey >= m_commandLine.keys.size()) {
        return;
    }
    const KeyStep& step = m_commandLine.keys[m_nextKey++];
    double pause = step.seconds;
    if (step.deskKey) {
        if (m_desk) {
            m_desk->trigger(step.deskKey->action);
        } else {
            printError(QStringLiteral("--keys %1: this is a key of the window, and there is no window")
                           .arg(QLatin1String(step.deskKey->shortcut)));
        }
        pause = keyGapSeconds;
    } else if (step.key) {
        m_heldKey.press(*step.key);
        QTimer::singleShot(toMilliseconds(step.seconds), &m_heldKey, &KeyRepeat::release);
        pause += keyGapSeconds;
    }
    QTimer::singleShot(toMilliseconds(pause), this, &Automation::pressNextKey);
}

void Automation::takeScreenshot() {
    if (!m_screen.image().save(m_commandLine.screenshotFile, "PNG")) {
        printError(QStringLiteral("the screenshot cannot be written to %1").arg(m_commandLine.screenshotFile));
        QCoreApplication::exit(1);
        return;
    }
    printOutput(m_commandLine.screenshotFile);
    if (!m_desk && !m_commandLine.exitAfter) {
        QCoreApplication::exit(0);
    }
}

void Automation::timeUp() {
    if (m_commandLine.verdict) {
        printError(QStringLiteral("the page gave no verdict within %1 seconds; its title is \"%2\"")
                       .arg(*m_commandLine.exitAfter)
                       .arg(m_page.mainFrame()->title()));
    } else if (!m_wasLoaded) {
        printError(QStringLiteral("the page was not loaded within %1 seconds").arg(*m_commandLine.exitAfter));
    }
    QCoreApplication::exit(m_commandLine.verdict || !m_wasLoaded ? 1 : 0);
}

} // namespace tv
