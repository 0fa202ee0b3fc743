#include "input/option_card.h"

#include <QRadioButton>
#include <QStyleOptionButton>
#include <QVBoxLayout>

#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

OptionCard::OptionCard(QRadioButton* option) : below_(new QVBoxLayout) {
    setObjectName(u"card"_s);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(theme::grid, theme::grid, theme::grid, theme::grid);
    column->setSpacing(theme::grid / 2);
    const bool wraps = option->sizePolicy().hasHeightForWidth();
    column->addWidget(option, 0, wraps ? Qt::Alignment() : Qt::AlignLeft);
    column->addLayout(below_);
    option->ensurePolished();
    QStyleOptionButton shown;
    shown.initFrom(option);
    const QRect text = option->style()->subElementRect(QStyle::SE_RadioButtonContents, &shown, option);
    below_->setContentsMargins(text.left(), 0, 0, 0);
}

void OptionCard::add(QWidget* belonging) {
    below_->addWidget(belonging);
}

}  // namespace kelvar
