#include "input/frmdist1.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>

#include "core/entries.h"
#include "core/numbers.h"
#include "input/first_payment_lists.h"
#include "input/limit_lines.h"
#include "input/rules/account_value.h"
#include "input/rules/first_payment.h"
#include "input/rules/limits.h"
#include "input/rules/next_checks.h"
#include "input/rules/typed_numbers.h"
#include "widgets/controls.h"
#include "widgets/entry_boxes.h"
#include "widgets/masked_date_edit.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// What is pasted can hold line breaks and the like.
QString printable(QString text) {
    static const QRegularExpression controls(uR"(\p{Cc})"_s);
    return text.remove(controls).trimmed();
}

}  // namespace

frmdist1::frmdist1(Module1& module1)
    : Screen(
          module1, ScreenId::frmdist1, "frmdist1",
          {.title = u"Commencement Date of Distribution"_s, .step = u"Step 1 of 4"_s, .save = true}) {
    build_birth();
    build_value();
    build_month();
    build_name();
    content()->addStretch(1);
    set_first_field(mskbirth);
}

void frmdist1::build_birth() {
    auto* fram1 = control::frame(u"&Date of Birth (MM / DD / YYYY)"_s, "fram1");
    auto* column = new QVBoxLayout(fram1);
    column->setSpacing(below_box);
    auto* row = new QHBoxLayout;
    mskbirth = new MaskedDateEdit("mskbirth");
    mskbirth->setAccessibleName(u"Date of Birth (MM / DD / YYYY)"_s);
    row->addWidget(mskbirth);
    row->addStretch(1);
    column->addLayout(row);
    lblbirthlimit = limit_line("lblbirthlimit");
    column->addWidget(lblbirthlimit);
    content()->addWidget(fram1);
    on_leave(mskbirth, [this](Leaving leaving) {
        if (mskbirth->is_empty()) {
            first_payment_->clear_age();
        } else if (!leaving.to_navigation) {
            chk_birth();
        }
    });
}

void frmdist1::show_birth_limit() {
    const auto [after, up_to] = participant_births(module.today());
    const QString limit = u"Age 16 to 100: born after %1, up to %2"_s.arg(to_qt(date_text(after)),
                                                                          to_qt(date_text(up_to)));
    show_limit(lblbirthlimit, limit, {mskbirth});
}

void frmdist1::build_value() {
    auto* framvalue = control::frame(u"Current Account &Balance"_s, "framvalue");
    auto* row = new QHBoxLayout(framvalue);
    txtcurvalue = control::money_box("txtcurvalue", u"Current Account Balance in dollars"_s);
    auto* lbldollar = theme::label(u"$"_s, theme::Role::body, "lbldollar");
    lbldollar->setBuddy(txtcurvalue);
    row->addWidget(lbldollar);
    row->addWidget(txtcurvalue);
    row->addStretch(1);
    content()->addWidget(framvalue);
    connect(txtcurvalue, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (const Check check = check_typing(to_utf8(text))) {
            chk_curvalue(*check);
        }
    });
    on_leave(txtcurvalue, [this](Leaving) { take_value(); });
}

void frmdist1::build_month() {
    auto* framtime = control::frame(u"Choose the Month You Wish to Begin Payments"_s, "framtime");
    auto* column = new QVBoxLayout(framtime);
    column->setSpacing(theme::grid);
    first_payment_ = new FirstPaymentLists(module);
    column->addWidget(first_payment_);
    column->addWidget(theme::label(u"Note:"_s, theme::Role::section, "lbltime_3"));
    column->addWidget(control::paragraph(
        u"For Participant: you have up until the March 31st after the close of the year in which you reach 70 1/2 to begin distribution payments."_s,
        "Label1"));
    content()->addWidget(framtime);
}

void frmdist1::build_name() {
    auto* row = control::row();
    auto* lblname = theme::label(u"Name &on the printouts (optional)"_s, theme::Role::body, "lblname");
    txtname = new EntryBox;
    txtname->setObjectName(u"txtname"_s);
    txtname->setAccessibleName(u"Name on the printouts, optional"_s);
    txtname->setMaxLength(longest_name);
    lblname->setBuddy(txtname);
    row->addWidget(lblname);
    row->addWidget(txtname, 3);
    row->addStretch(1);
    content()->addLayout(row);
    connect(txtname, &QLineEdit::textChanged, this,
            [this](const QString& text) { scenario.name = to_utf8(printable(text)); });
}

void frmdist1::load() {
    module.set_screen_size();
    scenario.first_pay_month = static_cast<std::int16_t>(month_of(module.today()));
    first_payment_->start_with(scenario.first_pay_month);
    first_payment_->offer();
}

void frmdist1::activate() {
    show_birth_limit();
    first_payment_->follow_day();
}

bool frmdist1::chk_birth() {
    const BirthCheck check = check_birth(to_utf8(mskbirth->mask_text()), module.today());
    if (check.date) {
        mskbirth->setText(to_qt(date_text(*check.date)));
    }
    if (check.wrong) {
        first_payment_->clear_age();
        if (check.date) {
            stand_out(lblbirthlimit, mskbirth);
        }
        err_box(check.wrong->text, mskbirth);
        return false;
    }
    take_birth(check);
    return true;
}

void frmdist1::take_birth(const BirthCheck& check) {
    scenario.birth_date = *check.date;
    scenario.current_age = check.age;
    first_payment_->follow_birth(scenario.birth_date);
}

void frmdist1::chk_curvalue(const Refusal& refusal) {
    if (error_shown()) {
        return;
    }
    txtcurvalue->clear();
    scenario.present_value = 0.0;
    err_box(refusal.text, txtcurvalue);
}

std::optional<double> frmdist1::take_value() {
    const auto value = get_num(to_utf8(txtcurvalue->text()));
    scenario.present_value = value ? round_to_cents(*value) : 0.0;
    if (value) {
        txtcurvalue->setText(to_qt(format_number(*value, pattern::amount)));
    }
    return value;
}

void frmdist1::edit_date() {
    scenario.entry_date = module.today();
    scenario.first_pay_month = static_cast<std::int16_t>(first_payment_->month());
    scenario.first_pay_year = static_cast<std::int16_t>(first_payment_->year());
    scenario.lookup_age = static_cast<std::int16_t>(first_payment_->age_shown());
}

void frmdist1::go_dnxt2() {
    clear_error();
    const Check check = chk_fields({.month = first_payment_->month(),
                                    .year = first_payment_->year(),
                                    .value = take_value(),
                                    .birth_text = to_utf8(mskbirth->mask_text())},
                                   module.today());
    if (check) {
        // The years are offered all the same, or the next Next would go on with one that nobody saw.
        const BirthCheck birth = check_birth(to_utf8(mskbirth->mask_text()), module.today());
        if (!birth.wrong) {
            take_birth(birth);
        }
        refuse(check->text, check->field);
        return;
    }
    const int year_before = first_payment_->year();
    const int month_before = first_payment_->month();
    if (!chk_birth()) {
        return;
    }
    if (year_before != 0 &&
        (year_before != first_payment_->year() || month_before != first_payment_->month())) {
        first_payment_->focus_month();  // the corrected date of birth has changed what was chosen
        return;
    }
    edit_date();
    module.screens.show(ScreenId::frmdist2);
}

void frmdist1::put_into(Entries& entries) const {
    entries.name = scenario.name.empty() ? std::nullopt : std::optional{scenario.name};
    entries.birth_date = read_masked_date(to_utf8(mskbirth->mask_text()));
    const auto value = get_num(to_utf8(txtcurvalue->text()));
    entries.present_value = value ? std::optional{round_to_cents(*value)} : std::nullopt;
    first_payment_->put_into(entries);
}

bool frmdist1::take(const Entries& entries) {
    txtname->setText(to_qt(entries.name.value_or("")));
    txtname->setCursorPosition(0);
    if (entries.present_value) {
        txtcurvalue->setText(to_qt(format_number(*entries.present_value, pattern::amount)));
        take_value();
    }
    first_payment_->choose(entries);
    if (!entries.birth_date) {
        return false;
    }
    mskbirth->setText(to_qt(date_text(*entries.birth_date)));
    if (!chk_birth() || !entries.present_value || !entries.first_pay_month || !entries.first_pay_year) {
        return false;
    }
    if (!first_payment_->shows_choice()) {
        refuse(invalid_month, "Cmbfrstmonth");
        return false;
    }
    return true;
}

void frmdist1::get_back() {
    module.return_to_menu();
}

}  // namespace kelvar
