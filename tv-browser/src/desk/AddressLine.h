/**
 * The line over the top of the picture in which a person enters an address or a file.
 */
#ifndef ADDRESSLINE_H
#define ADDRESSLINE_H

#include <QLineEdit>

namespace tv {

class AddressLine : public QLineEdit {
    Q_OBJECT
public:
    /** @param picture what it lies on; takes it */
    explicit AddressLine(QWidget* picture);

    /** Shows it with the present address, or hides it. */
    void toggle(const QString& address);

signals:
    /** What was entered, without spaces around it; never empty. */
    void entered(const QString& address);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void close();
};

} // namespace tv

#endif
