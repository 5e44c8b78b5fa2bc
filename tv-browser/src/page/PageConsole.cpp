#include "page/PageConsole.h"

#include "base/Print.h"
#include "page/OwnerApplication.h"

#include <QRegularExpression>
#include <QWebElement>
#include <QWebFrame>

namespace tv {

namespace {

constexpr int mostDialogs = 20;

QString levelName(QWebPage::MessageLevel level) {
    switch (level) {
    case QWebPage::ErrorMessageLevel:
        return QStringLiteral("error");
    case QWebPage::WarningMessageLevel:
        return QStringLiteral("warning");
    default:
        return QStringLiteral("log");
    }
}

} // namespace

PageConsole::PageConsole(QWebPage& page, OwnerApplication& application)
    : QObject(&page), m_page(page), m_application(application),
      m_nameOf([](const QUrl& url) { return url.toString(); }) {
    connect(&application, &OwnerApplication::warned, this, &PageConsole::warn);
    connect(page.mainFrame(), &QWebFrame::javaScriptWindowObjectCleared, this, [this] { m_dialogs = 0; });
    addFrame(page.mainFrame());
    connect(&page, &QWebPage::frameCreated, this, &PageConsole::addFrame);
    connect(&page, &QWebPage::consoleMessageReceived, this, &PageConsole::printFromEngine);
}

void PageConsole::setAddressNames(std::function<QString(const QUrl&)> nameOf) {
    m_nameOf = std::move(nameOf);
}

void PageConsole::addFrame(QWebFrame* frame) {
    connect(frame, &QWebFrame::loadFinished, this, [this, frame] { reportMarkupError(*frame); });
}

/** Looks for the box that the engine puts into a page where it has given up reading XHTML. */
void PageConsole::reportMarkupError(const QWebFrame& frame) {
    static const QRegularExpression error(QStringLiteral("error on line (\\d+) at column (\\d+): (.*)"));
    const QRegularExpressionMatch match =
        error.match(frame.findFirstElement(QStringLiteral("parsererror")).toPlainText());
    if (match.hasMatch()) {
        print(false, QWebPage::ErrorMessageLevel,
              QStringLiteral("the page is not well-formed at column %1: %2").arg(match.captured(2), match.captured(3)),
              match.captured(1).toInt(), frame.url().toString());
    }
}

void PageConsole::warn(const QString& text, const QString& address, int line) {
    print(false, QWebPage::WarningMessageLevel, text, line, address);
}

void PageConsole::printFromEngine(QWebPage::MessageSource source, QWebPage::MessageLevel level, const QString& text,
                                  int line, const QString& address) {
    const QString whole = m_application.takeConsoleText();
    print(source == QWebPage::JSMessageSource && level == QWebPage::ErrorMessageLevel, level,
          whole.isNull() ? text : whole, line, address);
}

void PageConsole::print(bool isScriptError, QWebPage::MessageLevel level, const QString& text, int line,
                        const QString& address) {
    const ConsoleMessage message{isScriptError, levelName(level), text, m_nameOf(QUrl(address)), line};
    const QString position = line > 0 ? QStringLiteral("%1:%2").arg(message.file, QString::number(line)) : message.file;
    const QString prefix = level == QWebPage::LogMessageLevel ? QString() : message.level + QLatin1String(": ");
    printMessage(position + QLatin1String(": ") + prefix + text);
    emit printed(message);
}

void PageConsole::printDialog(const QString& kind, const QString& message, const QString& result) {
    if (++m_dialogs > mostDialogs) {
        return;
    }
    printMessage(QStringLiteral("%1: %2(\"%3\")%4%5")
                     .arg(m_nameOf(m_page.mainFrame()->url()), kind, message, result,
                          m_dialogs == mostDialogs ? QStringLiteral("; further dialogs of this page are not printed")
                                                   : QString()));
}

} // namespace tv
