// A list that can also be typed into. It selects its text when it gets the focus, as an EntryBox does.
#pragma once

#include <QComboBox>

namespace kelvar {

class EntryList : public QComboBox {
    Q_OBJECT

public:
    EntryList(const char* name, const QString& accessible_name);

    void showPopup() override;
    // Whether the open list was used since this was last asked: its entry was then picked, not stepped
    // to by arrow keys.
    bool take_popup_used();

signals:
    // Enter, which then does nothing else.
    void entered();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    bool popup_used_ = false;
};

}  // namespace kelvar
