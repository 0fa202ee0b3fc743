// The row of buttons below every screen: Help at the left; Previous and Next with their pictures and
// Close at the same places from the right on every screen; or the one OK of a note.
#pragma once

#include <QFrame>
#include <vector>

#include "widgets/screen_layout.h"

class QAbstractButton;
class QBoxLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;

namespace kelvar {

class NavigationRow : public QFrame {
    Q_OBJECT

public:
    // The last row of a screen's column.
    NavigationRow(const ScreenLayout& layout, QBoxLayout* column);

    // What was done last, such as where a file was saved, in a line above the row; empty while there is
    // nothing to say.
    void say(const QString& text);

    // What a screen adds: a button behind those at the left, where it can have another one joined to
    // it, a button at the place of Next.
    void add_left(QAbstractButton* button, QAbstractButton* joined = nullptr);
    void add_as_next(QPushButton* button);

    // From left to right.
    std::vector<QWidget*> controls() const;
    // Close, or the OK of a note.
    QPushButton* always_there() const { return cmdclose != nullptr ? cmdclose : Cmdnext; }

    // Null for what the screen does not have. The OK of a note is Next.
    QPushButton* cmdhelp = nullptr;
    QPushButton* cmdsave = nullptr;  // opens a menu
    QToolButton* picprev = nullptr;
    QPushButton* cmdprev = nullptr;
    QPushButton* Cmdnext = nullptr;
    QToolButton* picnext = nullptr;
    QPushButton* cmdclose = nullptr;
    QPushButton* back = nullptr;  // what Escape presses; a step, where one types, has none

protected:
    // Where there is no room for all, pictures that say the same as a button give way to the captions.
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit_said();

    QLabel* lblsaved = nullptr;
    QHBoxLayout* row_;
    int left_ = 0;  // how many places there are on the left
};

}  // namespace kelvar
