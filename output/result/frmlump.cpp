#include "output/result/frmlump.h"

#include <QComboBox>
#include <QLabel>

#include "core/numbers.h"
#include "engine/axis.h"
#include "engine/lump_sum.h"
#include "widgets/bar_chart.h"
#include "widgets/hourglass.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

frmlump::frmlump(Module1& module1) : ResultScreen(module1, ScreenId::frmlump, "frmlump") {
    lblcurvalue = add_value(u"Current Account Balance:"_s, "lblcurvalue", 0, 0);
    lblfrstdate = add_value(u"First Payment Date:"_s, "lblfrstdate", 1, 0);
    lblstartvalue = add_value(u"Value of Account at Commencement of Distribution Payment:"_s,
                              "lblstartvalue", 2, 0);
    lblfee = add_value(u"The Current Annual Fee:"_s, "lblfee", 0, 1);
    lbltotalvalue = add_value(u"Your Total Pay-Back: "_s, "lbltotalvalue", 1, 1);
    grphlump = new BarChart("grphlump", u"Value at the payment and current balance at each rate"_s);
    set_result(grphlump);
}

void frmlump::load() {
    lblsub->setText(u"(Lump Sum Payment)"_s);
    first_payment_ = first_payment(today, scenario.first_pay_month, scenario.first_pay_year);
    days_ = days_between(today, first_payment_.date);
    lblfrstdate->setText(to_qt(month_year_text(first_payment_.date)));
    show_money(lblcurvalue, scenario.present_value);
    add_rate(RateText::plain);
    lblfee->setText(to_qt(format_number(scenario.fee_amount, pattern::fee)));
    get_chart();
}

void frmlump::get_value() {
    scenario.lump_start_value = start_value_at(chosen_rate());
    if (scenario.lump_start_value <= 0.0) {
        lblstartvalue->clear();
        lbltotalvalue->clear();
        print_buttons->setEnabled(false);
        get_cover(
            u"There is no payment to show because nothing is left in the account at that date."_s);
        return;
    }
    {
        const Hourglass hourglass;
        show_money(lblstartvalue, scenario.lump_start_value);
        show_money(lbltotalvalue, scenario.lump_start_value);
        uncover();
        print_buttons->setEnabled(true);
        grphlump->choose(cmbrate->currentIndex());
        store_result([this, row = heading()] {
            Database::Transaction transaction(module.database());
            add_table(module.database(), row);
            transaction.commit();
        });
    }
    show_note();
}

void frmlump::get_chart() {
    BarData bars;
    BarSet at_payment{.name = u"Total Pay Back (including  interest)"_s, .values = {}};
    BarSet present{.name = u"Current Account Balance"_s, .values = {}};
    for (const double rate : scenario.selected_rates) {
        bars.labels << to_qt(number_text(rate)) + u"%"_s;
        at_payment.values.push_back(start_value_at(rate));
        present.values.push_back(scenario.present_value);
    }
    const double last = at_payment.values.empty() ? 0.0 : at_payment.values.back();
    bars.sets = {at_payment, present};
    bars.upper = y_max(last);
    grphlump->show_bars(bars);
}

double frmlump::start_value_at(double rate) const {
    return get_startvalue(scenario.present_value, rate, days_);
}

Heading frmlump::heading() const {
    return {{"curvalue", scenario.present_value},
            {"startvalue", scenario.lump_start_value},
            {"frstdate", to_utf8(lblfrstdate->text())},
            {"payments", std::int64_t{scenario.number_of_payments}},
            {"totalvalue", to_utf8(lbltotalvalue->text())},
            {"rate", to_utf8(cmbrate->currentText())},
            {"fee", to_utf8(lblfee->text())}};
}

}  // namespace kelvar
