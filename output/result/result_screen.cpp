#include "output/result/result_screen.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QStackedWidget>

#include "engine/headline.h"
#include "engine/result_texts.h"
#include "output/report/report_templates.h"
#include "output/result/printed_values.h"
#include "shell/saved_file.h"
#include "widgets/hourglass.h"
#include "widgets/summary_panel.h"
#include "widgets/table_text.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// The amounts stand out, and what belongs together stays on one line.
QString emphasised(const QString& sentence) {
    static const QRegularExpression amount(uR"((\$[\d,]+(\.\d+)?))"_s);
    QString html = sentence.toHtmlEscaped();
    static const QRegularExpression kept_together(u"(age|[A-Z][a-z]+,) (?=\\d)"_s);
    html.replace(kept_together, u"\\1&nbsp;"_s);
    return html.replace(amount, uR"(<span style="font-weight:600">\1</span>)"_s);
}

}  // namespace

ResultScreen::ResultScreen(Module1& module1, ScreenId id, const char* name)
    : Screen(module1, id, name, {.title = u"Distribution Schedule "_s, .next = false, .save = true}),
      today(module1.today()) {
    module.visit.projected_on = today;
    const int space = theme::large_text() ? theme::grid / 2 : theme::grid;  // leaves room for rows
    content()->setSpacing(space);
    content()->setContentsMargins(0, space, 0, space);
    lblsub = theme::label({}, theme::Role::section, "lblsub");
    lblsub->setWordWrap(true);
    QBoxLayout* top = control::row();
    top->addWidget(lblsub, 1);
    top->addWidget(rate_list(), 0, Qt::AlignLeft);
    content()->addLayout(top);
    lblheadline = theme::label({}, theme::Role::body, "lblheadline");
    lblheadline->setTextFormat(Qt::RichText);
    lblheadline->setWordWrap(true);
    lblheadline->setTextInteractionFlags(Qt::TextSelectableByMouse);
    content()->addWidget(lblheadline);
    build_values();
    if (!theme::large_text()) {
        content()->addWidget(summary_);
    }

    result_ = new QStackedWidget;
    lblcover = theme::label({}, theme::Role::subtitle, "lblcover");
    lblcover->setWordWrap(true);
    lblcover->setAlignment(Qt::AlignCenter);
    lblcover->setMargin(4 * theme::grid);
    result_->addWidget(lblcover);
    content()->addWidget(result_, 1);
    if (theme::large_text()) {
        content()->addWidget(summary_);
    }
    build_buttons();
}

void ResultScreen::build_values() {
    summary_ = new SummaryPanel;
    values_ = new QGridLayout(summary_);
    values_->setContentsMargins(2 * theme::grid, 6, 2 * theme::grid, 6);
    values_->setHorizontalSpacing(2 * theme::grid);
    values_->setVerticalSpacing(2);
    values_->setColumnMinimumWidth(2, 2 * theme::grid);
    values_->setColumnStretch(5, 1);  // spare room is at the right
}

void ResultScreen::build_buttons() {
    print_buttons = new PrintButtons(navigation());
    print_buttons->offer_csv();
    if (scenario.method != lump_sum) {
        print_buttons->offer_parts();
    }
    connect(print_buttons, &PrintButtons::chosen, this, [this](Destination destination) {
        print_buttons->say(print(module, this, destination, print_job()));
    });
    connect(print_buttons, &PrintButtons::csv_chosen, this, [this] {
        const Table table = shown_table();
        print_buttons->say(save_csv(module, this, file_name(table.title), csv(*table.rows)));
    });
}

void ResultScreen::add_menu_button() {
    QPushButton* cmdmenu = control::button(u"Ne&w Participant"_s, "cmdmenu");
    connect(cmdmenu, &QPushButton::clicked, this, [this] { module.screens.new_participant(); });
    if (theme::large_text()) {
        content()->addWidget(cmdmenu, 0, Qt::AlignRight);
    } else {
        navigation()->add_as_next(cmdmenu);
    }
}

QString ResultScreen::file_name(const QString& title) const {
    return proposed_name(scenario.name, title, cmbrate->currentText(), module.today());
}

// The summary and what follows it, as one job: also without one of them.
PrintJob ResultScreen::print_job() const {
    const Hourglass hourglass;
    PrintJob job;
    try {
        store_again_if_changed();
        add_reports(job, module,
                    report_templates(scenario.method, scenario.length_option, print_buttons->parts()),
                    printed_values(scenario, shown_, module.database()));
    } catch (const std::exception& error) {  // of the database
        job.missing = error.what();
    }
    if (!job.reports.empty()) {
        job.title = job.reports.front()->metaInformation(QTextDocument::DocumentTitle);
        job.file_name = file_name(job.title);
    }
    return job;
}

void ResultScreen::store_result(std::function<void()> store) {
    store_ = std::move(store);
    store_();
}

void ResultScreen::store_again_if_changed() const {
    if (module.database().changed_by_others()) {
        store_();
    }
}

QFrame* ResultScreen::rate_list() {
    auto* Frame1 = new QFrame;
    Frame1->setObjectName(u"Frame1"_s);
    rates_row_ = new QHBoxLayout(Frame1);
    rates_row_->setContentsMargins(0, 0, 0, 0);
    cmbrate = new QComboBox;
    cmbrate->setObjectName(u"cmbrate"_s);
    cmbrate->setAccessibleName(u"Annual Rate of Return"_s);
    cmbrate->setMinimumContentsLength(6);
    auto* caption = theme::label(u"Annual &Rate of Return"_s, theme::Role::body);
    caption->setBuddy(cmbrate);
    rates_row_->addWidget(caption);
    rates_row_->addWidget(cmbrate);
    return Frame1;
}

void ResultScreen::add_beside_rates(QPushButton* button) {
    rates_row_->addWidget(button);
    setTabOrder(cmbrate, button);
}

void ResultScreen::activate() {
    if (!computed_) {
        computed_ = true;
        get_value();
    }
}

void ResultScreen::go_previous() {
    module.screens.show(ScreenId::frmdrate);
    Screen::go_previous();
}

QLabel* ResultScreen::add_value(const QString& caption, const char* name, int row, int column) {
    auto* text = theme::label(caption, theme::Role::body);
    constexpr qsizetype one_line = 40;  // letters
    text->setWordWrap(theme::large_text() || caption.size() > one_line);
    auto* value = theme::label({}, theme::Role::body, name);
    value->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    text->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    summary_->add(text, value);
    if (theme::large_text()) {
        row = values_->count() / 2;
        column = 0;
    }
    values_->addWidget(text, row, 3 * column);
    values_->addWidget(value, row, 3 * column + 1);
    return value;
}

QLabel* ResultScreen::add_total(int row, int column) {
    QLabel* total = add_value(u"Your Total Pay-Back: "_s, "lbltotalvalue", row, column);
    theme::set_role(total, theme::Role::value);
    return total;
}

void ResultScreen::add_note(const QString& text, const char* name) {
    QLabel* note = theme::label(text, theme::Role::note, name);
    note->setWordWrap(true);
    values_->addWidget(note, values_->rowCount(), 0, 1, -1);
}

void ResultScreen::show_money(QLabel* label, double dollars) {
    label->setText(to_qt(money_text(dollars)));
}

void ResultScreen::add_rate() {
    for (const double rate : scenario.selected_rates) {
        cmbrate->addItem(to_qt(rate_text(rate, scenario.method)));
    }
    // At first the first one; a participant's file says which was looked at.
    cmbrate->setCurrentIndex(std::max(0, std::exchange(module.visit.compared_rate, -1)));
    // Picking the entry that is already chosen counts as well.
    connect(cmbrate, &QComboBox::activated, this, [this] { get_value(); });
    set_first_field(cmbrate);
}

double ResultScreen::chosen_rate() const {
    return parse_rate(to_utf8(cmbrate->currentText()));
}

void ResultScreen::show_headline(const Projection& projection) {
    shown_ = projection;
    const QString said = to_qt(headline(scenario, projection));
    lblheadline->setAccessibleName(said);
    lblheadline->setText(emphasised(said));
}

void ResultScreen::set_result(QWidget* result) {
    result_->addWidget(result);
    result_->setCurrentWidget(result);
}

void ResultScreen::get_cover(const QString& reason) {
    print_buttons->say({});
    lblheadline->clear();
    lblcover->setText(reason);
    result_->setCurrentWidget(lblcover);
}

void ResultScreen::uncover() {
    print_buttons->say({});
    result_->setCurrentIndex(result_->count() - 1);
}

void ResultScreen::show_note() {
    if (!note_shown_ && module.screens.offers(ScreenId::frmclaim)) {
        note_shown_ = true;
        module.screens.show(ScreenId::frmclaim);
    }
}

}  // namespace kelvar
