// The row of buttons below every screen: Help, Previous and Next with their pictures, Close; or the one
// OK of a note.
#pragma once

#include <QFrame>

#include "shell/screen_layout.h"

class QHBoxLayout;
class QPushButton;
class QToolButton;

namespace kelvar {

class NavigationRow : public QFrame {
    Q_OBJECT

public:
    explicit NavigationRow(const ScreenLayout& layout);

    QHBoxLayout* row() const { return row_; }
    // Close, or the OK of a note.
    QPushButton* always_there() const { return cmdclose != nullptr ? cmdclose : Cmdnext; }

    // Null for what the screen does not have. The OK of a note is Next.
    QPushButton* cmdhelp = nullptr;
    QToolButton* picprev = nullptr;
    QPushButton* cmdprev = nullptr;
    QPushButton* Cmdnext = nullptr;
    QToolButton* picnext = nullptr;
    QPushButton* cmdclose = nullptr;

protected:
    // Where there is no room for all, pictures that say the same as a button give way to the captions.
    void resizeEvent(QResizeEvent* event) override;

private:
    QPushButton* add_button(const QString& text, const char* name);
    QToolButton* add_picture(const QString& icon, const QString& accessible_name, const char* name);

    QHBoxLayout* row_ = nullptr;
};

}  // namespace kelvar
