#include "input/life_options.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "input/limit_lines.h"
#include "widgets/controls.h"
#include "widgets/masked_date_edit.h"
#include "widgets/theme.h"
#include "widgets/wrapping_radio_button.h"

using namespace Qt::StringLiterals;

namespace kelvar {

LifeOptions::LifeOptions() {
    const QString captions[] = {
        {},  // depends on the age, see name_single
        u"Payments based on &joint life expectancy (based on your life expectancy and that of your spouse). You can only select this option if your spouse is your sole beneficiary and he/she is more than 10 years younger than you."_s};
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(theme::grid / 4);  // the options have margins of their own
    lbllifelimit = limit_line("lbllifelimit");
    QBoxLayout* heading = control::row();
    heading->setSpacing(2 * theme::grid);
    heading->addWidget(theme::label(u"(Check only one)"_s, theme::Role::note, "Label1"));
    heading->addWidget(lbllifelimit, 1);
    column->addLayout(heading);
    auto* one_of = new QButtonGroup(this);
    for (std::size_t index = 0; index < oplifeexp.size(); ++index) {
        auto* option = new WrappingRadioButton(captions[index], u"oplifeexp_%1"_s.arg(index));
        oplifeexp[index] = option;
        one_of->addButton(option, static_cast<int>(index));
        column->addWidget(option);
        connect(option, &QRadioButton::clicked, this, &LifeOptions::chosen);
    }
    single()->setChecked(true);
    lblspouselimit = limit_line("lblspouselimit");
    column->addWidget(lblspouselimit);
    build_spouse(column);
}

void LifeOptions::build_spouse(QBoxLayout* column) {
    frame3 = control::frame(u"Date of &Birth"_s, "frame3");
    frame3->setFlat(true);  // the card around has the border
    auto* row = new QHBoxLayout(frame3);
    row->setContentsMargins(0, 0, 0, 0);
    mskbenebirth = new MaskedDateEdit("mskbenebirth");
    mskbenebirth->setAccessibleName(u"Date of Birth of Spouse (MM/DD/YYYY)"_s);
    auto* Label2 = theme::label(u"of Spouse"_s, theme::Role::body, "Label2");
    Label2->setBuddy(mskbenebirth);
    row->addWidget(Label2);
    row->addWidget(mskbenebirth);
    row->addWidget(theme::label(u"(MM/DD/YYYY)"_s, theme::Role::note, "Label3"));
    row->addStretch(1);
    column->addWidget(frame3);
}

void LifeOptions::name_single(bool minimum_distribution) {
    single()->setText(u"Payments based on your li&fe expectancy"_s +
                      (minimum_distribution ? u" / minimum distribution."_s : QString()));
    single()->updateGeometry();
}

void LifeOptions::set_options_enabled(bool enabled) {
    single()->setEnabled(enabled);
    joint()->setEnabled(enabled);
}

void LifeOptions::show_spouse(bool shown) {
    frame3->setVisible(shown);
}

void LifeOptions::show_limits(const QString& payments, const QString& births) {
    show_limit(lbllifelimit, payments, {single()});
    lbllifelimit->setVisible(!payments.isEmpty());
    lblspouselimit->setText(births);
    for (QWidget* control : {static_cast<QWidget*>(joint()), static_cast<QWidget*>(mskbenebirth)}) {
        control->setAccessibleDescription(payments.isEmpty() ? births : payments + u". "_s + births);
    }
}

void LifeOptions::births_stand_out(const QAbstractButton* option) {
    stand_out(lblspouselimit, mskbenebirth, option);
}

}  // namespace kelvar
