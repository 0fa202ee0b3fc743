// One of the ways in which every screen answers keys, the mouse and the focus.
#pragma once

#include <QWidget>

namespace kelvar {

class Habit : public QObject {
public:
    explicit Habit(QWidget* screen) : QObject(screen), screen_(screen) {}

    // Looks at an event of the application, whoever receives it, while the screen is in front; true
    // when it goes no further.
    virtual bool takes(QObject* watched, QEvent* event) = 0;

protected:
    QWidget* const screen_;
};

}  // namespace kelvar
