#include "widgets/view_choice.h"

#include <QButtonGroup>
#include <QHBoxLayout>

#include "widgets/theme.h"

namespace kelvar {

ViewChoice::ViewChoice(const char* name, const QString& first, const QString& second)
    : second_(new QRadioButton(second)) {
    auto* first_option = new QRadioButton(first);
    auto* one_of = new QButtonGroup(this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2 * theme::grid);
    int index = 0;
    for (QRadioButton* option : {first_option, second_}) {
        option->setObjectName(QString::fromLatin1(name) + u'_' + QString::number(index++));
        one_of->addButton(option);
        row->addWidget(option);
    }
    first_option->setChecked(true);
    second_->setFocusPolicy(Qt::ClickFocus);  // Tab goes to the chosen one, also backwards
    connect(second_, &QRadioButton::toggled, this, &ViewChoice::changed);
}

}  // namespace kelvar
