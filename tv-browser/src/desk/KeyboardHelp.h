/** The table of keys over the television's window. */
#ifndef KEYBOARDHELP_H
#define KEYBOARDHELP_H

#include <QLabel>

namespace tv {

/** Shows keyHelpText() until a click, or until the key that has opened it. */
class KeyboardHelp : public QLabel {
    Q_OBJECT
public:
    /** @param window its parent */
    explicit KeyboardHelp(QWidget* window);

    /** Shows the table in the middle of the window, in a size that fits there; or hides it. */
    void toggle();

protected:
    void mousePressEvent(QMouseEvent* event) override;
};

} // namespace tv

#endif
