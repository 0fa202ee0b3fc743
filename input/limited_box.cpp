#include "input/limited_box.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include "input/limit_line.h"
#include "widgets/theme.h"

namespace kelvar {

LimitedBox::LimitedBox(const QString& sign, QLineEdit* box, const char* limit_name)
    : box_(box), limit_(limit_line(limit_name)) {
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::grid);
    if (!sign.isEmpty()) {
        row->addWidget(theme::label(sign, theme::Role::body));
    }
    row->addWidget(box);
    row->addStretch(1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4 * theme::grid, 0, 0, theme::grid / 2);
    column->setSpacing(2);
    column->addLayout(row);
    column->addWidget(limit_);
}

void LimitedBox::show_limit(const QString& limit) {
    kelvar::show_limit(limit_, limit, {box_});
}

void LimitedBox::stand_out() {
    kelvar::stand_out(limit_, box_);
}

}  // namespace kelvar
