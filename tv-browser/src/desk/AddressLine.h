/** The line in which the user enters an address or a file. */
#ifndef ADDRESSLINE_H
#define ADDRESSLINE_H

#include <QLineEdit>

namespace tv {

/** An input line at the top of the screen; it closes with Escape, Return, or when it loses the focus. */
class AddressLine : public QLineEdit {
    Q_OBJECT
public:
    /** @param screenView its parent */
    explicit AddressLine(QWidget* screenView);

    /** Shows the line with the present address, or hides it. */
    void toggle(const QString& address);

signals:
    /** @param address what was entered, without spaces around it; never empty */
    void entered(const QString& address);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void close();
};

} // namespace tv

#endif
