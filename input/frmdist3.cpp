#include "input/frmdist3.h"

#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <cmath>

#include "core/entries.h"
#include "core/numbers.h"
#include "input/length_limits.h"
#include "input/life_options.h"
#include "input/life_table_panel.h"
#include "input/limit_lines.h"
#include "input/option_card.h"
#include "input/rules/birth_date.h"
#include "input/rules/lookup_ages.h"
#include "input/rules/next_checks.h"
#include "input/rules/spouse.h"
#include "input/rules/typed_numbers.h"
#include "widgets/controls.h"
#include "widgets/masked_date_edit.h"
#include "widgets/text.h"
#include "widgets/theme.h"
#include "widgets/wrapping_radio_button.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr double most_typed = 99'999'999.0;  // that a participant's file keeps; far beyond any life

}  // namespace

frmdist3::frmdist3(Module1& module1)
    : Screen(
          module1, ScreenId::frmdist3, "frmdist3",
          {.title = u"Length of Payment (Check only one)"_s, .step = u"Step 3 of 4"_s, .save = true}) {
    QBoxLayout* columns = control::row();
    columns->setSpacing(3 * theme::grid);
    // Room below for a spouse's date of birth.
    content()->setContentsMargins(theme::side_margin(), 2 * theme::grid, theme::side_margin(),
                                  theme::grid);
    content()->addLayout(columns, 1);
    auto* left = new QVBoxLayout;
    left->setSpacing(theme::grid);
    columns->addLayout(left, 4);
    build_options(left);
    life_table_ = new LifeTablePanel;
    columns->addWidget(life_table_, 3);
}

void frmdist3::build_options(QBoxLayout* column) {
    column->addWidget(theme::label(u"(Select option below)"_s, theme::Role::note, "lblmethod"));
    const QString captions[] = {u"N&umber of Payments"_s, u"&Dollar Amount of Payments"_s,
                                u"&Life Expectancy (payments guaranteed throughout life expectancy)"_s};
    auto* one_of = new QButtonGroup(this);
    for (int index = 0; index < 3; ++index) {
        auto* option = new WrappingRadioButton(captions[index], u"optlength_%1"_s.arg(index));
        optlength[static_cast<std::size_t>(index)] = option;
        one_of->addButton(option, index);
        connect(option, &QRadioButton::clicked, this, [this, index] { choose_length(index); });
    }
    txtnumber = control::number_box("txtnumber", u"Number of Payments"_s, u"99,999"_s);
    txtfixamount = control::money_box("txtfixamount", u"Dollar Amount of Payments"_s);
    number_ = new LimitedBox({}, txtnumber, "lblnumberlimit");
    amount_ = new LimitedBox(u"$"_s, txtfixamount, "lblamountlimit");
    build_life_options();
    const std::array<QWidget*, 3> belonging{number_, amount_, life_options_};
    for (std::size_t index = 0; index < belonging.size(); ++index) {
        auto* card = new OptionCard(optlength[index]);
        card->add(belonging[index]);
        column->addWidget(card);
    }
    column->addStretch(1);
    belongs_to(optlength[0], txtnumber);
    belongs_to(optlength[1], txtfixamount);
    on_leave(txtnumber, [this](Leaving) { read_number(); });
    connect(txtfixamount, &QLineEdit::textChanged, this, [this] { show_limits(); });
    on_leave(txtfixamount, [this](Leaving) { read_amount(); });
}

void frmdist3::build_life_options() {
    life_options_ = new LifeOptions;
    mskbenebirth = life_options_->spouse_birth();
    belongs_to(optlength[2], life_options_->single());
    belongs_to(optlength[2], life_options_->joint());
    for (QAbstractButton* option : {optlength[2], life_options_->joint()}) {
        belongs_to(option, mskbenebirth->parentWidget());
    }
    connect(life_options_, &LifeOptions::chosen, this, [this] { choose_life(); });
    connect(mskbenebirth, &QLineEdit::textChanged, this, [this] { show_limits(); });
    on_leave(mskbenebirth, [this](Leaving leaving) {
        // Going to another option gives the joint choice up; the date no longer matters then.
        const bool to_option = qobject_cast<QRadioButton*>(leaving.to) != nullptr;
        if (!leaving.to_navigation && !to_option && joint_chosen() && !mskbenebirth->is_empty()) {
            chk_birth();
        }
    });
}

void frmdist3::load() {
    life_table_->load(module.database());
    show_ages();
    dis_f1();
    dis_f2();
    dis_f3();
    set_first_field(optlength[0]);
}

void frmdist3::activate() {
    scenario.payment_start_age = payment_start_age(scenario);
    show_ages();
    show_limits();
    mark_joint_pair();
}

void frmdist3::show_ages() {
    life_table_->show_ages(scenario, module.today());
    life_options_->name_single(minimum_distribution_counts(scenario));
}

void frmdist3::show_limits() {
    number_->show_limit(number_limit(module));
    amount_->show_limit(amount_limit(module, txtfixamount->text()));
    life_options_->show_limits(life_limit(module, *life_options_), spouse_limit(module));
}

void frmdist3::mark_joint_pair() {
    life_table_->mark_joint_pair(scenario, !mskbenebirth->is_empty());
}

void frmdist3::choose_length(int index) {
    clear_error();
    scenario.length_option = static_cast<std::int16_t>(index + 1);
    dis_f1();
    dis_f2();
    dis_f3();
    switch (index) {
        case 0:
            en_f1();
            focus_field(txtnumber);
            break;
        case 1:
            en_f2();
            focus_field(txtfixamount);
            break;
        default:
            en_f3();
            break;
    }
}

void frmdist3::choose_life() {
    clear_error();
    show_tables();
    if (joint_chosen()) {
        // Later, because an arrow key chooses the option first and then gives it the focus.
        QMetaObject::invokeMethod(
            this, [this] { ask_for_spouse(); }, Qt::QueuedConnection);
    }
}

void frmdist3::ask_for_spouse() {
    if (!joint_chosen()) {
        return;  // the user has gone on meanwhile
    }
    if (const Check check = check_joint_life(scenario.birth_date, module.today())) {
        back_to_single_life();
        refuse(check->text, check->field);
    } else {
        mark_joint_pair();
        focus_field(mskbenebirth);
    }
}

void frmdist3::back_to_single_life() {
    life_options_->single()->setChecked(true);
    show_tables();
}

bool frmdist3::joint_chosen() const {
    return optlength[2]->isChecked() && life_options_->joint()->isChecked();
}

// The joint table and the spouse's date of birth are there only while joint life is chosen.
void frmdist3::show_tables() {
    const bool joint = joint_chosen();
    scenario.joint_life = joint;
    life_table_->show_joint(joint);
    life_options_->show_spouse(joint);
    show_limits();
}

void frmdist3::dis_f3() {
    life_options_->set_options_enabled(false);
    show_tables();
}

void frmdist3::en_f3() {
    life_options_->set_options_enabled(true);
    show_tables();
}

std::optional<double> frmdist3::read_number() {
    const auto number = read_unsigned(to_utf8(txtnumber->text()));
    if (number) {
        txtnumber->setText(to_qt(format_number(*number, pattern::whole)));
    }
    return number;
}

std::optional<double> frmdist3::read_amount() {
    const auto amount = get_num(to_utf8(txtfixamount->text()));
    if (amount) {
        txtfixamount->setText(to_qt(format_number(*amount, pattern::plain_amount)));
    }
    return amount;
}

bool frmdist3::chk_birth() {
    const SpouseCheck check =
        check_spouse(to_utf8(mskbenebirth->mask_text()), scenario.current_age, module.today());
    if (check.birth_date) {
        mskbenebirth->setText(to_qt(date_text(*check.birth_date)));
        scenario.spouse_birth_date = *check.birth_date;
        scenario.spouse_current_age = check.age;
    }
    if (!check.wrong) {
        mark_joint_pair();
        return true;
    }
    if (check.birth_date) {
        back_to_single_life();
        life_options_->births_stand_out(optlength[2]);
    }
    refuse(check.wrong->text, check.wrong->field);
    return false;
}

void frmdist3::go_next() {
    clear_error();
    if (joint_chosen() && !chk_birth()) {
        return;
    }
    const LengthEntry entry{.option = static_cast<LengthOption>(scenario.length_option),
                            .joint = joint_chosen(),
                            .number = read_number(),
                            .amount = read_amount()};
    const Check check = chk_fld(entry, scenario, module.database(), module.today());
    const bool told = check && check->means == Refusal::Means::told;
    if (told) {
        module.report(check->text);
    }
    if (entry.option == by_dollar_amount && entry.amount > scenario.present_value) {
        txtfixamount->setText(to_qt(format_number(scenario.fixed_amount, pattern::plain_amount)));
    }
    if (check && !told) {
        show_limits();  // the day can have changed
        if (check->means == Refusal::Means::limited) {
            const bool by_number = entry.option == by_number_of_payments;
            (by_number ? number_ : amount_)->stand_out(optlength[by_number ? 0 : 1]);
        }
        refuse(check->text, check->field);
        return;
    }
    module.screens.show(ScreenId::frmdrate);  // first, so that step 2 does not come to the front
    module.screens.hide(ScreenId::frmdist3);
}

void frmdist3::put_into(Entries& entries) const {
    const auto length = static_cast<LengthOption>(scenario.length_option);
    entries.length_option = length == no_length ? std::nullopt : std::optional{length};
    entries.joint_life = joint_chosen() ? std::optional{true} : std::nullopt;
    const auto number = read_unsigned(to_utf8(txtnumber->text()));
    entries.number_of_payments = number && *number < most_typed
                                     ? std::optional{static_cast<int>(std::round(*number))}
                                     : std::nullopt;
    const auto amount = get_num(to_utf8(txtfixamount->text()));
    entries.fixed_amount = amount ? std::optional{round_to_cents(*amount)} : std::nullopt;
    entries.spouse_birth_date = read_masked_date(to_utf8(mskbenebirth->mask_text()));
}

bool frmdist3::take(const Entries& entries) {
    if (entries.number_of_payments) {
        txtnumber->setText(QString::number(*entries.number_of_payments));
    }
    if (entries.fixed_amount) {
        txtfixamount->setText(to_qt(format_number(*entries.fixed_amount, pattern::plain_amount)));
    }
    if (entries.spouse_birth_date) {
        mskbenebirth->setText(to_qt(date_text(*entries.spouse_birth_date)));
    }
    if (!entries.length_option) {
        return false;
    }
    QRadioButton* option =
        optlength[static_cast<std::size_t>(*entries.length_option - by_number_of_payments)];
    option->setFocus();
    option->click();
    switch (*entries.length_option) {
        case by_number_of_payments:
            return entries.number_of_payments.has_value();
        case by_dollar_amount:
            return entries.fixed_amount.has_value();
        default:
            return !entries.joint_life.value_or(false) || take_joint(entries);
    }
}

bool frmdist3::take_joint(const Entries& entries) {
    life_options_->joint()->setChecked(true);
    show_tables();
    ask_for_spouse();
    return joint_chosen() && entries.spouse_birth_date;
}

void frmdist3::go_previous() {
    module.screens.hide(ScreenId::frmdist3);
    module.screens.show(ScreenId::frmdist2);
}

}  // namespace kelvar
