#include "widgets/entry_list.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "widgets/entry_box.h"

namespace kelvar {

EntryList::EntryList(const char* name, const QString& accessible_name) {
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(accessible_name);
    setEditable(true);
    lineEdit()->setAccessibleName(accessible_name);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
}

void EntryList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit entered();
    } else {
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
