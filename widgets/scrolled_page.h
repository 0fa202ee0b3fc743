// The part of a window that scrolls when it is higher than its room.
#pragma once

#include <QScrollArea>
#include <QWidget>

class QLabel;

namespace kelvar {

// What scrolls in a scroll area. It is as high as its wrapped texts need at its width; left to itself
// the scroll area would cut them off.
class ScrolledPage : public QWidget {
    Q_OBJECT

public:
    ScrolledPage();

protected:
    bool event(QEvent* event) override;
};

// Leaves it to its screen to keep the focus in view: the toolkit takes
// the current row of a table for the place of the focus, also when it is out of the table's own sight.
class ScrolledView : public QScrollArea {
    Q_OBJECT

public:
    ScrolledView();

    // For running text: a sign at the lower edge while there is more of it below.
    void say_when_more_is_below();

protected:
    bool focusNextPrevChild(bool next) override { return QWidget::focusNextPrevChild(next); }

private:
    void show_more_below();

    QLabel* more_below_ = nullptr;
};

}  // namespace kelvar
