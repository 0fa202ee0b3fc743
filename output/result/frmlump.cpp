#include "output/result/frmlump.h"

#include <QComboBox>
#include <QItemSelectionModel>
#include <QLabel>

#include "engine/chart_rules.h"
#include "engine/comparison.h"
#include "engine/result_texts.h"
#include "engine/store.h"
#include "output/report/page_painter.h"
#include "output/result/cells.h"
#include "widgets/bar_chart.h"
#include "widgets/grid.h"
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
    lbltotalvalue = add_total(1, 1);
    add_note(to_qt(lump_sum_fee_text()), "lblfeenote");
    grphlump = new BarChart("grphlump", u"Value at the payment and current balance at each rate"_s);
    values_ = new TextTableModel({{u"Rate"_s}, {u"Value"_s}, {u"Difference from Today"_s}}, this);
    grdvalues = new Grid("grdvalues", u"Value at each rate and its difference from today"_s);
    grdvalues->setModel(values_);
    connect(grdvalues->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { follow_row(); });
    auto* result = new QWidget;
    QBoxLayout* row = control::row();
    result->setLayout(row);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(grphlump, 3);
    auto* beside = new QVBoxLayout;
    beside->addWidget(grdvalues);
    beside->addWidget(control::paragraph(QString::fromUtf16(estimate_note), "lblestimate"));
    beside->addStretch(1);
    row->addLayout(beside, 2);
    set_result(result);
    add_result_buttons();
    add_menu_button();
}

void frmlump::load() {
    lblsub->setText(u"(Lump Sum Payment)"_s);
    lblfrstdate->setText(to_qt(month_year_text(commencement(scenario, today).first.date)));
    show_money(lblcurvalue, scenario.present_value);
    add_rate();
    lblfee->setText(to_qt(fee_text(scenario.fee_amount)));
    show_all_rates();
}

void frmlump::get_value() {
    const Projection projection = project(scenario, chosen_rate(), today);
    module.visit.shown_rate = projection.rate;
    take_over(scenario, projection);
    if (projection.outcome == Outcome::nothing_left) {
        lblstartvalue->clear();
        lbltotalvalue->clear();
        print_buttons->setEnabled(false);
        get_cover(
            u"There is no payment to show because nothing is left in the account at that date."_s);
        return;
    }
    {
        const Hourglass hourglass;
        show_money(lblstartvalue, projection.start_value);
        show_money(lbltotalvalue, projection.total_paid);
        show_headline(projection);
        uncover();
        print_buttons->setEnabled(true);
        grphlump->choose(cmbrate->currentIndex());
        if (grdvalues->currentIndex().row() != cmbrate->currentIndex()) {
            grdvalues->setCurrentIndex(values_->index(cmbrate->currentIndex(), 0));
        }
        store_result([this, heading = heading_of(scenario, projection)] {
            Database::Transaction transaction(module.database());
            add_table(module.database(), heading);
            transaction.commit();
        });
    }
    show_note();
}

// The row chosen in the table is the rate.
void frmlump::follow_row() {
    const int row = grdvalues->currentIndex().row();
    if (row >= 0 && row != cmbrate->currentIndex()) {
        cmbrate->setCurrentIndex(row);
        get_value();
    }
}

void frmlump::show_all_rates() {
    BarData bars;
    BarSet at_payment{.name = u"Total Pay Back (including  interest)"_s, .values = {}};
    BarSet present{.name = u"Current Account Balance"_s, .values = {}};
    std::vector<std::vector<TextTableModel::Cell>> rows;
    for (const LumpSumValue& at_rate : lump_sum_values(scenario, today)) {
        const QString rate = to_qt(rate_text(at_rate.rate, scenario.method));
        bars.labels << rate;
        at_payment.values.push_back(at_rate.value);
        present.values.push_back(scenario.present_value);
        rows.push_back({{rate}, money_cell(at_rate.value), money_cell(at_rate.difference)});
    }
    const double last = at_payment.values.empty() ? 0.0 : at_payment.values.back();
    bars.sets = {at_payment, present};
    bars.upper = y_max(last);
    grphlump->show_bars(bars);
    values_->show_rows(std::move(rows));
    grdvalues->show_all_rows();
}

ResultScreen::Table frmlump::shown_table() const {
    return {values_, to_qt(method_title(scenario.method))};
}

}  // namespace kelvar
