#include "widgets/entry_boxes.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

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

EntryList::EntryList(const char* name, const QString& accessible_name) {
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(accessible_name);
    setEditable(true);
    lineEdit()->setAccessibleName(accessible_name);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    connect(this, &QComboBox::activated, this, [this] { steps_ ? emit stepped() : emit picked(); });
}

void EntryList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit entered();
    } else {
        const QScopedValueRollback stepping(steps_, true);
        QComboBox::keyPressEvent(event);
    }
}

void EntryList::focusInEvent(QFocusEvent* event) {
    QComboBox::focusInEvent(event);
    if (selects_text(event->reason())) {
        lineEdit()->selectAll();
    }
}

}  // namespace kelvar
