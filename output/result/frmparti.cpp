#include "output/result/schedule_result_screen.h"

#include <QLabel>

#include "engine/projection.h"
#include "widgets/text.h"

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
    lbltotalvalue = add_total(3, 1);
}

void frmparti::load() {
    lblsub->setText(u"(Partial Lump Sum = Lump Sum Payment + Remaining Paid "_s +
                    to_qt(module.frequency_name()) + u")"_s);
    const Commencement dates = commencement(scenario, today);
    lblfrstdate->setText(to_qt(month_year_text(dates.first.date)));
    lblscnddate->setText(to_qt(month_year_text(dates.second_date)));
    show_money(lblcurvalue, scenario.present_value);
    show_money(lblpartial, scenario.partial_amount);
    ScheduleScreen::load();
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

}  // namespace kelvar
