/**
 * What the keys of the keyboard do: one text, for the command line and for the window.
 */
#ifndef KEYBOARDHELP_H
#define KEYBOARDHELP_H

#include <QLabel>

namespace tv {

/** @return a table in lines of at most 80 characters, made for a fixed-width font */
const char* keyboardHelpText();

/** The table over the television's window, until a click or the key that has brought it. */
class KeyboardHelp : public QLabel {
    Q_OBJECT
public:
    /** @param window what it lies on; takes it */
    explicit KeyboardHelp(QWidget* window);

    /** Shows it in the middle of the window, in letters that make it fit there; or hides it. */
    void toggle();

protected:
    void mousePressEvent(QMouseEvent* event) override;
};

} // namespace tv

#endif
