// Runs what a screen has to say and change when a field is left, and makes the next key wait for it.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "widgets/habit.h"

namespace kelvar {

// How a field was left.
struct Leaving {
    Qt::FocusReason reason = Qt::OtherFocusReason;
    bool to_navigation = false;  // to a button of the navigation row, whose action checks itself
    QWidget* to = nullptr;
};

class FieldLeaving : public Habit {
public:
    using Action = std::function<void(Leaving)>;

    // `navigation` holds the buttons of the navigation row; `told` says whether the user's last action
    // has had a message.
    FieldLeaving(QWidget* screen, const QWidget* navigation, std::function<bool()> told);

    // Runs the action after the focus has left the field for another one of the same window. It runs
    // from the event loop, so that the click that took the focus away is complete.
    void add(QWidget* field, Action action);

    // However fast the next key follows, it comes after what leaving the field before has to say and
    // change: to whatever has the focus then, or to nothing when there was a message that it cannot
    // have meant.
    bool takes(QObject* watched, QEvent* event) override;
    // Runs at once what the screen has put off into the event loop, the actions of fields just left
    // among it.
    void finish();

private:
    bool takes_key(QWidget* receiver, QEvent* event);
    void leave(const QObject* watched, Qt::FocusReason reason);
    void left(QWidget* field, Qt::FocusReason reason);

    const QWidget* navigation_;
    std::function<bool()> told_;
    std::vector<std::pair<QWidget*, Action>> actions_;
    int to_come_ = 0;       // actions that still wait in the event loop
    bool dropped_ = false;  // the key whose press follows has gone to nothing already
};

}  // namespace kelvar
