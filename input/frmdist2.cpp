#include "input/frmdist2.h"

#include <QButtonGroup>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "core/entries.h"
#include "input/commencement_lists.h"
#include "input/option_card.h"
#include "input/partial_amount_box.h"
#include "input/rules/next_checks.h"
#include "widgets/controls.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// Going to the option of a method gives up what was being typed for another one, or takes it later.
bool is_option(const QWidget* widget) {
    return qobject_cast<const QRadioButton*>(widget) != nullptr;
}

}  // namespace

frmdist2::frmdist2(Module1& module1)
    : Screen(module1, ScreenId::frmdist2, "frmdist2",
             {.title = u"Method of Distribution"_s, .step = u"Step 2 of 4"_s, .save = true}) {
    content()->setSpacing(theme::grid);
    content()->addWidget(theme::label(u"(Check only one)"_s, theme::Role::note, "Label1"));
    build_methods();
    lblquiet = control::paragraph({}, "lblquiet");
    content()->addWidget(lblquiet);
    content()->addWidget(theme::label(u"Note:"_s, theme::Role::section, "lblmethod_4"));
    content()->addWidget(control::paragraph(
        u"The Internal Revenue Code states that periodic payments must start no later than April 1st of the calendar year following the later of the calendar year on which you attain age 70 1/2 or the calendar year in which you retire from City service."_s,
        "lblmethod_5"));
    content()->addStretch(1);
}

void frmdist2::build_methods() {
    add_method(0, u"Full &Lump Sum Payment"_s);
    chkperiod = frequency_boxes("chkperiod", u"Periodic payments"_s);
    add_method(1, u"Periodic Payment&s:"_s)->add(chkperiod);
    build_partial();
    add_method(2, u"&Amount Certain with Periodic Payments"_s)->add(periodic_after_partial_);
    add_method(3, u"&Rollover funds out of the 457 and 401(K) Plan"_s);

    optmethod[0]->setEnabled(module.screens.offers(ScreenId::frmlump));
    optmethod[2]->setEnabled(module.screens.offers(ScreenId::frmparti));
    optmethod[3]->setEnabled(module.screens.offers(ScreenId::frmderrmsg));
    belongs_to(optmethod[1], chkperiod);
    belongs_to(optmethod[2], periodic_after_partial_);
    auto* one_of = new QButtonGroup(this);
    for (int index = 0; index < 4; ++index) {
        QRadioButton* option = optmethod[static_cast<std::size_t>(index)];
        one_of->addButton(option, index);
        connect(option, &QRadioButton::clicked, this, [this, index] { choose_method(index); });
    }
}

OptionCard* frmdist2::add_method(int index, const QString& text) {
    auto* option = new QRadioButton(text);
    option->setObjectName(u"optmethod_%1"_s.arg(index));
    optmethod[static_cast<std::size_t>(index)] = option;
    auto* card = new OptionCard(option);
    content()->addWidget(card);
    return card;
}

FrequencyBoxes* frmdist2::frequency_boxes(const char* name, const QString& of) {
    auto* boxes = new FrequencyBoxes(QString::fromLatin1(name), of);
    connect(boxes, &FrequencyBoxes::changed, this,
            [this, boxes] { scenario.frequency = boxes->frequency(); });
    return boxes;
}

void frmdist2::build_partial() {
    periodic_after_partial_ = new QWidget;
    auto* column = new QVBoxLayout(periodic_after_partial_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(theme::grid / 2);

    partial_amount_ = new PartialAmountBox(module);
    column->addWidget(partial_amount_);
    column->addWidget(
        theme::label(u"With remaining balance to be paid:"_s, theme::Role::body, "lblmethod_0"));
    chkpartial = frequency_boxes("chkpartial", u"Remaining balance"_s);
    column->addWidget(chkpartial);
    commencement_ = new CommencementLists(module);
    column->addWidget(commencement_);
    connect(commencement_, &CommencementLists::taken, partial_amount_, &PartialAmountBox::show_least);

    on_leave(partial_amount_->dollars(), [this](Leaving leaving) {
        if (!is_option(leaving.to)) {
            partial_amount_->dollars_left(leaving);
        }
    });
    on_leave(partial_amount_->percentage(), [this](Leaving leaving) {
        if (!leaving.to_navigation && !is_option(leaving.to)) {
            partial_amount_->percentage_left();
        }
    });
    connect(
        partial_amount_, &PartialAmountBox::percentage_chosen, this,
        [this](bool picked) {
            clear_error();
            partial_amount_->take_chosen_percentage(picked);
        },
        Qt::QueuedConnection);
    connect(partial_amount_, &PartialAmountBox::refused, this,
            [this](const Refusal& refusal) { refuse(refusal.text, refusal.field); });
    connect(partial_amount_, &PartialAmountBox::completed, this,
            [this] { focus_field("chkpartial_0"); });
}

void frmdist2::load() {
    dis_f2();
    dis_f3();
    wait_for_method(to_qt(method_to_choose.text));
    set_first_field(*std::ranges::find_if(optmethod, &QWidget::isEnabled));
}

void frmdist2::activate() {
    const auto begin = [this] { return std::pair(scenario.scenario_month, scenario.scenario_year); };
    const auto begin_before = begin();
    commencement_->get_year();
    commencement_->take();
    if (begin() != begin_before) {
        focus_field("cmbscnmonth");  // so that it is in sight, with the line that says why
    }
    if (scenario.method == partial_lump_sum) {
        partial_amount_->follow_balance();
    }
}

void frmdist2::choose_method(int index) {
    dis_f2();
    dis_f3();
    lblquiet->clear();
    scenario.frequency = 0;
    scenario.partial_amount = 0.0;
    scenario.partial_percent.clear();
    scenario.scenario_month = 0;
    scenario.scenario_year = 0;
    partial_amount_->show_least();
    switch (index) {
        case 0:
            scenario.method = lump_sum;
            scenario.number_of_payments = 0;
            scenario.fixed_amount = 0.0;
            enable_cmd();
            break;
        case 1:
            scenario.method = periodic_payments;
            enable_cmd();
            en_f2();
            scenario.frequency = chkperiod->frequency();
            break;
        case 2:
            scenario.method = partial_lump_sum;
            enable_cmd();
            en_f3();
            scenario.frequency = chkpartial->frequency();
            partial_amount_->take_all();
            commencement_->take();
            if (!error_shown()) {
                focus_field("txtpartial");
            }
            break;
        default:
            scenario.method = no_method;
            wait_for_method(
                u"A rollover is arranged with the plan, not calculated here. Choose another method to go on."_s);
            // Later, because an arrow key chooses the option first and then gives it the focus.
            QMetaObject::invokeMethod(
                this, [this] { show_rollover_note(); }, Qt::QueuedConnection);
            break;
    }
    if (window()->focusWidget() == nullptr) {  // it was on a box that is grey now
        optmethod[static_cast<std::size_t>(index)]->setFocus();
    }
}

// The user may have gone on meanwhile.
void frmdist2::show_rollover_note() {
    if (isVisible() && scenario.method == no_method) {
        module.screens.show(ScreenId::frmderrmsg);
    }
}

// Next is grey, and a quiet line says what to do first.
void frmdist2::wait_for_method(const QString& what_to_do) {
    disable_cmd();
    lblquiet->setText(what_to_do);
}

void frmdist2::set_next_enabled(bool enabled) {
    navigation()->Cmdnext->setEnabled(enabled);
    navigation()->picnext->setEnabled(enabled);
}

void frmdist2::next_screen() {
    clear_error();
    switch (scenario.method) {
        case lump_sum:
            module.screens.show(ScreenId::frmdrate);
            break;
        case periodic_payments:
            go_on_unless(check_periodic(scenario));
            break;
        case partial_lump_sum:
            next_after_partial();
            break;
        default:
            break;
    }
}

void frmdist2::next_after_partial() {
    if (!partial_amount_->take_edited()) {
        return;
    }
    commencement_->take();
    const auto check_all = [this, today = module.today()](bool insists) {
        return check_partial(scenario, module.database(), partial_amount_->typed(), today, insists);
    };
    const Check check = check_all(false);
    if (!check || check->means != Refusal::Means::asked) {
        go_on_unless(check);
    } else if (module.ask(check->text)) {
        focus_field(check->field);
    } else {
        go_on_unless(check_all(true));
    }
}

void frmdist2::go_on_unless(const Check& check) {
    if (!check) {
        module.screens.show(ScreenId::frmdist3);
        return;
    }
    if (check->means == Refusal::Means::limited) {
        partial_amount_->least_stands_out();
    }
    refuse(check->text, check->field);
}

void frmdist2::put_into(Entries& entries) const {
    const auto method = static_cast<Method>(scenario.method);
    entries.method = method == no_method ? std::nullopt : std::optional{method};
    entries.frequency = scenario.frequency == 0 ? std::nullopt : std::optional<int>{scenario.frequency};
    entries.partial_amount.reset();
    entries.partial_percent.reset();
    entries.scenario_month.reset();
    entries.scenario_year.reset();
    if (method == partial_lump_sum) {
        partial_amount_->put_into(entries);
        commencement_->put_into(entries);
    }
}

bool frmdist2::take(const Entries& entries) {
    if (!entries.method) {
        return false;
    }
    QRadioButton* option = optmethod[static_cast<std::size_t>(*entries.method - lump_sum)];
    option->setFocus();
    option->click();
    const int frequency = entries.frequency.value_or(0);
    if (*entries.method != partial_lump_sum) {
        chkperiod->choose(frequency);
        return *entries.method == lump_sum || frequency != 0;
    }
    chkpartial->choose(frequency);
    partial_amount_->take(entries);
    const bool offered = commencement_->choose(entries);
    if (!offered && entries.scenario_month && entries.scenario_year) {
        refuse(to_utf8(commencement_->changed()), "cmbscnyear");
    }
    return !error_shown() && frequency != 0 && offered &&
           (entries.partial_amount || entries.partial_percent);
}

// Only of what nothing on the screen has taken.
void frmdist2::mousePressEvent(QMouseEvent*) {
    partial_amount_->clicked_beside();
}

void frmdist2::go_previous() {
    module.screens.hide(ScreenId::frmdist2);
    module.screens.show(ScreenId::frmdist1);
}

}  // namespace kelvar
