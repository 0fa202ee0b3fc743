// The key rules of a screen: what Enter, Escape, F1, the page keys, and Alt with a letter do.
#pragma once

#include "widgets/habit.h"

class QAbstractButton;
class QKeyEvent;
class QScrollArea;

namespace kelvar {

class FieldLeaving;
class NavigationRow;

class ScreenKeys : public Habit {
public:
    ScreenKeys(QWidget* screen, QScrollArea* page, FieldLeaving& leaving, const NavigationRow& row);

    bool takes(QObject* watched, QEvent* event) override;

private:
    bool takes_key(const QWidget* widget, const QKeyEvent& key);
    // A key that nothing on the screen has taken; false when it has no meaning here either. Enter is
    // Next, unless the focus is on another button: then Enter presses that one. Page keys scroll a long
    // text, whatever has the focus.
    bool press(const QKeyEvent& key);
    void turn_page(int direction);
    void press_enter();
    bool press_by_shortcut(QAbstractButton* button, const QEvent& event);
    bool select_by_shortcut(const QWidget& caption);

    QScrollArea* page_;
    FieldLeaving& leaving_;
    const NavigationRow& row_;
};

}  // namespace kelvar
