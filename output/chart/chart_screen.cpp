#include "output/chart/chart_screen.h"

#include <QLabel>
#include <algorithm>

#include "core/ages.h"
#include "core/numbers.h"
#include "core/plan.h"
#include "engine/chart_rules.h"
#include "output/report/page_painter.h"
#include "output/report/report.h"
#include "shell/saved_file.h"
#include "widgets/summary_panel.h"
#include "widgets/text.h"
#include "widgets/theme.h"
#include "widgets/view_choice.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// Month and year of the current row.
QString month_and_year(const Recordset& schedule) {
    return to_qt(schedule.text("Month") + ", " + schedule.text("Year"));
}

}  // namespace

ChartScreen::ChartScreen(Module1& module1, ScreenId id, const char* name)
    : Screen(module1, id, name, {.title = u"Distribution Schedule "_s, .next = false, .save = true}) {
    summary_ = new SummaryPanel;
    auto* columns = control::row();
    summary_->setLayout(columns);
    columns->setContentsMargins(2 * theme::grid, theme::grid, 2 * theme::grid, theme::grid);
    lines_ = new QVBoxLayout;
    lines_->setSpacing(theme::grid / 2);
    values_ = new QGridLayout;
    values_->setHorizontalSpacing(theme::grid);
    values_->setVerticalSpacing(theme::grid / 2);
    columns->addLayout(lines_, 1);
    auto* right = new QVBoxLayout;
    right->addLayout(values_);
    right->addStretch(1);
    columns->addLayout(right);
    content()->setSpacing(theme::grid);
    content()->addWidget(summary_);

    view_ = new ViewChoice("optchart", u"Pa&yments"_s, u"&Balance"_s);
    connect(view_, &ViewChoice::changed, this, [this] { period_chart(); });
    content()->addWidget(view_, 0, Qt::AlignLeft);
    grphsche = new BarChart("grphsche", {});
    content()->addWidget(grphsche, 1);
    set_first_field(grphsche);
    content()->addWidget(control::paragraph(QString::fromUtf16(estimate_note), "lblestimate"));

    auto* buttons = new PrintButtons(navigation());
    connect(buttons, &PrintButtons::chosen, this, [this, buttons](Destination destination) {
        buttons->say(print(module, this, destination, print_job()));
    });
}

void ChartScreen::load() {
    get_headings();
    get_gdata();
    period_chart();
}

void ChartScreen::get_headings() {
    Recordset& distrib = module.database().distrib();
    Recordset& schedule = module.database().schedule();
    distrib.MoveFirst();
    method_ = to_qt(distrib.text("dtitle")).section(u" - "_s, 0, 0);
    rate_ = to_qt(distrib.text("rate"));
    const bool over_life = static_cast<int>(distrib.number("paylength")) == by_life_expectancy;
    lbltitle->setText(to_qt(distrib.text("dtitle")) +
                      (over_life ? u" (Over Life Expectancy)"_s : QString()));
    schedule.MoveFirst();
    const QString start = month_and_year(schedule);
    schedule.MoveLast();
    const QString end = month_and_year(schedule);
    add_line(to_qt(plan::frequency(scenario.frequency).heading) + u" Payments"_s, "lblfrequency");
    add_line(u"("_s + start + u" - "_s + end + u")"_s, "lblperiod");
    add_line(u"Number of Payments: "_s + to_qt(distrib.text("payments")), "lblnumber");
    add_line(u"BASED ON "_s + to_qt(distrib.text("rate")) + u" ANNUAL RETURN "_s, "lblrate");
    add_value(u"Current Account Balance:"_s,
              to_qt(format_number(distrib.number("curvalue"), pattern::dollars)), "lblcurvalue");
    add_values(distrib);
    total_paid_ = to_qt(distrib.text("totalvalue"));
    add_value(u"Your Total Pay-Back:"_s, total_paid_, "lbltotalvalue");
}

void ChartScreen::add_line(const QString& text, const char* name) {
    const bool first = lines_->count() == 0;
    lines_->addWidget(theme::label(text, first ? theme::Role::section : theme::Role::body, name));
    printed_lines_ += text.trimmed().toHtmlEscaped() + u"<br>"_s;
}

void ChartScreen::add_value(const QString& caption, const QString& value, const char* name) {
    const int row = values_->rowCount();
    auto* label = theme::label(value, theme::Role::value, name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* words = theme::label(caption, theme::Role::body);
    summary_->add(words, label);
    values_->addWidget(words, row, 0);
    values_->addWidget(label, row, 1);
    printed_values_ += u"<tr><td>"_s + caption.toHtmlEscaped() + u"</td><td align=\"right\"><b>"_s +
                       value.toHtmlEscaped() + u"</b></td></tr>"_s;
}

void ChartScreen::get_gdata() {
    const YearlyTotals totals = yearly_totals(module.database().schedule());
    payments_.sets = {{.name = u"Total paid"_s, .values = {}}};
    payments_.value_title = u"Paid in each year"_s;
    payments_.whole = u"All payments: Total paid "_s + total_paid_;
    add_points(payments_);
    add_years(payments_, totals, totals.amounts);
    balances_.sets = {{.name = u"Balance"_s, .values = {}}};
    balances_.value_title = u"Balance after the last payment of each year"_s;
    add_years(balances_, totals, totals.balances);
}

// Below each year stands the participant's age at its last payment.
void ChartScreen::add_years(BarData& bars, const YearlyTotals& totals,
                            const std::vector<double>& values) const {
    bars.notes.resize(bars.labels.size());
    bars.notes_title = u"Age"_s;
    for (std::size_t place = 0; place < values.size(); ++place) {
        const int year = totals.first_year + static_cast<int>(place);
        const int age = age_in_month(scenario.birth_date, totals.last_months[place], year);
        bars.labels << QString::number(year);
        bars.notes << QString::number(age);
        bars.sets.front().values.push_back(values[place]);
    }
    bars.upper = y_max(std::ranges::max(bars.sets.front().values));
}

void ChartScreen::period_chart() {
    const bool balance = view_->is_second();
    grphsche->setAccessibleName(balance ? u"Balance by calendar year"_s
                                        : u"Payments by calendar year"_s);
    grphsche->show_bars(balance ? balances_ : payments_);
    const int lines = 13;  // below them it could not be read; it takes what room there is
    grphsche->setMinimumHeight(lines * fontMetrics().height());
}

PrintJob ChartScreen::print_job() const {
    const QString title = lbltitle->text();
    const QString headings =
        u"<h1>"_s + title.toHtmlEscaped() + u"</h1><table width=\"100%\"><tr><td>"_s + printed_lines_ +
        u"</td><td align=\"right\"><table>"_s + printed_values_ + u"</table></td></tr></table><p>"_s +
        (scenario.name.empty() ? QString() : to_qt(scenario.name).toHtmlEscaped() + u", "_s) +
        u"figures of "_s + to_qt(date_text(module.today())) + u"</p>"_s;
    const bool balance = view_->is_second();
    const auto paint = [bars = balance ? balances_ : payments_](QPainter& painter, const QRectF& area) {
        BarChart chart("", {});
        chart.show_bars(bars);
        chart.paint_on_paper(painter, area);
    };
    return {.title = title + u" - Chart"_s,  // the list of payments has the same title
            .file_name =
                proposed_name(scenario.name, method_ + (balance ? u" Balance Chart"_s : u" Chart"_s),
                              rate_, module.today()),
            .orientation = QPageLayout::Landscape,
            .reports = {chart_page(title, headings, paint)}};
}

}  // namespace kelvar
