// The key rules of a screen: what Enter, Escape, F1, the page keys, and Alt with a letter do.
#pragma once

#include <QWidget>

class QAbstractButton;
class QKeyEvent;
class QScrollArea;

namespace kelvar {

class FieldLeaving;

class ScreenKeys {
public:
    // What the keys press; null for a key that does nothing on the screen.
    struct Buttons {
        QAbstractButton* enter = nullptr;
        QAbstractButton* escape = nullptr;
        QAbstractButton* help = nullptr;
    };

    ScreenKeys(const QWidget* screen, QScrollArea* page, FieldLeaving& leaving, const Buttons& buttons);

    // A key that nothing on the screen has taken; false when it has no meaning here either. Enter is
    // Next, unless the focus is on another button: then Enter presses that one. Page keys scroll a long
    // text, whatever has the focus.
    bool press(const QKeyEvent& key);

    // Looks at an event of the application; true when it was Alt and a letter that the screen handles
    // itself.
    bool takes(QWidget* widget, const QEvent& event);

private:
    void turn_page(int direction);
    void press_enter();
    bool press_by_shortcut(QAbstractButton* button, const QEvent& event);
    bool select_by_shortcut(const QWidget& caption);

    const QWidget* screen_;
    QScrollArea* page_;
    FieldLeaving& leaving_;
    Buttons buttons_;
};

}  // namespace kelvar
