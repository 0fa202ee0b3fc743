#include "input/partial_amount_box.h"

#include <QLabel>
#include <QLineEdit>

#include "core/entries.h"
#include "core/numbers.h"
#include "input/limit_lines.h"
#include "input/rules/limits.h"
#include "input/rules/partial_amount.h"
#include "widgets/controls.h"
#include "widgets/entry_boxes.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

PartialAmountBox::PartialAmountBox(Module1& module1) : module(module1), scenario(module1.scenario) {
    build();
    for (int percentage = 1; percentage < 100; ++percentage) {
        cmbPercent->addItem(QString::number(percentage));
    }
    cmbPercent->setCurrentIndex(-1);
    connect(cmbPercent, &EntryList::picked, this, [this] { emit percentage_chosen(true); });
    connect(cmbPercent, &EntryList::stepped, this, [this] { emit percentage_chosen(false); });
    connect(cmbPercent, &EntryList::entered, this, [this] {
        if (take_percentage()) {
            emit completed();
        }
    });
    connect(cmbPercent->lineEdit(), &QLineEdit::textEdited, this,
            [this] { percentage_edited_ = true; });
}

void PartialAmountBox::build() {
    auto* Label2 = theme::label(u"Partial Amount Certain of:  $"_s, theme::Role::body, "Label2");
    txtpartial = control::money_box("txtpartial", u"Partial amount certain in dollars"_s);
    Label2->setBuddy(txtpartial);
    auto* Label3 = theme::label(u"OR Percentage of Balance"_s, theme::Role::body, "Label3");
    cmbPercent = new EntryList("cmbPercent", u"Partial amount as a percentage of the balance"_s);
    cmbPercent->setMinimumContentsLength(6);
    Label3->setBuddy(cmbPercent);
    QBoxLayout* dollars = control::row();
    dollars->addWidget(Label2);
    dollars->addWidget(txtpartial, 0, Qt::AlignLeft);
    dollars->addStretch(1);
    auto* percent = new QHBoxLayout;
    percent->addWidget(Label3);
    percent->addWidget(cmbPercent);
    percent->addStretch(1);
    QBoxLayout* row = control::row();
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(3 * theme::grid / 4);
    row->addLayout(dollars);
    row->addLayout(percent, 1);
    lblleastpartial = limit_line("lblleastpartial");
    lblleastpartial->hide();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(below_box);
    column->addLayout(row);
    column->addWidget(lblleastpartial);
}

QWidget* PartialAmountBox::dollars() const {
    return txtpartial;
}

QWidget* PartialAmountBox::percentage() const {
    return cmbPercent;
}

// What a screen reader or dictation puts into the box does not count as modified.
bool PartialAmountBox::dollars_edited() const {
    return txtpartial->isModified() || txtpartial->text() != shown_dollars_;
}

// A box that has the focus already, because a click or a key led there from the percentage, has it
// selected, so that nothing is appended to it.
void PartialAmountBox::show_dollars(double amount) {
    typed_ = amount;
    shown_dollars_ = to_qt(format_number(amount, pattern::amount));
    txtpartial->setText(shown_dollars_);
    if (txtpartial->hasFocus()) {
        txtpartial->selectAll();
    }
}

void PartialAmountBox::follow_balance() {
    if (scenario.present_value != shown_present_value_ && scenario.partial_amount != 0.0) {
        show_percentage();
    }
}

void PartialAmountBox::show_least() {
    const auto least = least_partial_amount(scenario, module.database(), module.today());
    const QString limit = least ? u"At least %1, this program's minimum for that year"_s.arg(
                                      to_qt(format_number(*least, pattern::dollars)))
                                : QString();
    show_limit(lblleastpartial, limit, {txtpartial, cmbPercent});
    lblleastpartial->setVisible(least.has_value());
}

void PartialAmountBox::least_stands_out() {
    stand_out(lblleastpartial, txtpartial);
}

void PartialAmountBox::take_all() {
    if (percentage_edited_) {
        take_percentage();
    } else {
        take_dollars();
    }
}

bool PartialAmountBox::take_edited() {
    if (dollars_edited()) {
        take_dollars();
        return true;
    }
    return !percentage_edited_ || take_percentage();
}

void PartialAmountBox::take(const Entries& entries) {
    if (entries.partial_percent) {
        cmbPercent->setEditText(to_qt(number_text(*entries.partial_percent)));
        percentage_edited_ = true;
        take_percentage();
    } else if (entries.partial_amount) {
        show_dollars(*entries.partial_amount);
        take_dollars();
    }
}

void PartialAmountBox::put_into(Entries& entries) const {
    const bool dollars = dollars_edited();
    if (!dollars && (percentage_edited_ || by_percentage_)) {
        entries.partial_percent = read_percentage(to_utf8(cmbPercent->currentText()));
    } else {
        entries.partial_amount = dollars ? read_partial_amount(to_utf8(txtpartial->text())) : typed_;
    }
}

void PartialAmountBox::dollars_left(const Leaving& leaving) {
    if (!dollars_edited()) {
        return;
    }
    take_dollars();
    if (leaving.to_navigation || txtpartial->text().trimmed().isEmpty()) {
        return;  // an empty box is no amount yet; Next asks for it
    }
    if (const Check check = partial_msg(scenario)) {
        emit refused(*check);
    } else if (leaving.reason == Qt::TabFocusReason) {
        emit completed();
    }
}

void PartialAmountBox::clicked_beside() {
    if (percentage_edited_ && cmbPercent->hasFocus() && take_percentage()) {
        emit completed();
    }
}

bool PartialAmountBox::take_percentage() {
    const QString text = cmbPercent->currentText();
    if (!percentage_edited_ && (text.isEmpty() || to_utf8(text) == scenario.partial_percent)) {
        return true;
    }
    const auto percentage = read_percentage(to_utf8(text));
    if (!percentage) {
        cmbPercent->clearEditText();
        percentage_edited_ = false;
        emit refused(invalid_percentage);
        return false;
    }
    apply_percentage(*percentage);
    const Check check = partial_msg(scenario);
    if (check) {
        emit refused(*check);
    }
    return !check;
}

void PartialAmountBox::take_chosen_percentage(bool picked) {
    if (take_percentage() && picked && cmbPercent->hasFocus()) {
        emit completed();
    }
}

// A number that cannot be read counts as no amount; Next says so.
void PartialAmountBox::take_dollars() {
    typed_ = read_partial_amount(to_utf8(txtpartial->text()));
    scenario.partial_amount = typed_.value_or(0.0);
    if (!typed_) {
        scenario.partial_percent.clear();
        cmbPercent->clearEditText();
        return;
    }
    show_dollars(*typed_);
    show_percentage();
}

void PartialAmountBox::apply_percentage(double percentage) {
    percentage_edited_ = false;
    shown_present_value_ = scenario.present_value;
    scenario.partial_amount = amount_of_percentage(scenario.present_value, percentage);
    scenario.partial_percent = to_utf8(cmbPercent->currentText());
    by_percentage_ = true;
    show_dollars(scenario.partial_amount);
}

void PartialAmountBox::show_percentage() {
    percentage_edited_ = false;
    by_percentage_ = false;
    shown_present_value_ = scenario.present_value;
    scenario.partial_percent = percentage_of_amount(scenario.present_value, scenario.partial_amount);
    cmbPercent->setCurrentIndex(-1);
    cmbPercent->setEditText(to_qt(scenario.partial_percent));
}

}  // namespace kelvar
