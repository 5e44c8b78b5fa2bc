/** What a page asks of the television as an application. */
#ifndef OWNERAPPLICATION_H
#define OWNERAPPLICATION_H

#include <QObject>
#include <QString>
#include <QVariantList>

class QUrl;
class QWebFrame;

namespace tv {

/**
 * The television's one application, which is the page in the main frame. The scripts of the embedded objects see an
 * object of this class as `television`; its properties and methods have the names that they use.
 */
class OwnerApplication : public QObject {
    Q_OBJECT
    Q_PROPERTY(int keyset READ keyset)
    Q_PROPERTY(int supportedKeyset READ supportedKeyset)
    Q_PROPERTY(QVariantList otherKeys READ otherKeys)
    Q_PROPERTY(bool visible READ isVisible)
public:
    /** @param mainFrame is there whenever a function of this object is called */
    OwnerApplication(QWebFrame& mainFrame, QObject* parent);

    /** Returns to the defaults, for another page. */
    void reset();

    /** @return true when the application receives the key with this code, which belongs to the set `keyset` */
    bool receives(int code, int keyset) const;

    int keyset() const { return m_keyset; }
    int supportedKeyset() const;
    QVariantList otherKeys() const { return m_otherKeys; }
    bool isVisible() const { return m_isVisible; }

    /** Sets which keys the application receives (OIPF DAE 7.2.5). @return the sets of `mask` that the remote control
     * has */
    Q_INVOKABLE int setKeyset(int mask, const QVariantList& otherKeys);

    /** @return a key's name for the user; empty for a code that the remote control does not have */
    Q_INVOKABLE QString keyLabel(int code) const;

    /** Shows or hides the page and its video; playback goes on. */
    Q_INVOKABLE void setVisible(bool visible);

    /**
     * Replaces the application by another one after the present script has returned.
     * @param address absolute
     * @return false when the television cannot open such an address
     */
    Q_INVOKABLE bool createApplication(const QString& address);

    /** Ends the application. The screen is empty then, unless the application has created another one before. */
    Q_INVOKABLE void destroyApplication();

    /** Takes the whole text of the console message that follows at once; the engine reports a part of it. */
    Q_INVOKABLE void announceConsoleText(const QString& text) { m_consoleText = text; }

    /** @return the whole text of the present console message; null when none was announced */
    QString takeConsoleText();

    /** Warns the page's author of a mistake at a position in the page's script. */
    Q_INVOKABLE void warn(const QString& text, const QString& address, int line) { emit warned(text, address, line); }

    /** The page's document is complete; images and the like may still be on their way. */
    Q_INVOKABLE void completeDocument() { emit documentCompleted(); }

signals:
    void warned(const QString& text, const QString& address, int line);
    /** See completeDocument(). */
    void documentCompleted();
    /** The application has ended itself and created no other one. */
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
