#include "input/first_payment_lists.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <algorithm>

#include "core/entries.h"
#include "input/limit_lines.h"
#include "input/rules/first_payment.h"
#include "input/rules/limits.h"
#include "input/rules/lookup_ages.h"
#include "widgets/controls.h"
#include "widgets/focus_marker.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

FirstPaymentLists::FirstPaymentLists(Module1& module1) : module(module1), scenario(module1.scenario) {
    build();
    connect(Cmbfrstmonth, &QComboBox::currentIndexChanged, this, [this] {
        wished_month_ = month();
        chk_frstmon();
    });
    connect(Cmbfrstyear, &QComboBox::currentIndexChanged, this, [this] {
        wished_year_ = year();
        chk_year();
    });
}

void FirstPaymentLists::build() {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(2 * theme::grid);
    grid->setVerticalSpacing(theme::grid);
    Cmbfrstmonth = control::list("Cmbfrstmonth", u"First payment month"_s);
    Cmbfrstyear = control::list("Cmbfrstyear", u"First payment year"_s);
    lblage = theme::label({}, theme::Role::value, "lblage");
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
    lbllatest = limit_line("lbllatest");
    grid->addWidget(lbllatest, 2, 0, 1, 4);
    lblchanged = control::paragraph({}, "lblchanged");
    lblchanged->hide();
    grid->addWidget(lblchanged, 3, 0, 1, 4);
}

void FirstPaymentLists::offer() {
    get_year();
    get_month();
    show_age();
}

void FirstPaymentLists::follow_day() {
    get_year();
    control::refill(Cmbfrstmonth, month_entries(first_payment_months(over_72())),
                    Cmbfrstmonth->currentText());
    show_age();
    show_changed();
}

void FirstPaymentLists::follow_birth(Date birth) {
    birth_ = birth;
    birth_known_ = true;
    get_year();
    chk_year();
}

// The latest year offers fewer months; another year brings the one that the user chose back.
void FirstPaymentLists::get_month() {
    control::refill(Cmbfrstmonth, month_entries(first_payment_months(over_72())),
                    to_qt(month_name(wished_month_)));
}

void FirstPaymentLists::get_year() {
    control::refill(Cmbfrstyear, year_entries(first_payment_years(birth_, module.today())),
                    QString::number(wished_year_));
    show_latest(birth_known_ ? birth_ : no_date);
}

void FirstPaymentLists::show_latest(Date birth) {
    QString latest;
    if (const auto month = latest_first_month(birth, module.today())) {
        latest = u"This program lets payments begin up to %1."_s.arg(to_qt(month_year_text(*month)));
    }
    if (const auto deadline = passed_deadline(birth, module.today())) {
        latest += u" The deadline of %1 has passed."_s.arg(to_qt(month_year_text(*deadline)));
    }
    lbllatest->setText(latest);
}

void FirstPaymentLists::chk_year() {
    scenario.over_72_flag = over_72() ? 1 : 0;
    get_month();
    less_month_now();
    show_age();
    show_changed();
}

void FirstPaymentLists::chk_frstmon() {
    less_month_now();
    show_age();
    show_changed();
}

// The latest year is open up to the deadline of March 31st only.
bool FirstPaymentLists::over_72() const {
    return Cmbfrstyear->count() > 0 && Cmbfrstyear->currentIndex() == Cmbfrstyear->count() - 1;
}

// A month of this year that has passed becomes the present month.
void FirstPaymentLists::less_month_now() {
    const Date today = module.today();
    if (year() == year_of(today) && month() < month_of(today)) {
        const QSignalBlocker quiet(Cmbfrstmonth);
        Cmbfrstmonth->setCurrentIndex(month_of(today) - 1);
    }
}

void FirstPaymentLists::show_age() {
    if (year() == 0 || !birth_known_) {
        lblage->clear();
        return;
    }
    lblage->setNum(shown_age(birth_, month(), year(), module.today()));
}

void FirstPaymentLists::clear_age() {
    birth_known_ = false;
    show_age();
    show_latest(no_date);
    show_changed();
}

// Says when the lists do not show what the user chose, and why.
void FirstPaymentLists::show_changed() {
    const int wished_year = wished_year_ == 0 ? year() : wished_year_;
    const bool offered = wished_year == year() && wished_month_ <= Cmbfrstmonth->count();
    const bool shown = year() == 0 || (offered && wished_month_ == month());  // 0 while none is offered
    lblchanged->setText(shown ? QString()
                              : (offered ? u"%1, %2 has passed; payments can begin in %3, %4."_s
                                         : u"The first payment was changed from %1, %2 to %3, %4."_s)
                                    .arg(to_qt(month_name(wished_month_)))
                                    .arg(wished_year)
                                    .arg(Cmbfrstmonth->currentText())
                                    .arg(year()));
    lblchanged->setVisible(!shown);
    for (QWidget* list : {Cmbfrstmonth, Cmbfrstyear}) {
        list->setAccessibleDescription((lbllatest->text() + u' ' + lblchanged->text()).trimmed());
        keep_in_view_with(list, shown ? lbllatest : lblchanged);  // the lower one
    }
}

void FirstPaymentLists::choose(const Entries& entries) {
    wished_month_ = entries.first_pay_month.value_or(wished_month_);
    wished_year_ = entries.first_pay_year.value_or(wished_year_);
    get_year();
    chk_year();
}

bool FirstPaymentLists::shows_choice() const {
    return wished_month_ == month() && (wished_year_ == 0 || wished_year_ == year());
}

void FirstPaymentLists::put_into(Entries& entries) const {
    const bool shown = year() != 0;
    entries.first_pay_month = shown ? month() : wished_month_;
    entries.first_pay_year = shown ? std::optional{year()}
                                   : (wished_year_ != 0 ? std::optional{wished_year_} : std::nullopt);
}

int FirstPaymentLists::month() const {
    return std::max(Cmbfrstmonth->currentIndex(), 0) + 1;
}

int FirstPaymentLists::year() const {
    return Cmbfrstyear->currentText().toInt();
}

int FirstPaymentLists::age_shown() const {
    return lblage->text().toInt();
}

void FirstPaymentLists::focus_month() {
    Cmbfrstmonth->setFocus();
}

}  // namespace kelvar
