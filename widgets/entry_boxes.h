// Boxes to type into. What is in a box that gets the focus is selected, so that typing replaces it and
// nothing is appended to a formatted figure; only a click sets the cursor.
#pragma once

#include <QComboBox>
#include <QLineEdit>

namespace kelvar {

// True when getting the focus for this reason selects. A click does not, nor does the return of the
// window or the closing of a list, which leave a box as it was.
bool selects_text(Qt::FocusReason reason);

// Selects what a box, or a list that can be typed into, holds; nothing for other controls.
void select_text(QWidget* box);

class EntryBox : public QLineEdit {
    Q_OBJECT

public:
    virtual void select_content() { selectAll(); }

protected:
    void focusInEvent(QFocusEvent* event) override;
};

class EntryList : public QComboBox {
    Q_OBJECT

public:
    EntryList(const char* name, const QString& accessible_name);

signals:
    // Enter, which then does nothing else.
    void entered();
    // An entry was picked from the open list; or the arrow keys went to it in the closed one, where
    // they can go on to the next.
    void picked();
    void stepped();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    bool steps_ = false;  // a key is being pressed
};

}  // namespace kelvar
