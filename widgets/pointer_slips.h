// Keeps back what the hand on the mouse did not mean: the second click of a double click, and the wheel
// over a list.
#pragma once

#include <QWidget>

namespace kelvar {

class PointerSlips {
public:
    // `navigation` holds the buttons that lead to other screens.
    PointerSlips(const QWidget* screen, const QWidget* navigation);

    // The screen comes to the front; what was clicked before was on another one.
    void begin() { pressed_here_ = false; }
    // Looks at an event of the application; true when it goes no further.
    bool takes(QObject* watched, QEvent* event);

private:
    const QWidget* screen_;
    const QWidget* navigation_;
    bool pressed_here_ = false;  // the last press of a mouse button was on this screen
};

}  // namespace kelvar
