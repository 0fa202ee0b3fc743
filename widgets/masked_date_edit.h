// A date box with the mask __/__/____ (month, day, year).
#pragma once

#include <QClipboard>

#include "widgets/entry_boxes.h"

namespace kelvar {

class MaskedDateEdit : public EntryBox {
    Q_OBJECT

public:
    explicit MaskedDateEdit(const char* name);

    // The ten characters of the mask, "_" in unfilled places.
    QString mask_text() const { return displayText(); }
    bool is_empty() const;

    void select_content() override;  // an empty mask has only a place to begin

protected:
    // A separator typed after a single digit fills up the part: 6/ becomes 06/. Pasting takes a whole
    // date and nothing else.
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void end_part();
    void paste_date(QClipboard::Mode from);
};

}  // namespace kelvar
