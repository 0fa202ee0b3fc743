#include "input/lists.h"

#include <QComboBox>
#include <QLineEdit>

#include "core/dates.h"
#include "shell/entry_box.h"
#include "shell/text.h"

namespace kelvar {

QStringList month_entries(const std::vector<int>& months) {
    QStringList entries;
    for (const int month : months) {
        entries << to_qt(month_name(month));
    }
    return entries;
}

QStringList year_entries(const std::vector<int>& years) {
    QStringList entries;
    for (const int year : years) {
        entries << QString::number(year);
    }
    return entries;
}

namespace control {

QComboBox* list(const char* name, const QString& accessible_name) {
    auto* list = new QComboBox;
    list->setObjectName(QString::fromLatin1(name));
    list->setAccessibleName(accessible_name);
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    list->setMinimumContentsLength(9);
    list->setMaxVisibleItems(12);
    return list;
}

QLineEdit* money_box(const char* name, const QString& accessible_name) {
    auto* box = new EntryBox;
    box->setObjectName(QString::fromLatin1(name));
    box->setAccessibleName(accessible_name);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("9,999,999,999,999.99")) +
                       4 * box->fontMetrics().averageCharWidth());
    return box;
}

}  // namespace control

}  // namespace kelvar
