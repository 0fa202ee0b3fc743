#include "output/result/frmparti.h"

#include <QComboBox>
#include <QLabel>

#include "core/numbers.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

frmparti::frmparti(Module1& module1)
    : ScheduleScreen(module1, ScreenId::frmparti, "frmparti", ScreenId::frmcpart) {
    lblcurvalue = add_value(u"Current Account Balance:"_s, "lblcurvalue", 0, 0);
    lblfrstdate = add_value(u"Lump Sum Payment Date:"_s, "lblfrstdate", 1, 0);
    lblstartvalue = add_value(u"Value of Account at Lump Sum Payment:"_s, "lblstartvalue", 2, 0);
    lblscnddate = add_value(u"First Periodic Payment Date:"_s, "lblscnddate", 3, 0);
    lblscndvalue = add_value(u"Value at First Periodic Payment:"_s, "lblscndvalue", 4, 0);
    lblpartial = add_value(u"Lump Sum Payment:"_s, "lblpartial", 0, 1);
    lblnumber = add_value(u"Number of Payments: "_s, "lblnumber", 1, 1);
    lblfee = add_value(u"The Current Annual Fee:"_s, "lblfee", 2, 1);
    lbltotalvalue = add_value(u"Your Total Pay-Back: "_s, "lbltotalvalue", 3, 1);
}

void frmparti::load() {
    lblsub->setText(u"(Partial Lump Sum = Lump Sum Payment + Remaining Paid "_s +
                    to_qt(module.frequency_name()) + u")"_s);
    first_payment_ = first_payment(today, scenario.first_pay_month, scenario.first_pay_year);
    second_payment_date_ = first_payment(today, scenario.scenario_month, scenario.scenario_year).date;
    lblfrstdate->setText(to_qt(month_year_text(first_payment_.date)));
    lblscnddate->setText(to_qt(month_year_text(second_payment_date_)));
    show_money(lblcurvalue, scenario.present_value);
    show_money(lblpartial, scenario.partial_amount);
    ScheduleScreen::load();
}

PaymentTerms frmparti::payment_terms() {
    const double fee = scenario.fee_amount;
    scenario.start_value =
        value_at_first_payment(scenario.present_value, selected_rate, fee, today, first_payment_);
    // The fee is taken here even when the growth does not cover it.
    scenario.second_value =
        grown_less_fee(scenario.start_value - scenario.partial_amount, selected_rate,
                       days_between(first_payment_.date, second_payment_date_), fee);
    return {.start_value = scenario.second_value,
            .first_payment_date = second_payment_date_,
            .frequency = scenario.frequency,
            .rate = selected_rate,
            .fee = fee};
}

void frmparti::show_values(bool visible) {
    if (visible) {
        show_money(lblstartvalue, scenario.start_value);
        show_money(lblscndvalue, scenario.second_value);
    } else {
        lblstartvalue->clear();
        lblscndvalue->clear();
    }
}

Heading frmparti::heading() const {
    Heading heading{{"dtitle", "Partial Lump Sum Payments"},
                    {"dsubtitle", "Lump Sum  + Remaining Paid " + std::string{module.frequency_name()}},
                    {"curvalue", scenario.present_value},
                    {"startvalue", scenario.start_value},
                    {"frstdate", to_utf8(lblfrstdate->text())},
                    {"scnddate", to_utf8(lblscnddate->text())},
                    {"scndvalue", scenario.second_value},
                    {"partial", scenario.partial_amount}};
    add_length_fields(heading);
    return heading;
}

}  // namespace kelvar
