#include "output/result/schedule_result_screen.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <utility>

#include "engine/chart_rules.h"
#include "engine/least_amount.h"
#include "engine/result_texts.h"
#include "engine/store.h"
#include "output/result/schedule_view.h"
#include "widgets/hourglass.h"
#include "widgets/text.h"
#include "widgets/theme.h"
#include "widgets/view_choice.h"

using namespace Qt::StringLiterals;

namespace kelvar {

ScheduleScreen::ScheduleScreen(Module1& module1, ScreenId id, const char* name, ScreenId chart)
    : ResultScreen(module1, id, name), chart_(chart) {
    schedule_ = new ScheduleView(scenario);
    set_result(schedule_);
    build_buttons();
}

void ScheduleScreen::build_buttons() {
    cmdchart = control::button(u"Ch&art"_s, "cmdchart");
    pichart = control::picture(u"chart"_s, u"Chart"_s, "pichart");
    navigation()->add_left(cmdchart, pichart);
    cmdcompare = control::button(u"Co&mpare"_s, "cmdcompare");
    add_result_buttons(cmdcompare);
    connect(cmdcompare, &QPushButton::clicked, this, [this] { compare_rates(); });
    add_menu_button();
    connect(cmdchart, &QPushButton::clicked, this, [this] { show_chart(); });
    connect(pichart, &QToolButton::clicked, this, [this] { show_chart(); });
}

void ScheduleScreen::load() {
    schedule_->load(module.database());
    lblnumber->setNum(scenario.number_of_payments);
    lblfee->setText(to_qt(fee_text(scenario.fee_amount)));
    add_rate();
    cmdcompare->setEnabled(cmbrate->count() > 1 && module.screens.offers(ScreenId::frmcompare));
}

void ScheduleScreen::activate() {
    ResultScreen::activate();
    if (module.visit.compared_rate >= 0) {
        rate_ceiling_ = no_ceiling;  // the comparison has shown what comes of each rate by itself
        cmbrate->setCurrentIndex(std::exchange(module.visit.compared_rate, -1));
        get_value();
    }
}

ResultScreen::Table ScheduleScreen::shown_table() const {
    const QString title = to_qt(method_title(scenario.method));
    return {schedule_->shown_rows(), schedule_->shows_years() ? title + u" by Year"_s : title};
}

void ScheduleScreen::get_value() {
    const double rate = chosen_rate();
    module.visit.shown_rate = rate;
    if (rate_ceiling_ <= rate) {
        cover_limit(rate);
        module.report(limit_text_);
        return;
    }
    const Outcome outcome = compute(rate);
    if (outcome == Outcome::complete) {
        show_note();
    } else if (outcome == Outcome::limit_exceeded) {
        show_limit(rate);
    } else {
        get_cover(to_qt(no_result_text(outcome)));
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
    schedule_->show_projection(projection);
    return projection.outcome;
}

void ScheduleScreen::show_result(const Projection& projection) {
    uncover();
    dis_mnu(0);
    show_values(true);
    show_headline(projection);
    lblnumber->setNum(projection.schedule.number_of_payments);
    show_money(lbltotalvalue, projection.total_paid);
}

void ScheduleScreen::show_limit(double rate) {
    rate_ceiling_ = rate;
    cover_limit(rate);
    module.check_payments_exceed_life();
    limit_text_ = scenario.message_text;
}

// With what it takes instead.
void ScheduleScreen::cover_limit(double rate) {
    get_cover(to_qt(no_result_text(scenario, Outcome::limit_exceeded, rate, today)));
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
    schedule_->choice()->setEnabled(enabled);
    print_buttons->setEnabled(enabled);
    cmdchart->setEnabled(enabled);
    pichart->setEnabled(enabled);
    if (what == 1) {
        lbltotalvalue->clear();
        lblnumber->clear();
    }
}

void ScheduleScreen::compare_rates() {
    module.visit.compared_rate = cmbrate->currentIndex();
    module.screens.show(ScreenId::frmcompare);
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
