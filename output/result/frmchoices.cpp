#include "output/result/frmchoices.h"

#include <QCheckBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QShortcut>
#include <algorithm>

#include "engine/chart_rules.h"
#include "input/rules/entries.h"
#include "output/report/page_painter.h"
#include "output/result/cells.h"
#include "output/result/price_line.h"
#include "output/result/printed_values.h"
#include "shell/saved_file.h"
#include "widgets/grid.h"
#include "widgets/hourglass.h"
#include "widgets/table_text.h"
#include "widgets/theme.h"
#include "widgets/view_choice.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

std::vector<TextTableModel::Column> columns() {
    return {{u"Choice"_s, Qt::AlignLeft},
            {u"Rate"_s},
            {u"Lump Sum"_s},
            {u"First"_s},
            {u"Last Full Year"_s},
            {u"No."_s},
            {u"Ends"_s},
            {u"Age"_s},
            {u"Earnings"_s},
            {u"Fees"_s},
            {u"Total Paid"_s}};
}

constexpr int reason_column = 2;
constexpr int total_column = 10;

}  // namespace

frmchoices::frmchoices(Module1& module1)
    : Screen(module1, ScreenId::frmchoices, "frmchoices",
             {.title = u"Comparison of Choices"_s, .next = false, .save = true}) {
    content()->setSpacing(theme::grid);
    content()->setContentsMargins(0, theme::grid, 0, theme::grid);
    build_table();
    lbleven = theme::label({}, theme::Role::body, "lbleven");
    lbleven->setWordWrap(true);
    content()->addWidget(lbleven);
    build_options();
    grphchoices = new LineChart("grphchoices", {});
    content()->addWidget(grphchoices, 1);
    content()->addStretch(0);  // where there are no lines to draw
    content()->addWidget(control::paragraph(QString::fromUtf16(estimate_note), "lblestimate"));
    build_buttons();
}

void frmchoices::build_table() {
    grdchoices = new Grid("grdchoices", u"The results kept side by side"_s);
    grdchoices->setAccessibleDescription(
        u"Enter goes back to this choice, Delete lets it go, Alt with Up and Down moves it"_s);
    rows_ = new TextTableModel(columns(), this);
    grdchoices->setModel(rows_);
    grdchoices->keep_in_sight({.column = total_column, .after = 3});  // what is paid in all
    content()->addWidget(grdchoices);
    content()->addWidget(control::paragraph(
        u"Enter goes back to a choice, Delete lets it go, Alt+Up and Alt+Down move it."_s, "lblkeys"));
    set_first_field(grdchoices);
    connect(grdchoices, &QTableView::activated, this, [this] { enter_chosen(); });
    connect(grdchoices->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { follow_row(); });
    const auto on_keys = [this](const QKeySequence& keys, auto action) {
        auto* shortcut = new QShortcut(keys, grdchoices);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    on_keys(Qt::Key_Delete, [this] { let_go(); });
    on_keys(Qt::ALT | Qt::Key_Up, [this] { move_by(-1); });
    on_keys(Qt::ALT | Qt::Key_Down, [this] { move_by(1); });
}

void frmchoices::build_options() {
    view_ = new ViewChoice("optchoices", u"Paid so &far"_s, u"&Balance"_s);
    connect(view_, &ViewChoice::changed, this, [this] {
        show_lines();
        follow_row();
    });
    prices_ = new PriceLine(this);
    chkfall = new QCheckBox(u"Also after a fall of &20%"_s);
    chkfall->setObjectName(u"chkfall"_s);
    connect(chkfall, &QCheckBox::toggled, this, [this] { show_rows(); });
    QBoxLayout* row = control::row();
    row->addWidget(view_, 0, Qt::AlignLeft);
    row->addStretch(1);
    row->addWidget(chkfall);
    row->addSpacing(theme::grid);
    row->addWidget(prices_->list());
    content()->addLayout(row);
    content()->addWidget(prices_->sentence());
}

void frmchoices::build_buttons() {
    buttons_ = new PrintButtons(navigation());
    buttons_->offer_csv();
    connect(buttons_, &PrintButtons::chosen, this, [this](Destination destination) {
        buttons_->say(print(module, this, destination, print_job()));
        grdchoices->setFocus();
    });
    connect(buttons_, &PrintButtons::csv_chosen, this, [this] {
        buttons_->say(save_csv(module, this, file_name(), csv(*rows_)));
        grdchoices->setFocus();
    });
}

void frmchoices::activate() {
    compute();
}

void frmchoices::compute() {
    const Hourglass hourglass;
    choices_ = {.today = module.today(), .results = {}};
    for (const Entries& entries : module.visit.choices) {
        choices_.results.push_back(computed(entries));
    }
    show_rows();
}

// The rules can refuse today what they accepted when it was kept.
ChosenResult frmchoices::computed(const Entries& entries) const {
    const Entered entered = kelvar::enter(entries, module.database(), choices_.today, true);
    const Choice choice{.scenario = entered.scenario, .rate = entries.shown_rate.value_or(0.0)};
    if (entered.refused) {
        return {.choice = choice,
                .name = choice_name(entered.scenario),
                .projection = {},
                .reason = std::string(entered.refused->text)};
    }
    return compare_choices({choice}, choices_.today).results.front();
}

void frmchoices::show_rows() {
    const int marked =
        std::clamp(chosen(), 0, std::max(0, static_cast<int>(choices_.results.size()) - 1));
    shown_.clear();
    for (const ChosenResult& result : choices_.results) {
        shown_.push_back(result);
        if (chkfall->isChecked() && result.reason.empty()) {
            shown_.push_back(
                compare_choices({after_fall(result.choice)}, choices_.today).results.front());
        }
    }
    std::vector<std::vector<TextTableModel::Cell>> rows;
    int number = 0;
    for (const ChosenResult& result : shown_) {
        auto cells = text_cells(choice_texts(result), choice_texts(result, true));
        const bool fallen = result.choice.fallen;
        cells[0] = {.text = fallen ? u"after a fall of 20%"_s
                                   : u"%1: %2"_s.arg(++number).arg(to_qt(result.name)),
                    .supposed = fallen};
        if (result.reason.empty()) {
            spare_cents(cells, {2, 3, 4, 8, 9, 10});
        }
        rows.push_back(std::move(cells));
    }
    show_lines();
    rows_->show_rows(std::move(rows));
    for (std::size_t row = 0; row < shown_.size(); ++row) {
        if (!shown_[row].reason.empty()) {
            grdchoices->join_cells(static_cast<int>(row), reason_column);
        }
    }
    grdchoices->show_all_rows();
    buttons_->setEnabled(!shown_.empty());
    mark(marked);
    follow_row();
}

void frmchoices::show_lines() {
    const bool balance = view_->is_second();
    const YearlyLines years = balance ? balances_left(choices_) : paid_so_far(choices_);
    lines_ = {};
    lines_.notes_title = u"Age"_s;
    double highest = 0.0;
    for (std::size_t i = 0; i < years.values.size(); ++i) {
        if (!years.values[i].empty()) {
            lines_.sets.push_back({u"Choice %1"_s.arg(i + 1), years.values[i]});
            highest = std::max(highest, std::ranges::max(years.values[i]));
        }
    }
    for (std::size_t year = 0; year < years.ages.size(); ++year) {
        lines_.labels << QString::number(years.first_year + static_cast<int>(year));
        lines_.notes << QString::number(years.ages[year]);
    }
    lines_.upper = y_max(highest);
    grphchoices->setAccessibleName(balance ? u"Balance at the end of each year"_s
                                           : u"Paid so far at the end of each year"_s);
    grphchoices->setVisible(lines_.labels.size() > 1);
    grphchoices->show_lines(lines_);
    constexpr int lines_of_text = 14;  // below them it could not be read; it takes what room there is
    grphchoices->setMinimumHeight(lines_of_text * fontMetrics().height());
}

int frmchoices::choice_of(int row) const {
    int choice = -1;
    for (; row >= 0; --row) {
        choice += rows_->index(row, 0).data(supposed_role).toBool() ? 0 : 1;
    }
    return choice;
}

int frmchoices::chosen() const {
    return choice_of(grdchoices->currentIndex().row());
}

void frmchoices::mark(int choice) {
    for (int row = 0; row < rows_->rowCount(); ++row) {
        if (choice_of(row) == choice) {
            grdchoices->setCurrentIndex(rows_->index(row, 0));
            return;
        }
    }
}

// The line of the chosen result stands out, if it has one, and it is compared with the others.
void frmchoices::follow_row() {
    const int row = chosen();
    if (row < 0 || row >= static_cast<int>(choices_.results.size())) {
        lbleven->setText(u"Nothing is kept. Keep on a result sets it aside, to be compared here."_s);
        return;
    }
    sentences_ = even_texts(choices_, static_cast<std::size_t>(row));
    QStringList sentences;
    for (const std::string& sentence : sentences_) {
        sentences << to_qt(sentence);
    }
    const bool alone = choices_.results.size() == 1;
    lbleven->setText(alone ? u"Keep another result to compare it with this one."_s
                           : sentences.join(u'\n'));
    lbleven->setVisible(!lbleven->text().isEmpty());
    const auto result = choices_.results.begin() + row;
    const auto has_line = [](const ChosenResult& one) { return one.reason.empty(); };
    const auto lines_above = std::count_if(choices_.results.begin(), result, has_line);
    grphchoices->choose(has_line(*result) ? static_cast<int>(lines_above) : LineChart::no_line);
    prices_->show_result(result->choice.scenario, result->projection);
}

void frmchoices::enter_chosen() {
    if (chosen() >= 0) {
        module.screens.enter(module.visit.choices[static_cast<std::size_t>(chosen())]);
    }
}

void frmchoices::let_go() {
    if (chosen() >= 0) {
        module.visit.choices.erase(module.visit.choices.begin() + chosen());
        compute();
    }
}

void frmchoices::move_by(int places) {
    std::vector<Entries>& kept = module.visit.choices;
    const int from = chosen();
    const int to = from + places;
    if (from < 0 || to < 0 || to >= static_cast<int>(kept.size())) {
        return;
    }
    std::swap(kept[static_cast<std::size_t>(from)], kept[static_cast<std::size_t>(to)]);
    compute();
    mark(to);
}

QString frmchoices::file_name() const {
    return proposed_name(scenario.name, lbltitle->text(), {}, module.today());
}

PrintJob frmchoices::print_job() const {
    const Hourglass hourglass;
    ReportValues result = printed_choices(scenario, choices_.today, shown_, sentences_);
    if (lines_.labels.size() > 1) {
        result.chart = [lines = lines_](QPainter& painter, const QRectF& area) {
            LineChart chart("", {});
            chart.show_lines(lines);
            chart.paint_on_paper(painter, area);
        };
    }
    PrintJob job{
        .title = lbltitle->text(), .file_name = file_name(), .orientation = QPageLayout::Landscape};
    add_reports(job, module.program_file({}), module.database(), {"choices.rpt"}, result);
    return job;
}

}  // namespace kelvar
