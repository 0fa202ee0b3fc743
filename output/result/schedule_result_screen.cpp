#include "output/result/schedule_result_screen.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include "core/numbers.h"
#include "engine/heading.h"
#include "engine/yearly_chart.h"
#include "widgets/grid.h"
#include "widgets/hourglass.h"
#include "widgets/record_table_model.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// Why the result area is covered.
const QString beyond_life =
    u"At this rate of return the payments would outlast your life expectancy or minimum distribution years."_s;
const QString nothing_left =
    u"There are no payments to show because nothing is left in the account when they would begin."_s;
const QString no_payments = u"There are no payments to show for this length of payments."_s;

std::vector<RecordTableModel::Column> schedule_columns(const Recordset& schedule) {
    return {field_column(schedule, "number", u"Payment  #"_s),
            field_column(schedule, "remaining", u"Payments Remaining"_s),
            money_column(schedule, "startbalance", u"Beginning Balance"_s, pattern::dollars),
            money_column(schedule, "payment", u"Amount"_s, pattern::payment),
            money_column(schedule, "remainbalance", u"Remaining Balance"_s, pattern::dollars),
            field_column(schedule, "Month", u"Month"_s, Qt::AlignLeft),
            field_column(schedule, "Year", u"Year"_s)};
}

}  // namespace

ScheduleScreen::ScheduleScreen(Module1& module1, ScreenId id, const char* name, ScreenId chart)
    : ResultScreen(module1, id, name), chart_(chart) {
    grddist = new Grid("grddist", u"Schedule of payments"_s);
    set_result(grddist);
    build_chart_buttons();
}

void ScheduleScreen::build_chart_buttons() {
    cmdchart = control::button(u"Ch&art"_s, "cmdchart");
    pichart = control::picture(u"chart"_s, u"Chart"_s, "pichart");
    navigation()->insertWidget(3, cmdchart);
    navigation()->insertWidget(4, pichart);
    connect(cmdchart, &QPushButton::clicked, this, [this] { show_chart(); });
    connect(pichart, &QToolButton::clicked, this, [this] { show_chart(); });
}

void ScheduleScreen::load() {
    Recordset& schedule = module.database().schedule();
    rows_ = new RecordTableModel(schedule, schedule_columns(schedule), this);
    grddist->setModel(rows_);
    grddist->set_search_column(rows_->columnCount() - 1);  // the year
    lblnumber->setNum(scenario.number_of_payments);
    lblfee->setText(to_qt(fee_text(scenario.fee_amount)));
    add_rate();
}

void ScheduleScreen::get_value() {
    const double rate = chosen_rate();
    if (rate_ceiling_ <= rate) {
        get_cover(beyond_life);
        module.report(limit_text_);
        return;
    }
    switch (compute(rate)) {
        case Outcome::complete:
            show_note();
            break;
        case Outcome::limit_exceeded:
            show_limit(rate);
            break;
        case Outcome::nothing_left:
            get_cover(nothing_left);
            break;
        case Outcome::no_payments:
            get_cover(no_payments);
            break;
    }
}

// Computes and stores under the hourglass; messages come after it.
Outcome ScheduleScreen::compute(double rate) {
    const Hourglass hourglass;
    const Projection projection = project(scenario, rate, today);
    take_over(scenario, projection);
    if (projection.outcome == Outcome::complete) {
        show_result(projection);
    }
    store_result([this, schedule = projection.schedule, heading = heading_of(scenario, projection)] {
        store(module.database(), schedule, heading);
    });
    rows_->show_rows(0, module.database().schedule().RecordCount());
    grddist->scrollToTop();
    return projection.outcome;
}

void ScheduleScreen::show_result(const Projection& projection) {
    uncover();
    dis_mnu(0);
    show_values(true);
    lblnumber->setNum(projection.schedule.number_of_payments);
    show_money(lbltotalvalue, projection.total_paid);
}

void ScheduleScreen::show_limit(double rate) {
    rate_ceiling_ = rate;
    get_cover(beyond_life);
    module.check_payments_exceed_life();
    limit_text_ = scenario.message_text;
}

void ScheduleScreen::get_cover(const QString& reason) {
    ResultScreen::get_cover(reason);
    show_values(false);
    dis_mnu(1);
}

void ScheduleScreen::dis_mnu(int what) {
    if (what != 0 && what != 1) {
        return;
    }
    const bool enabled = what == 0;
    print_buttons->setEnabled(enabled);
    cmdchart->setEnabled(enabled);
    pichart->setEnabled(enabled);
    if (what == 1) {
        lbltotalvalue->clear();
        lblnumber->clear();
    }
}

void ScheduleScreen::show_chart() {
    const std::string_view refused = refused_chart(module.database().schedule());
    if (refused.empty()) {
        module.screens.show(chart_);
    } else {
        module.report(refused);
    }
}

}  // namespace kelvar
