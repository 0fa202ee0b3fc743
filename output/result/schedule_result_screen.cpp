#include "output/result/schedule_result_screen.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include "core/numbers.h"
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
    lblfee->setText(to_qt(format_number(scenario.fee_amount, pattern::fee)));
    add_rate(RateText::with_blank);
}

void ScheduleScreen::get_value() {
    selected_rate = chosen_rate();
    if (rate_ceiling_ <= selected_rate) {
        get_cover(beyond_life);
        module.report(limit_text_);
        return;
    }
    const PaymentTerms terms = payment_terms();
    const PaymentSchedule schedule = compute(terms);
    if (schedule.limit_exceeded) {
        show_limit(schedule);
    } else if (schedule.rows.empty()) {
        get_cover(terms.start_value <= 0.0 ? nothing_left : no_payments);
    } else {
        show_note();
    }
}

// Computes and stores under the hourglass; messages come after it.
PaymentSchedule ScheduleScreen::compute(const PaymentTerms& terms) {
    const Hourglass hourglass;
    PaymentSchedule schedule;
    if (scenario.length_option == by_dollar_amount) {
        schedule = calcu_fix(terms);
    } else if (scenario.length_option == by_number_of_payments ||
               scenario.length_option == by_life_expectancy) {
        schedule = calcu_yr_value(terms);
    }
    const bool complete = !schedule.limit_exceeded && !schedule.rows.empty();
    if (complete) {
        show_schedule(schedule);
    }
    store_result([this, schedule, row = complete ? heading() : Heading{}] {
        store(module.database(), schedule, row);
    });
    rows_->show_rows(0, module.database().schedule().RecordCount());
    grddist->scrollToTop();
    return schedule;
}

PaymentSchedule ScheduleScreen::calcu_yr_value(const PaymentTerms& terms) {
    return LevelPaymentSchedule(terms, scenario.number_of_payments);
}

PaymentSchedule ScheduleScreen::calcu_fix(const PaymentTerms& terms) {
    PaymentSchedule schedule = FixedAmountSchedule(terms, scenario.fixed_amount,
                                                   {scenario.lookup_age, scenario.life_expectancy_age});
    scenario.number_of_payments = schedule.number_of_payments;
    return schedule;
}

void ScheduleScreen::show_schedule(const PaymentSchedule& schedule) {
    scenario.total_paid = schedule.total_paid + paid_before();
    uncover();
    dis_mnu(0);
    show_values(true);
    lblnumber->setNum(scenario.number_of_payments);
    show_money(lbltotalvalue, scenario.total_paid);
}

void ScheduleScreen::show_limit(const PaymentSchedule& schedule) {
    rate_ceiling_ = selected_rate;
    get_cover(beyond_life);
    scenario.number_of_payments = schedule.number_of_payments;
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
    Recordset& schedule = module.database().schedule();
    schedule.MoveFirst();
    const double first = schedule.number("Year");
    schedule.MoveLast();
    const double last = schedule.number("Year");
    if (last - first + 1 == 1) {
        module.report(
            "This chart is only available for distribution payments spread over two calendar years or "
            "longer.");
        return;
    }
    module.screens.show(chart_);
}

void ScheduleScreen::add_length_fields(Heading& heading) const {
    heading.emplace_back("payments", std::int64_t{scenario.number_of_payments});
    if (scenario.length_option == by_dollar_amount) {
        heading.emplace_back("fixamount", scenario.fixed_amount);
    }
    heading.emplace_back("paylength", std::int64_t{scenario.length_option});
    heading.emplace_back("totalvalue", to_utf8(lbltotalvalue->text()));
    heading.emplace_back("rate", to_utf8(cmbrate->currentText()));
    heading.emplace_back("fee", to_utf8(lblfee->text()));
}

}  // namespace kelvar
