/** What a page's author reads on the terminal and in the timeline: console messages, dialogs, mistakes in the page. */
#ifndef PAGECONSOLE_H
#define PAGECONSOLE_H

#include <QObject>
#include <QString>
#include <QUrl>
#include <QWebPage>
#include <functional>

class QWebFrame;

namespace tv {

class OwnerApplication;

struct ConsoleMessage {
    bool isScriptError; ///< the engine reports that a script failed
    QString level;      ///< "error", "warning" or "log"
    QString text;
    QString file; ///< file or address of the page or script
    int line;     ///< from 1; 0 when it is unknown
};

/**
 * Prints what a page writes to its console, and what the television has to say about the page, with file and line.
 * It must live until the page's content has gone: pages write to their console while they are unloaded, too.
 */
class PageConsole : public QObject {
    Q_OBJECT
public:
    /** @param page its parent @param application outlives this object; announces whole console messages */
    PageConsole(QWebPage& page, OwnerApplication& application);

    /** Sets how addresses are written; they are written as they are without that. */
    void setAddressNames(std::function<QString(const QUrl&)> nameOf);

    /** @return an address, as it is written in messages */
    QString nameOf(const QUrl& url) const { return m_nameOf(url); }

    /** Warns the page's author of a mistake. @param address,line the position in the page's script */
    void warn(const QString& text, const QString& address, int line);

    /**
     * Prints a dialog of the page, up to a number of them for each page.
     * @param kind   name of the function that the page has called
     * @param result what the function returns, in words; empty for nothing
     */
    void printDialog(const QString& kind, const QString& message, const QString& result);

signals:
    void printed(const ConsoleMessage& message);

private:
    void addFrame(QWebFrame* frame);
    void printFromEngine(QWebPage::MessageSource source, QWebPage::MessageLevel level, const QString& text, int line,
                         const QString& address);
    void print(bool isScriptError, QWebPage::MessageLevel level, const QString& text, int line, const QString& address);
    void reportMarkupError(const QWebFrame& frame);

    QWebPage& m_page;
    OwnerApplication& m_application;
    std::function<QString(const QUrl&)> m_nameOf;
    int m_dialogs = 0; ///< that the present page has opened
};

} // namespace tv

#endif
