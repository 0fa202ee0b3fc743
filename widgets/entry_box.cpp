#include "widgets/entry_box.h"

#include <QComboBox>
#include <QFocusEvent>

namespace kelvar {

bool selects_text(Qt::FocusReason reason) {
    return reason != Qt::MouseFocusReason && reason != Qt::ActiveWindowFocusReason &&
           reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}

void select_text(QWidget* box) {
    if (auto* edit = qobject_cast<EntryBox*>(box)) {
        edit->select_content();
    } else if (auto* list = qobject_cast<QComboBox*>(box); list != nullptr && list->isEditable()) {
        list->lineEdit()->selectAll();
    }
}

void EntryBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (selects_text(event->reason())) {
        select_content();
    }
}

}  // namespace kelvar
