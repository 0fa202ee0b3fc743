// How every screen answers the mouse, besides what the controls do themselves.
#pragma once

#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

#include "widgets/habit.h"

class QAbstractButton;
class QMouseEvent;
class QToolButton;

namespace kelvar {

// Keeps back what the hand on the mouse did not mean: the second click of a double click, and the wheel
// over a list.
class PointerSlips : public Habit {
public:
    // `navigation` holds the buttons that lead to other screens.
    PointerSlips(QWidget* screen, const QWidget* navigation) : Habit(screen), navigation_(navigation) {}

    bool takes(QObject* watched, QEvent* event) override;

private:
    const QWidget* navigation_;
    bool pressed_here_ = false;  // the last press of a mouse button was on this screen
};

// Lets a click on the words beside a picture press the picture.
class PictureWords : public Habit {
public:
    // What a click does, at a place of the screen. The words are labels whose buddy is the picture.
    using Clicked = std::function<void(QToolButton* picture, QPoint place)>;

    PictureWords(QWidget* screen, Clicked clicked) : Habit(screen), clicked_(std::move(clicked)) {}

    bool takes(QObject* watched, QEvent* event) override;

private:
    void pressed(QWidget* widget, const QMouseEvent& press);
    bool released(QWidget* widget, const QMouseEvent& release);

    Clicked clicked_;
    QPointer<QWidget> pressed_;  // with the left button, which is still down
};

// Lets a click on what is disabled until its option is chosen put the focus on that option. What is
// chosen stays chosen.
class OptionPointer : public Habit {
public:
    using Habit::Habit;

    // Choosing the option enables the widget and whatever is in it.
    void add(QAbstractButton* option, QWidget* widget) { options_.emplace_back(widget, option); }

    bool takes(QObject* watched, QEvent* event) override;

private:
    std::vector<std::pair<QWidget*, QAbstractButton*>> options_;
};

}  // namespace kelvar
