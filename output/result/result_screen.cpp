#include "output/result/result_screen.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QStackedWidget>
#include <algorithm>

#include "engine/choices.h"
#include "engine/headline.h"
#include "engine/result_texts.h"
#include "input/rules/entries.h"
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

// Of a value: on one line as long as there is room, the longest on two.
class Caption : public QLabel {
public:
    explicit Caption(const QString& text) : QLabel(text) { setWordWrap(true); }
    QSize sizeHint() const override {
        constexpr qsizetype one_line = 40;  // letters
        const bool wraps = theme::large_text() || text().size() > one_line;
        return wraps ? QLabel::sizeHint() : fontMetrics().size(0, text());
    }
};

// Other rates that were ticked, and what belongs to other lengths, do not count.
bool same_result(Entries one, Entries other) {
    for (Entries* entries : {&one, &other}) {
        const auto length = entries->length_option.value_or(no_length);
        entries->selected_rates.reset();
        entries->all_rates.reset();
        if (length != by_number_of_payments) {
            entries->number_of_payments.reset();
        }
        if (length != by_dollar_amount) {
            entries->fixed_amount.reset();
        }
        if (!entries->joint_life.value_or(false)) {
            entries->spouse_birth_date.reset();
        }
    }
    return one == other;
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
    build_choices();
}

void ResultScreen::build_values() {
    summary_ = new SummaryPanel;
    values_ = new QGridLayout(summary_);
    values_->setContentsMargins(2 * theme::grid, 6, 2 * theme::grid, 6);
    values_->setHorizontalSpacing(2 * theme::grid);
    values_->setVerticalSpacing(2);
    values_->setColumnMinimumWidth(2, theme::grid);
    values_->setColumnStretch(5, 1);  // spare room is at the right
}

void ResultScreen::build_buttons() {
    print_buttons = new PrintButtons(navigation());
    print_buttons->offer_csv();
    if (scenario.method != lump_sum) {
        print_buttons->offer_parts(module.visit.printed_parts);
    }
    connect(print_buttons, &PrintButtons::chosen, this, [this](Destination destination) {
        print_buttons->say(print(module, this, destination, print_job()));
    });
    connect(print_buttons, &PrintButtons::csv_chosen, this, [this] {
        const Table table = shown_table();
        print_buttons->say(save_csv(module, this, file_name(table.title), csv(*table.rows)));
    });
}

void ResultScreen::build_choices() {
    cmdkeep_ = control::button(u"&Keep"_s, "cmdkeep");
    cmdkeep_->setToolTip(u"Keeps this result, to be set beside others"_s);
    cmdchoices_ = control::button({}, "cmdchoices");
    connect(cmdkeep_, &QPushButton::clicked, this, [this] { keep(); });
    connect(cmdchoices_, &QPushButton::clicked, this,
            [this] { module.screens.show(ScreenId::frmchoices); });
    name_choices();
}

void ResultScreen::name_choices() {
    const std::size_t count = module.visit.choices.size();
    control::set_caption(cmdchoices_, u"Ch&oices (%1)"_s.arg(count));
    cmdchoices_->setEnabled(count > 0 && module.screens.offers(ScreenId::frmchoices));
}

void ResultScreen::keep() {
    std::vector<Entries>& choices = module.visit.choices;
    Entries result = module.screens.entered();
    result.choices.clear();
    result.name.reset();
    const auto same =
        std::ranges::find_if(choices, [&](const Entries& kept) { return same_result(kept, result); });
    if (same == choices.end() && choices.size() == most_choices) {
        QStringList names;
        for (const Entries& choice : choices) {
            const Scenario kept = kelvar::enter(choice, module.database(), today, true).scenario;
            names << u"%1: %2 at %3"_s.arg(names.size() + 1)
                         .arg(to_qt(choice_name(kept)),
                              to_qt(rate_text(choice.shown_rate.value_or(0.0), lump_sum)));
        }
        module.report(
            "Six results are kept. Press Choices and let one of them go with Delete first:\n\n" +
            to_utf8(names.join(u'\n')));
        return;
    }
    const auto number = same - choices.begin() + 1;
    const bool was_kept = same != choices.end();
    if (!was_kept) {
        choices.push_back(result);
    }
    print_buttons->say((was_kept ? u"Kept already as %1: %2 at %3."_s : u"Kept as %1: %2 at %3."_s)
                           .arg(number)
                           .arg(to_qt(choice_name(scenario)), cmbrate->currentText().trimmed()));
    name_choices();
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
        add_reports(
            job, module.program_file({}), module.database(),
            report_templates(scenario.method, scenario.length_option, module.visit.printed_parts),
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

// Where type is large, what is not looked for at once stands below the result.
void ResultScreen::add_result_buttons(QPushButton* first) {
    QWidget* before = cmbrate;
    if (first != nullptr) {
        rates_row_->addWidget(first);
        setTabOrder(cmbrate, first);
        before = first;
    }
    if (theme::large_text()) {
        auto* row = new QHBoxLayout;
        row->addWidget(cmdkeep_);
        row->addWidget(cmdchoices_);
        row->addStretch(1);
        content()->addLayout(row);
        return;
    }
    rates_row_->addWidget(cmdkeep_);
    setTabOrder(before, cmdkeep_);
    navigation()->add_left(cmdchoices_);
}

void ResultScreen::activate() {
    name_choices();
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
    auto* text = new Caption(caption);
    theme::set_role(text, theme::Role::body);
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
    cmdkeep_->setEnabled(false);
    lblheadline->clear();
    lblcover->setText(reason);
    result_->setCurrentWidget(lblcover);
}

void ResultScreen::uncover() {
    print_buttons->say({});
    cmdkeep_->setEnabled(true);
    result_->setCurrentIndex(result_->count() - 1);
}

void ResultScreen::show_note() {
    if (!note_shown_ && module.screens.offers(ScreenId::frmclaim)) {
        note_shown_ = true;
        module.screens.show(ScreenId::frmclaim);
    }
}

}  // namespace kelvar
