#include "output/result/frmcompare.h"

#include <QCheckBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <algorithm>
#include <utility>

#include "engine/chart_rules.h"
#include "output/report/page_painter.h"
#include "output/result/cells.h"
#include "output/result/price_line.h"
#include "output/result/printed_values.h"
#include "shell/saved_file.h"
#include "widgets/grid.h"
#include "widgets/hourglass.h"
#include "widgets/line_chart.h"
#include "widgets/table_text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

std::vector<TextTableModel::Column> columns() {
    return {{u"Rate"_s},         {u"Value at First Payment"_s},
            {u"First Amount"_s}, {u"Amount in Last Full Year"_s},
            {u"Number"_s},       {u"Last Payment"_s},
            {u"Age"_s},          {u"Earnings"_s},
            {u"Fees"_s},         {u"Total Paid"_s}};
}

bool is_complete(const ComparedRate& rate) {
    return rate.outcome == Outcome::complete;
}

// Those chosen are at most four, which can be told apart.
bool has_line(const ComparedRate& rate) {
    return is_complete(rate) && !rate.added && !rate.fallen;
}

}  // namespace

frmcompare::frmcompare(Module1& module1)
    : Screen(module1, ScreenId::frmcompare, "frmcompare",
             {.title = u"Comparison of Rates"_s, .next = false, .save = true}) {
    content()->setSpacing(theme::grid);
    content()->setContentsMargins(theme::side_margin(), theme::grid, theme::side_margin(), theme::grid);
    lblsub = theme::label({}, theme::Role::section, "lblsub");
    lblsub->setWordWrap(true);
    content()->addWidget(lblsub);
    build_table();
    lblspread = theme::label({}, theme::Role::body, "lblspread");
    lblspread->setWordWrap(true);
    content()->addWidget(lblspread);
    chkfall = new QCheckBox(u"Also after a fall of &20%"_s);
    chkfall->setObjectName(u"chkfall"_s);
    chkzero = new QCheckBox(u"Also if it earns &nothing"_s);
    chkzero->setObjectName(u"chkzero"_s);
    QBoxLayout* what_if = control::row();
    for (QCheckBox* box : {chkfall, chkzero}) {
        what_if->addWidget(box);
        connect(box, &QCheckBox::toggled, this, [this] { compute(); });
    }
    what_if->addStretch(1);
    prices_ = new PriceLine(this);
    what_if->addWidget(prices_->list());
    content()->addLayout(what_if);
    content()->addWidget(prices_->sentence());
    grphcompare =
        new LineChart("grphcompare", u"Balance after the last payment of each year at each rate"_s);
    content()->addWidget(grphcompare, 1);
    content()->addStretch(0);  // where there are no lines to draw
    content()->addWidget(control::paragraph(QString::fromUtf16(estimate_note), "lblestimate"));
    build_buttons();
}

void frmcompare::build_table() {
    grdcompare = new Grid("grdcompare", u"The chosen rates side by side"_s);
    grdcompare->setAccessibleDescription(u"Enter shows the schedule at this rate"_s);
    rows_ = new TextTableModel(columns(), this);
    grdcompare->setModel(rows_);
    grdcompare->keep_in_sight({.column = 9, .after = 2});  // what is paid in all
    content()->addWidget(grdcompare);
    set_first_field(grdcompare);
    connect(grdcompare, &QTableView::activated, this, [this] { show_schedule(); });
    connect(grdcompare->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { follow_row(); });
}

void frmcompare::build_buttons() {
    auto* buttons = new PrintButtons(navigation());
    buttons->offer_csv();
    connect(buttons, &PrintButtons::chosen, this, [this, buttons](Destination destination) {
        buttons->say(print(module, this, destination, print_job()));
        grdcompare->setFocus();
    });
    connect(buttons, &PrintButtons::csv_chosen, this, [this, buttons] {
        buttons->say(save_csv(module, this, file_name(), csv(*rows_)));
        grdcompare->setFocus();
    });
}

void frmcompare::load() {
    lblsub->setText(to_qt(title_with_frequency(scenario)) + u", "_s +
                    to_qt(money_text(scenario.present_value)) + u" today"_s);
    compute();
}

void frmcompare::compute() {
    const Hourglass hourglass;
    if (const QModelIndex current = grdcompare->currentIndex(); current.isValid()) {
        module.visit.compared_rate = chosen_rate(current.row());  // stays chosen
    }
    comparison_ = compare(scenario, module.visit.projected_on,
                          {.falls = chkfall->isChecked(), .earns_nothing = chkzero->isChecked()});
    lblspread->setText(to_qt(spread_text(scenario, comparison_)));
    show_lines();
    show_rates();
}

int frmcompare::chosen_rate(int row) const {
    const auto first = comparison_.rates.begin();
    const auto chosen = [](const ComparedRate& rate) { return !rate.added && !rate.fallen; };
    return comparison_.rates[static_cast<std::size_t>(row)].added
               ? -1
               : static_cast<int>(std::count_if(first, first + row + 1, chosen)) - 1;
}

void frmcompare::show_rates() {
    std::vector<std::vector<TextTableModel::Cell>> rows;
    for (const ComparedRate& rate : comparison_.rates) {
        auto cells = text_cells(rate_texts(rate), rate_texts(rate, true));
        spare_cents(cells, {1, 7, 8, 9});  // what is not an amount of one payment
        cells[0].supposed = rate.added || rate.fallen;
        rows.push_back(std::move(cells));
    }
    rows_->show_rows(std::move(rows));
    for (int row = 0; row < rows_->rowCount(); ++row) {
        if (!is_complete(comparison_.rates[static_cast<std::size_t>(row)])) {
            grdcompare->join_cells(row, 1);
        }
    }
    grdcompare->show_all_rows();
    const int wished = std::exchange(module.visit.compared_rate, -1);
    for (int row = 0; row < rows_->rowCount(); ++row) {
        if (chosen_rate(row) == std::max(0, wished)) {
            grdcompare->setCurrentIndex(rows_->index(row, 0));
            break;
        }
    }
}

void frmcompare::show_lines() {
    lines_ = {};
    double highest = 0.0;
    std::size_t years = 0;
    for (const ComparedRate& rate : comparison_.rates) {
        if (has_line(rate)) {
            lines_.sets.push_back({to_qt(rate_text(rate.rate, lump_sum)), rate.balances});
            highest = std::max(highest, std::ranges::max(rate.balances));
            years = std::max(years, rate.balances.size());
        }
    }
    for (std::size_t year = 0; year < years; ++year) {
        lines_.labels << QString::number(comparison_.first_year + static_cast<int>(year));
    }
    lines_.upper = y_max(highest);
    if (lines_.sets.size() == 1) {
        lines_.whole = grphcompare->accessibleName() + u": "_s + lines_.sets.front().name;
    }
    grphcompare->setVisible(years > 1);
    grphcompare->show_lines(lines_);
    constexpr int lines_of_text = 13;  // below them it could not be read; it takes what room there is
    grphcompare->setMinimumHeight(lines_of_text * fontMetrics().height());
}

// The line of the chosen row stands out, if it has one.
void frmcompare::follow_row() {
    const QModelIndex current = grdcompare->currentIndex();
    if (!current.isValid()) {
        return;
    }
    const auto row = comparison_.rates.begin() + current.row();
    const auto lines_above = std::count_if(comparison_.rates.begin(), row, has_line);
    grphcompare->choose(has_line(*row) ? static_cast<int>(lines_above) : LineChart::no_line);
    prices_->show_result(
        row->fallen ? after_fall(scenario) : scenario,
        project(row->fallen ? after_fall(scenario) : scenario, row->rate, comparison_.today));
}

void frmcompare::show_schedule() {
    module.visit.compared_rate = chosen_rate(grdcompare->currentIndex().row());
    go_previous();
}

QString frmcompare::file_name() const {
    return proposed_name(scenario.name, to_qt(method_title(scenario.method)) + u" Comparison"_s, {},
                         module.today());
}

PrintJob frmcompare::print_job() const {
    const Hourglass hourglass;
    ReportValues result = printed_comparison(scenario, comparison_);
    if (lines_.labels.size() > 1) {
        result.chart = [lines = lines_](QPainter& painter, const QRectF& area) {
            LineChart chart("", {});
            chart.show_lines(lines);
            chart.paint_on_paper(painter, area);
        };
    }
    PrintJob job{.title = to_qt(title_with_frequency(scenario)) + u" - "_s + lbltitle->text(),
                 .file_name = file_name(),
                 .orientation = QPageLayout::Landscape};
    add_reports(job, module.program_file({}), module.database(), {"compare.rpt"}, result);
    return job;
}

}  // namespace kelvar
