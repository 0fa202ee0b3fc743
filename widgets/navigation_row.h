// The row of buttons below every screen: Help, Previous and Next with their pictures, Close; or the one
// OK of a note.
#pragma once

#include <QFrame>

#include "widgets/screen_layout.h"

class QBoxLayout;
class QHBoxLayout;
class QPushButton;
class QToolButton;

namespace kelvar {

class NavigationRow : public QFrame {
    Q_OBJECT

public:
    // For what a screen adds, each time behind what it has added there: a line above the row, buttons
    // behind Help, buttons before Close.
    enum class Place { above, left, right };

    // The last row of a screen's column.
    NavigationRow(const ScreenLayout& layout, QBoxLayout* column);

    void add(Place place, QWidget* widget);
    // Close, or the OK of a note.
    QPushButton* always_there() const { return cmdclose != nullptr ? cmdclose : Cmdnext; }

    // Null for what the screen does not have. The OK of a note is Next.
    QPushButton* cmdhelp = nullptr;
    QToolButton* picprev = nullptr;
    QPushButton* cmdprev = nullptr;
    QPushButton* Cmdnext = nullptr;
    QToolButton* picnext = nullptr;
    QPushButton* cmdclose = nullptr;
    QPushButton* back = nullptr;  // what Escape presses; a step, where one types, has none

protected:
    // Where there is no room for all, pictures that say the same as a button give way to the captions.
    void resizeEvent(QResizeEvent* event) override;

private:
    QPushButton* add_button(const QString& text, const char* name);
    QToolButton* add_picture(const QString& icon, const QString& accessible_name, const char* name);

    QBoxLayout* column_;
    QHBoxLayout* row_;
    int left_ = 0;  // how many buttons there are on the left
};

}  // namespace kelvar
