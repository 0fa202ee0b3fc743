// Shows where the focus is: draws a ring around it, keeps it in the view that scrolls, and remembers it
// for the next time.
#pragma once

#include <QPointer>

#include "widgets/habit.h"

class QScrollArea;

namespace kelvar {

class FocusRing;

// Keeps the words that say something about a control in view with it. They live as long as it does.
void keep_in_view_with(QWidget* control, QWidget* words);

class FocusMarker : public Habit {
public:
    // Marks the focus anywhere in `screen`; `page` is the part of it that scrolls.
    FocusMarker(QWidget* screen, QScrollArea* page) : Habit(screen), page_(page) {}

    // Takes none.
    bool takes(QObject* watched, QEvent* event) override;

    // Scrolls what has just opened into view, once it has its place, and back to the focus where there
    // is no room for both.
    void show_opened(const QWidget* opened);

    // Where the focus last was on the page, buttons apart, because Enter would press one that it came
    // back to. Null when there was none or it is gone.
    QWidget* last() const { return last_; }
    void set_last(QWidget* field) { last_ = field; }

private:
    void got_focus(QWidget* control);
    void mark(QWidget* control);
    QRect place_of(const QWidget* widget) const;
    void scroll_to(const QRect& place);
    void keep_in_view(QWidget* focus);
    void keep_focus_in_view();
    void keep_in_view_later();
    void move_ring(const QWidget* moved);

    QScrollArea* page_;
    QPointer<QWidget> last_;
    QPointer<FocusRing> ring_;
};

}  // namespace kelvar
