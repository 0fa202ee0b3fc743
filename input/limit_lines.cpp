#include "input/limit_lines.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include "widgets/controls.h"
#include "widgets/focus_marker.h"
#include "widgets/theme.h"

namespace kelvar {

QLabel* limit_line(const char* name) {
    QLabel* line = control::paragraph({}, name);
    line->ensurePolished();
    line->setMinimumHeight(line->fontMetrics().height());
    return line;
}

void show_limit(QLabel* line, const QString& limit, std::initializer_list<QWidget*> controls) {
    line->setText(limit);
    for (QWidget* control : controls) {
        control->setAccessibleDescription(limit);
        keep_in_view_with(control, line);
    }
}

void stand_out(QLabel* line, const QLineEdit* entry, const QAbstractButton* option) {
    theme::set_role(line, theme::Role::value);
    const auto fall_back = [line] { theme::set_role(line, theme::Role::note); };
    QObject::connect(entry, &QLineEdit::textChanged, line, fall_back, Qt::SingleShotConnection);
    if (option != nullptr) {
        QObject::connect(option, &QAbstractButton::toggled, line, fall_back, Qt::SingleShotConnection);
    }
}

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
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(below_box);
    column->addLayout(row);
    column->addWidget(limit_);
}

void LimitedBox::show_limit(const QString& limit) {
    kelvar::show_limit(limit_, limit, {box_});
}

void LimitedBox::stand_out(const QAbstractButton* option) {
    kelvar::stand_out(limit_, box_, option);
}

}  // namespace kelvar
