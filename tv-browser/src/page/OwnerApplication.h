/**
 * The one application of the television, the page in the main frame: what its scripts ask of the television.
 * The embedded objects' scripts see an object of this class; its properties and slots are named as they use them.
 */
#ifndef OWNERAPPLICATION_H
#define OWNERAPPLICATION_H

#include <QObject>
#include <QString>
#include <QVariantList>

class QUrl;
class QWebFrame;

namespace tv {

class OwnerApplication : public QObject {
    Q_OBJECT
    Q_PROPERTY(int keyset READ keyset)
    Q_PROPERTY(int supportedKeyset READ supportedKeyset)
    Q_PROPERTY(QVariantList otherKeys READ otherKeys)
    Q_PROPERTY(bool visible READ isVisible)
public:
    /** @param mainFrame outlives this object */
    explicit OwnerApplication(QWebFrame& mainFrame);

    /** Another page has come: the defaults hold again. */
    void reset();

    /** @return true when the application receives a key of this code, which is one of the set `keyset` */
    bool receives(int code, int keyset) const;

    int keyset() const { return m_keyset; }
    int supportedKeyset() const;
    QVariantList otherKeys() const { return m_otherKeys; }
    bool isVisible() const { return m_isVisible; }

    /** Sets which keys reach the application (OIPF DAE 7.2.5). @return those of `mask` that the remote control has */
    Q_INVOKABLE int setKeyset(int mask, const QVariantList& otherKeys);

    /** @return the key's name for the user; empty for a code that the remote control does not have */
    Q_INVOKABLE QString keyLabel(int code) const;

    /** Shows or hides the page and its video; playback goes on. */
    Q_INVOKABLE void setVisible(bool visible);

    /**
     * Replaces the application by another one, when the present script has returned.
     * @param address absolute
     * @return false when the television cannot open such an address
     */
    Q_INVOKABLE bool createApplication(const QString& address);

    /** Ends the application: the screen is empty, unless another one was created before. */
    Q_INVOKABLE void destroyApplication();

    /** What the console message that follows at once says in whole; the engine tells a part of it. */
    Q_INVOKABLE void announceConsoleText(const QString& text) { m_consoleText = text; }

    /** @return what was announced for the present console message; null when nothing was */
    QString takeConsoleText();

    /** Tells the page's author something about a place in the page's script. */
    Q_INVOKABLE void warn(const QString& text, const QString& address, int line) { emit warned(text, address, line); }

    /** All of the page's document is there; images and the like may still be on their way. */
    Q_INVOKABLE void completeDocument() { emit documentCompleted(); }

signals:
    void warned(const QString& text, const QString& address, int line);
    /** See completeDocument(). */
    void documentCompleted();
    /** The application has ended by itself and left no other. */
    void ended();

private:
    void open(const QUrl& url);

    QWebFrame& m_mainFrame;
    QVariantList m_otherKeys;
    QString m_consoleText;
    QString m_formerOpacity;
    int m_keyset = 0;
    bool m_isVisible = true;
    bool m_isReplaced = false;
};

} // namespace tv

#endif
