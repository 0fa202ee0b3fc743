#include "output/result/frmperio.h"

#include <QComboBox>
#include <QLabel>

#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

frmperio::frmperio(Module1& module1)
    : ScheduleScreen(module1, ScreenId::frmperio, "frmperio", ScreenId::frmcperi) {
    lblcurvalue = add_value(u"Current Account Balance:"_s, "lblcurvalue", 0, 0);
    lblfrstdate = add_value(u"First Payment Date:"_s, "lblfrstdate", 1, 0);
    lblstartvalue = add_value(u"Value of Account at Commencement of Distribution Payment:"_s,
                              "lblstartvalue", 2, 0);
    lblnumber = add_value(u"Number of Payments: "_s, "lblnumber", 0, 1);
    lblfee = add_value(u"The Current Annual Fee:"_s, "lblfee", 1, 1);
    lbltotalvalue = add_value(u"Your Total Pay-Back: "_s, "lbltotalvalue", 2, 1);
}

void frmperio::load() {
    lblsub->setText(u"(Periodic Payments - "_s + to_qt(module.frequency_name()) + u")"_s);
    first_payment_ = first_payment(today, scenario.first_pay_month, scenario.first_pay_year);
    lblfrstdate->setText(to_qt(month_year_text(first_payment_.date)));
    show_money(lblcurvalue, scenario.present_value);
    ScheduleScreen::load();
}

PaymentTerms frmperio::payment_terms() {
    const double fee = scenario.fee_amount;
    scenario.start_value =
        value_at_first_payment(scenario.present_value, selected_rate, fee, today, first_payment_);
    return {.start_value = scenario.start_value,
            .first_payment_date = first_payment_.date,
            .frequency = scenario.frequency,
            .rate = selected_rate,
            .fee = fee};
}

void frmperio::show_values(bool visible) {
    if (visible) {
        show_money(lblstartvalue, scenario.start_value);
    } else {
        lblstartvalue->clear();
    }
}

Heading frmperio::heading() const {
    Heading heading{{"dtitle", "Periodic Payments - " + std::string{module.frequency_name()}},
                    {"curvalue", scenario.present_value},
                    {"startvalue", scenario.start_value},
                    {"frstdate", to_utf8(lblfrstdate->text())}};
    add_length_fields(heading);
    return heading;
}

}  // namespace kelvar
