#include "input/frmdist1.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>

#include "core/numbers.h"
#include "input/rules/participant_rules.h"
#include "widgets/controls.h"
#include "widgets/masked_date_edit.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

frmdist1::frmdist1(Module1& module1)
    : Screen(module1, "frmdist1",
             {.title = u"Commencement Date of Distribution"_s, .step = u"Step 1 of 4"_s}) {
    build_birth();
    build_value();
    build_month();
    content()->addStretch(1);
    set_first_field(mskbirth);
}

void frmdist1::build_birth() {
    auto* fram1 = control::frame(u"&Date of Birth (MM / DD / YYYY)"_s, "fram1");
    auto* row = new QHBoxLayout(fram1);
    mskbirth = new MaskedDateEdit("mskbirth");
    mskbirth->setAccessibleName(u"Date of Birth (MM / DD / YYYY)"_s);
    row->addWidget(mskbirth);
    row->addStretch(1);
    content()->addWidget(fram1);
    on_leave(mskbirth, [this](Leaving leaving) {
        if (!leaving.to_navigation && !mskbirth->is_empty()) {
            chk_birth();
        }
    });
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
        if (!can_become_amount(to_utf8(text))) {
            chk_curvalue();
        }
    });
    on_leave(txtcurvalue, [this](Leaving) { value_left(); });
}

void frmdist1::build_month() {
    auto* framtime = control::frame(u"Choose the Month You Wish to Begin Payments"_s, "framtime");
    auto* grid = new QGridLayout(framtime);
    grid->setHorizontalSpacing(2 * theme::grid);
    grid->setVerticalSpacing(theme::grid);
    Cmbfrstmonth = control::list("Cmbfrstmonth", u"First payment month"_s);
    Cmbfrstyear = control::list("Cmbfrstyear", u"First payment year"_s);
    lblage = theme::label({}, theme::Role::value, "lblage");
    lblage->setAccessibleName(u"Age at the first payment"_s);
    auto* lblmonth = theme::label(u"&Month"_s, theme::Role::body, "lbltime_0");
    auto* lblyear = theme::label(u"&Year"_s, theme::Role::body, "lbltime_1");
    lblmonth->setBuddy(Cmbfrstmonth);
    lblyear->setBuddy(Cmbfrstyear);
    grid->addWidget(lblmonth, 0, 0);
    grid->addWidget(lblyear, 0, 1);
    grid->addWidget(Cmbfrstmonth, 1, 0);
    grid->addWidget(Cmbfrstyear, 1, 1);
    auto* age = new QHBoxLayout;
    age->setSpacing(theme::grid);
    age->addSpacing(2 * theme::grid);
    age->addWidget(theme::label(u"At Age:"_s, theme::Role::body, "lbltime_2"));
    age->addWidget(lblage);
    grid->addLayout(age, 1, 2);
    grid->setColumnStretch(3, 1);
    lblchanged = control::paragraph({}, "lblchanged");
    grid->addWidget(lblchanged, 2, 0, 1, 4);
    grid->addWidget(theme::label(u"Note:"_s, theme::Role::section, "lbltime_3"), 3, 0, 1, 4);
    grid->addWidget(
        control::paragraph(
            u"For Participant: you have up until the March 31st after the close of the year in which you reach 70 1/2 to begin distribution payments."_s,
            "Label1"),
        4, 0, 1, 4);
    content()->addWidget(framtime);
    connect(Cmbfrstmonth, &QComboBox::currentIndexChanged, this, [this] {
        wished_month_ = chosen_month();
        chk_frstmon();
    });
    connect(Cmbfrstyear, &QComboBox::currentIndexChanged, this, [this] {
        wished_year_ = chosen_year();
        chk_year();
    });
}

void frmdist1::load() {
    module.set_screen_size();
    scenario.first_pay_month = static_cast<std::int16_t>(month_of(module.today()));
    wished_month_ = scenario.first_pay_month;
    get_year();
    get_month();
    if (scenario.current_age != 0) {
        show_age();
    }
}

// The day can have changed, and with it the years on offer and the age.
void frmdist1::activate() {
    get_year();
    get_month();
    show_age();
}

bool frmdist1::chk_birth() {
    const BirthCheck check = check_birth(to_utf8(mskbirth->mask_text()), module.today());
    if (check.date) {
        mskbirth->setText(to_qt(date_text(*check.date)));
    }
    if (!check.message.empty()) {
        lblage->clear();
        err_box(check.message, mskbirth);
        return false;
    }
    scenario.birth_date = *check.date;
    scenario.current_age = check.age;
    get_year();
    chk_year();
    return true;
}

void frmdist1::chk_curvalue() {
    if (error_shown()) {
        return;
    }
    txtcurvalue->clear();
    scenario.present_value = 0.0;
    err_box("Invalid present value of the account", txtcurvalue);
}

void frmdist1::value_left() {
    const auto value = get_num(to_utf8(txtcurvalue->text()));
    scenario.present_value = value ? round_to_cents(*value) : 0.0;
    if (value) {
        txtcurvalue->setText(to_qt(format_number(*value, pattern::amount)));
    }
}

// The latest year offers fewer months; another year brings the one that the user chose back.
void frmdist1::get_month() {
    control::refill(Cmbfrstmonth, month_entries(first_payment_months(over_72())));
    const QSignalBlocker quiet(Cmbfrstmonth);
    Cmbfrstmonth->setCurrentIndex(wished_month_ <= Cmbfrstmonth->count() ? wished_month_ - 1 : 0);
}

// A return to the menu keeps the old date of birth, but no age: then none has been entered here yet.
void frmdist1::get_year() {
    const Date birth = scenario.current_age == 0 ? no_date : scenario.birth_date;
    control::refill(Cmbfrstyear, year_entries(first_payment_years(birth, module.today())));
    const int wished = Cmbfrstyear->findText(QString::number(wished_year_));
    if (wished >= 0) {
        const QSignalBlocker quiet(Cmbfrstyear);
        Cmbfrstyear->setCurrentIndex(wished);
    }
}

void frmdist1::chk_year() {
    scenario.over_72_flag = over_72() ? 1 : 0;
    get_month();
    less_month_now();
    show_age();
    show_changed();
}

void frmdist1::chk_frstmon() {
    less_month_now();
    show_age();
    show_changed();
}

// The latest year is open up to the deadline of March 31st only.
bool frmdist1::over_72() const {
    return Cmbfrstyear->count() > 0 && Cmbfrstyear->currentIndex() == Cmbfrstyear->count() - 1;
}

// A month of this year that has passed silently becomes the present month.
void frmdist1::less_month_now() {
    const Date today = module.today();
    if (chosen_year() == year_of(today) && chosen_month() < month_of(today)) {
        const QSignalBlocker quiet(Cmbfrstmonth);
        Cmbfrstmonth->setCurrentIndex(month_of(today) - 1);
    }
}

void frmdist1::show_age() {
    if (chosen_year() == 0 || scenario.current_age == 0) {
        lblage->clear();
        return;
    }
    lblage->setNum(shown_age(scenario.birth_date, scenario.current_age, chosen_month(), chosen_year(),
                             module.today()));
}

// Says when the lists do not offer what the user chose. (A month that has passed is moved silently.)
void frmdist1::show_changed() {
    const bool offered =
        wished_year_ == 0 || (wished_year_ == chosen_year() && wished_month_ <= Cmbfrstmonth->count());
    lblchanged->setText(offered ? QString()
                                : u"The first payment was changed from %1, %2 to %3, %4."_s
                                      .arg(to_qt(month_name(wished_month_)))
                                      .arg(wished_year_)
                                      .arg(Cmbfrstmonth->currentText())
                                      .arg(chosen_year()));
}

void frmdist1::edit_date() {
    scenario.first_pay_month = static_cast<std::int16_t>(chosen_month());
    scenario.first_pay_year = static_cast<std::int16_t>(chosen_year());
    scenario.lookup_age = static_cast<std::int16_t>(lblage->text().toInt());
}

void frmdist1::go_dnxt2() {
    clear_error();
    value_left();
    const Check check = chk_fields({.month = chosen_month(),
                                    .year = chosen_year(),
                                    .value_text = to_utf8(txtcurvalue->text()),
                                    .birth_text = to_utf8(mskbirth->mask_text())},
                                   module.today());
    if (check) {
        refuse(check->text, check->field);
        return;
    }
    const int year_before = chosen_year();
    if (!chk_birth()) {
        return;
    }
    if (year_before != 0 && year_before != chosen_year()) {
        Cmbfrstyear->setFocus();  // the corrected date of birth no longer allows the chosen year
        return;
    }
    edit_date();
    module.screens.show(ScreenId::frmdist2);
}

void frmdist1::get_back() {
    module.return_to_menu();
}

int frmdist1::chosen_month() const {
    return std::max(Cmbfrstmonth->currentIndex(), 0) + 1;
}

int frmdist1::chosen_year() const {
    return Cmbfrstyear->currentText().toInt();
}

}  // namespace kelvar
