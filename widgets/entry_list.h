// A list that can also be typed into. It selects its text when it gets the focus, as an EntryBox does.
#pragma once

#include <QComboBox>

namespace kelvar {

class EntryList : public QComboBox {
    Q_OBJECT

public:
    EntryList(const char* name, const QString& accessible_name);

signals:
    // Enter, which then does nothing else.
    void entered();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
};

}  // namespace kelvar
