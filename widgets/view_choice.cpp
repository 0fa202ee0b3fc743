#include "widgets/view_choice.h"

#include <QButtonGroup>
#include <QHBoxLayout>

#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

ViewChoice::ViewChoice(const char* name, const QString& first, const QString& second)
    : second_(new QRadioButton(second)) {
    auto* first_option = new QRadioButton(first);
    auto* one_of = new QButtonGroup(this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    int index = 0;
    for (QRadioButton* option : {first_option, second_}) {
        option->setObjectName(QString::fromLatin1(name) + u'_' + QString::number(index++));
        one_of->addButton(option);
        option->setFixedHeight(theme::button_height() - 2);
        row->addWidget(option);
    }
    first_option->setProperty("joined", u"left"_s);
    second_->setProperty("joined", u"right"_s);
    first_option->setChecked(true);
    second_->setFocusPolicy(Qt::ClickFocus);  // Tab goes to the chosen one, also backwards
    connect(second_, &QRadioButton::toggled, this, &ViewChoice::changed);
}

}  // namespace kelvar
