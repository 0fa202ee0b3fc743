#include "output/result/schedule_result_screen.h"

#include <QLabel>

#include "engine/projection.h"
#include "widgets/text.h"

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
    lbltotalvalue = add_total(2, 1);
}

void frmperio::load() {
    lblsub->setText(u"(Periodic Payments - "_s + to_qt(module.frequency_name()) + u")"_s);
    lblfrstdate->setText(to_qt(month_year_text(commencement(scenario, today).first.date)));
    show_money(lblcurvalue, scenario.present_value);
    ScheduleScreen::load();
}

void frmperio::show_values(bool visible) {
    if (visible) {
        show_money(lblstartvalue, scenario.start_value);
    } else {
        lblstartvalue->clear();
    }
}

}  // namespace kelvar
