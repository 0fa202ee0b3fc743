#include "output/result/schedule_view.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "core/numbers.h"
#include "engine/explanation.h"
#include "engine/federal_minimum.h"
#include "engine/schedule.h"
#include "engine/years.h"
#include "output/report/page_painter.h"
#include "output/result/cells.h"
#include "widgets/controls.h"
#include "widgets/focus_marker.h"
#include "widgets/grid.h"
#include "widgets/record_table_model.h"
#include "widgets/theme.h"
#include "widgets/view_choice.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr int amount_column = 3;
constexpr int year_column = 6;

std::vector<RecordTableModel::Column> payment_columns(const Recordset& schedule) {
    return {field_column(schedule, "number", u"Payment  #"_s),
            field_column(schedule, "remaining", u"Payments Remaining"_s),
            money_column(schedule, "startbalance", u"Beginning Balance"_s, pattern::dollars),
            money_column(schedule, "payment", u"Amount"_s, pattern::payment),
            money_column(schedule, "remainbalance", u"Remaining Balance"_s, pattern::dollars),
            field_column(schedule, "Month", u"Month"_s, Qt::AlignLeft),
            field_column(schedule, "Year", u"Year"_s)};
}

std::vector<TextTableModel::Column> year_columns() {
    return {{u"Year"_s, Qt::AlignLeft},
            {u"Age at Last Payment"_s},
            {u"Payments"_s},
            {u"Beginning Balance"_s},
            {u"Earnings"_s},
            {u"Fees"_s},
            {u"Paid"_s},
            {u"Ending Balance"_s}};
}

QLabel* panel_text(const char* name) {
    QLabel* label = theme::label({}, theme::Role::body, name);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

// With the signs of print; read aloud, in words.
void say(QLabel* label, const QString& text) {
    label->setText(QString(text).replace(u" divided by "_s, u" ÷ "_s).replace(u" - "_s, u" − "_s));
    label->setAccessibleName(QString(text)
                                 .replace(u" - "_s, u" minus "_s)
                                 .replace(u" + "_s, u" plus "_s)
                                 .replace(u" = "_s, u" equals "_s));
}

// Chooses the row that was chosen before the rows were replaced, at first the first one.
void keep_row(Grid& grid, int row) {
    const int last = grid.model()->rowCount() - 1;
    grid.setCurrentIndex(grid.model()->index(std::clamp(row, 0, std::max(0, last)), 0));
    grid.scrollTo(grid.currentIndex(), QAbstractItemView::PositionAtTop);
}

}  // namespace

ScheduleView::ScheduleView(const Scenario& of_program)
    : scenario(of_program), grids_(new QStackedWidget) {
    choice_ = new ViewChoice("optview", u"Pa&yments"_s, u"Y&ears"_s);
    connect(choice_, &ViewChoice::changed, this, [this] { choose_view(); });
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(theme::grid / 2);
    grddist = new Grid("grddist", u"Schedule of payments"_s);
    grdyear = new Grid("grdyear", u"Years of the schedule"_s);
    for (Grid* grid : {grddist, grdyear}) {
        grids_->addWidget(grid);
        grid->show_at_least(6);
    }
    auto* lblestimate = control::paragraph(QString::fromUtf16(estimate_note), "lblestimate");
    auto* above = new QHBoxLayout;
    above->addWidget(choice_);
    above->addStretch(1);
    column->addLayout(above);
    auto* table = new QVBoxLayout;
    table->setSpacing(0);
    table->addWidget(grids_, 1);
    table->addWidget(build_panel());
    column->addLayout(table, 1);
    lblminimum = theme::label({}, theme::Role::note, "lblminimum");
    lblminimum->setWordWrap(true);
    lblminimum->hide();
    column->addWidget(lblminimum);
    if (theme::large_text()) {
        column->addWidget(lblestimate);
    } else {
        lblestimate->setWordWrap(false);
        above->addWidget(lblestimate);
    }
    for (Grid* grid : {grddist, grdyear}) {
        keep_in_view_with(grid, panel_);
    }
    for (QWidget* option : choice_->findChildren<QRadioButton*>()) {
        keep_in_view_with(option, this);
    }
}

QWidget* ScheduleView::build_panel() {
    panel_ = new QStackedWidget;
    panel_->setObjectName(u"strip"_s);
    panel_->setContentsMargins(3 * theme::grid / 2, theme::grid / 2, 3 * theme::grid / 2,
                               theme::grid / 2);
    lblexplain = panel_text("lblexplain");
    lblledger = panel_text("lblledger");
    longest_ = panel_text("longest");
    for (QLabel* text : {lblexplain, lblledger, longest_}) {
        panel_->addWidget(text);
    }
    return panel_;
}

void ScheduleView::load(Database& database) {
    database_ = &database;
    Recordset& schedule = database.schedule();
    rows_ = new RecordTableModel(schedule, payment_columns(schedule), this);
    rows_->set_marks(amount_column, [this](const Recordset&, std::size_t row) {
        const bool known = row < projection_.schedule.rows.size();
        return RecordTableModel::RowMarks{known && begins_year(projection_.schedule, row),
                                          known && amount_changes(projection_.schedule, row)};
    });
    grddist->setModel(rows_);
    grddist->set_search_column(year_column);
    connect(grddist->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { explain(); });
    years_ = new TextTableModel(year_columns(), this);
    grdyear->setModel(years_);
}

void ScheduleView::show_projection(const Projection& projection) {
    const int payment = grddist->currentIndex().row();
    projection_ = projection;
    rows_->show_rows(0, projection.schedule.rows.size());
    keep_row(*grddist, payment);
    QString longest;
    for (int row = 0; row < rows_->rowCount(); ++row) {
        longest = std::max(longest, explained(row), [](const QString& one, const QString& other) {
            return one.size() < other.size();
        });
    }
    longest_->setText(longest);
    if (shows_years()) {
        show_years();
    }
}

bool ScheduleView::shows_years() const {
    return choice_->is_second();
}

const QAbstractItemModel* ScheduleView::shown_rows() const {
    return static_cast<QTableView*>(grids_->currentWidget())->model();
}

void ScheduleView::choose_view() {
    lblminimum->hide();
    if (shows_years()) {
        show_years();
    }
    grids_->setCurrentIndex(shows_years() ? 1 : 0);
    panel_->setCurrentIndex(shows_years() ? 1 : 0);
}

QString ScheduleView::explained(int row) const {
    const bool known = row >= 0 && projection_.outcome == Outcome::complete;
    return known ? to_qt(explanation(scenario, projection_, static_cast<std::size_t>(row))) : QString();
}

void ScheduleView::explain() {
    const QString text = explained(grddist->currentIndex().row());
    say(lblexplain, text);
    grddist->setAccessibleDescription(lblexplain->accessibleName());
}

void ScheduleView::show_years() {
    std::vector<std::vector<TextTableModel::Cell>> rows;
    std::vector<YearRow> years = years_of(projection_, scenario.birth_date, scenario.fee_amount);
    mark_below_federal_minimum(years, scenario, projection_, *database_);
    for (const YearRow& year : years) {
        rows.push_back(text_cells(year_texts(year), year_texts(year, true)));
        spare_cents(rows.back(), {3, 4, 5, 6, 7});
    }
    const int chosen = grdyear->currentIndex().row();
    years_->show_rows(std::move(rows));
    keep_row(*grdyear, chosen);
    say(lblledger, to_qt(ledger_text(projection_)));
    lblminimum->setText(to_qt(federal_minimum_text(years)));
    lblminimum->setVisible(!lblminimum->text().isEmpty());
}

}  // namespace kelvar
