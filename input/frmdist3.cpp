#include "input/frmdist3.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "core/numbers.h"
#include "input/rules/length_rules.h"
#include "input/rules/participant_rules.h"
#include "widgets/controls.h"
#include "widgets/grid.h"
#include "widgets/masked_date_edit.h"
#include "widgets/text.h"
#include "widgets/theme.h"
#include "widgets/wrapping_radio_button.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr int oldest_of_single_life_table = 69;

QString cell_text(const Recordset& records, std::size_t row, std::size_t column) {
    return to_qt(as_text(records.cell(row, column)));
}

}  // namespace

frmdist3::frmdist3(Module1& module1)
    : Screen(module1, "frmdist3",
             {.title = u"Length of Payment (Check only one)"_s, .step = u"Step 3 of 4"_s}) {
    QBoxLayout* columns = control::row();
    columns->setSpacing(3 * theme::grid);
    content()->addLayout(columns, 1);
    auto* left = new QVBoxLayout;
    left->setSpacing(theme::grid);
    auto* right = new QVBoxLayout;
    columns->addLayout(left, 11);
    columns->addLayout(right, 10);
    build_options(left);
    build_tables(right);
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
    txtnumber = control::money_box("txtnumber", u"Number of Payments"_s);
    txtfixamount = control::money_box("txtfixamount", u"Dollar Amount of Payments"_s);
    const auto add_box = [column](const QString& sign, QLineEdit* box) {
        auto* row = new QHBoxLayout;
        row->setContentsMargins(4 * theme::grid, 0, 0, theme::grid);
        if (!sign.isEmpty()) {
            row->addWidget(theme::label(sign, theme::Role::body));
        }
        row->addWidget(box);
        row->addStretch(1);
        column->addLayout(row);
    };
    column->addWidget(optlength[0]);
    add_box({}, txtnumber);
    column->addWidget(optlength[1]);
    add_box(u"$"_s, txtfixamount);
    column->addWidget(optlength[2]);
    build_life_options(column);
    column->addStretch(1);
    opens(optlength[0], txtnumber);
    opens(optlength[1], txtfixamount);
    opens(optlength[2], oplifeexp[0]);
    opens(optlength[2], oplifeexp[1]);
    on_leave(txtnumber, [this](Leaving) { number_left(); });
    on_leave(txtfixamount, [this](Leaving) { amount_left(); });
}

void frmdist3::build_life_options(QBoxLayout* column) {
    const QString captions[] = {
        {},  // depends on the age, see set_age_texts
        u"Payments based on &joint life expectancy (based on your life expectancy and that of your spouse). You can only select this option if your spouse is your sole beneficiary and he/she is more than 10 years younger than you."_s};
    auto* inner = new QVBoxLayout;
    inner->setContentsMargins(4 * theme::grid, 0, 0, 0);
    inner->setSpacing(theme::grid);
    inner->addWidget(theme::label(u"(Check only one)"_s, theme::Role::note, "Label1"));
    auto* one_of = new QButtonGroup(this);
    for (int index = 0; index < 2; ++index) {
        auto* option = new WrappingRadioButton(captions[index], u"oplifeexp_%1"_s.arg(index));
        oplifeexp[static_cast<std::size_t>(index)] = option;
        one_of->addButton(option, index);
        inner->addWidget(option);
        connect(option, &QRadioButton::clicked, this, [this, index] { choose_life(index); });
    }
    oplifeexp[0]->setChecked(true);
    build_spouse(inner);
    column->addLayout(inner);
}

void frmdist3::build_spouse(QBoxLayout* column) {
    frame3 = control::frame(u"Date of &Birth"_s, "frame3");
    auto* row = new QHBoxLayout(frame3);
    mskbenebirth = new MaskedDateEdit("mskbenebirth");
    mskbenebirth->setAccessibleName(u"Date of Birth of Spouse (MM/DD/YYYY)"_s);
    auto* Label2 = theme::label(u"of Spouse"_s, theme::Role::body, "Label2");
    Label2->setBuddy(mskbenebirth);
    row->addWidget(Label2);
    row->addWidget(mskbenebirth);
    row->addWidget(theme::label(u"(MM/DD/YYYY)"_s, theme::Role::note, "Label3"));
    row->addStretch(1);
    column->addWidget(frame3);
    on_leave(mskbenebirth, [this](Leaving leaving) {
        // Going to another option gives the joint choice up; the date no longer matters then.
        const bool to_option = qobject_cast<QRadioButton*>(leaving.to) != nullptr;
        if (!leaving.to_navigation && !to_option && joint_chosen() && !mskbenebirth->is_empty()) {
            chk_birth();
        }
    });
}

void frmdist3::build_tables(QBoxLayout* column) {
    single_table_ = new QWidget;
    auto* single = new QVBoxLayout(single_table_);
    single->setContentsMargins(0, 0, 0, 0);
    auto* heading = new QHBoxLayout;
    lblgridtext2 = theme::label({}, theme::Role::section, "lblgridtext2");
    heading->addWidget(lblgridtext2);
    heading->addWidget(theme::label(u"TABLE*"_s, theme::Role::section, "lblgridtext3"));
    heading->addStretch(1);
    auto* kind = new QHBoxLayout;
    kind->addWidget(theme::label(u"UNISEX"_s, theme::Role::note, "Label1_1"));
    kind->addWidget(theme::label(u"CHART*"_s, theme::Role::note, "Label1_2"));
    kind->addStretch(1);
    lblgridtext4 = theme::label({}, theme::Role::note, "lblgridtext4");
    kind->addWidget(lblgridtext4);
    grdlife = new Grid("grdlife", u"Life expectancy table"_s);
    lblothertable = control::paragraph({}, "lblothertable");
    lblgridtext5 = control::paragraph(u"* Life Expectancy=age+multiple"_s, "lblgridtext5");
    single->addLayout(heading);
    single->addLayout(kind);
    single->addWidget(lblothertable);
    single->addWidget(grdlife, 1);
    single->addWidget(lblgridtext5);

    joint_table_ = new QWidget;
    auto* joint = new QVBoxLayout(joint_table_);
    joint->setContentsMargins(0, 0, 0, 0);
    grdlife1 = new Grid("grdlife1", u"Joint life expectancy table"_s);
    joint->addWidget(
        theme::label(u"JOINT LIFE EXPECTANCY TABLE"_s, theme::Role::section, "lblgrid1text1"));
    joint->addWidget(grdlife1, 1);

    column->addWidget(single_table_, 1);
    column->addWidget(joint_table_, 1);
}

void frmdist3::load() {
    life_rows_ = new RecordTableModel(module.database().lifexp(), age_columns(false), this);
    grdlife->setModel(life_rows_);
    add_grid();
    add_grid1();
    set_age_texts();
    dis_f1();
    dis_f2();
    dis_f3();
    set_first_field(optlength[0]);
}

void frmdist3::activate() {
    scenario.payment_start_age = payment_start_age(scenario);
    add_grid();
    set_age_texts();
    mark_joint_pair();
}

std::vector<RecordTableModel::Column> frmdist3::age_columns(bool minimum_distribution) const {
    return life_columns(
        module.database().lifexp(),
        {u"AGE"_s, u"DIVISOR"_s, minimum_distribution ? u"MIN. DIST. YRS."_s : u"LIFE EXPECTANCY"_s});
}

// The minimum distribution table stands before the row of age 69, the single life table from it on.
void frmdist3::add_grid() {
    const Recordset& lifexp = module.database().lifexp();
    const bool minimum_distribution = payment_start_age(scenario) >= minimum_distribution_from;
    const std::size_t border = row_with(lifexp, "age", oldest_of_single_life_table);
    const std::size_t first = minimum_distribution ? 0 : border;
    const std::size_t end = minimum_distribution ? border : lifexp.RecordCount();
    life_rows_->set_columns(age_columns(minimum_distribution));
    life_rows_->show_rows(first, end);

    const std::size_t own = row_with(lifexp, "age", single_life_age(scenario, module.today()));
    if (own >= first && own < end) {
        grdlife->selectRow(static_cast<int>(own - first));
    }
    // In the month of the 70th birthday the table shown and the age looked up can be of two kinds.
    lblothertable->setVisible(own < lifexp.RecordCount() && (own < first || own >= end));
    lblothertable->setText(minimum_distribution
                               ? u"This age is looked up in the single life expectancy table."_s
                               : u"This age is looked up in the minimum distribution table."_s);
}

void frmdist3::add_grid1() {
    const Recordset& joinlife = module.database().joinlife();
    const auto column = [&](const char* field) {
        return [at = joinlife.column(field)](const Recordset& r, std::size_t row) {
            return cell_text(r, row, at);
        };
    };
    auto* rows = new RecordTableModel(joinlife,
                                      {{u"Participant's Age"_s, column("PartAge")},
                                       {u"Age of Spouse"_s, column("beneage")},
                                       {u"Joint Life Expectancy"_s, column("LifeAge")}},
                                      this);
    rows->show_rows(0, joinlife.RecordCount());
    grdlife1->setModel(rows);
}

// Marks the pair of ages whose row is used; without a spouse's date the participant's first row is
// only scrolled to.
void frmdist3::mark_joint_pair() {
    const Recordset& joinlife = module.database().joinlife();
    const JointAges ages = joint_life_ages(scenario);
    const std::size_t participants = row_with(joinlife, "PartAge", ages.participant);
    const std::size_t spouse_column = joinlife.column("BeneAge");
    const std::size_t participant_column = joinlife.column("PartAge");
    grdlife1->clearSelection();
    grdlife1->scrollTo(grdlife1->model()->index(static_cast<int>(participants), 0),
                       QTableView::PositionAtTop);
    if (mskbenebirth->is_empty()) {
        return;
    }
    for (std::size_t row = participants; row < joinlife.RecordCount(); ++row) {
        if (as_number(joinlife.cell(row, participant_column)) == ages.participant &&
            as_number(joinlife.cell(row, spouse_column)) == ages.spouse) {
            grdlife1->selectRow(static_cast<int>(row));
            grdlife1->scrollTo(grdlife1->currentIndex(), QTableView::PositionAtCenter);
            return;
        }
    }
}

void frmdist3::set_age_texts() {
    const int age = payment_start_age(scenario);
    const bool minimum_distribution = age >= minimum_distribution_from;
    lblgridtext2->setText(minimum_distribution ? u"MINIMUM DISTRIBUTION"_s
                                               : u"SINGLE LIFE EXPECTANCY"_s);
    lblgridtext4->setText(
        u"Age when payments start: %1"_s.arg(single_life_age(scenario, module.today())));
    lblgridtext5->setText(minimum_distribution ? u"*Minimum Distribution Years=age+divisor"_s
                                               : u"*Life Expectancy=age+divisor"_s);
    oplifeexp[0]->setText(u"Payments based on your li&fe expectancy"_s +
                          (minimum_distribution ? u" / minimum distribution."_s : QString()));
    oplifeexp[0]->updateGeometry();
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

void frmdist3::choose_life(int index) {
    clear_error();
    show_tables();
    if (index == 0) {
        return;
    }
    if (joint_life_available(scenario.birth_date, module.today())) {
        mark_joint_pair();
        focus_field(mskbenebirth);
        return;
    }
    back_to_single_life();
    report_once(
        "Join Life Expectancy is not available when either you or your spouse is older than 90 years!",
        oplifeexp[0]);
}

void frmdist3::back_to_single_life() {
    oplifeexp[0]->setChecked(true);
    show_tables();
}

bool frmdist3::joint_chosen() const {
    return optlength[2]->isChecked() && oplifeexp[1]->isChecked();
}

// The joint table and the spouse's date of birth are there only while joint life is chosen.
void frmdist3::show_tables() {
    const bool joint = joint_chosen();
    scenario.joint_life = joint;
    single_table_->setVisible(!joint);
    joint_table_->setVisible(joint);
    frame3->setVisible(joint);
}

void frmdist3::dis_f1() {
    txtnumber->setEnabled(false);
}

void frmdist3::dis_f2() {
    txtfixamount->setEnabled(false);
}

void frmdist3::dis_f3() {
    oplifeexp[0]->setEnabled(false);
    oplifeexp[1]->setEnabled(false);
    show_tables();
}

void frmdist3::en_f1() {
    txtnumber->setEnabled(true);
}

void frmdist3::en_f2() {
    txtfixamount->setEnabled(true);
}

void frmdist3::en_f3() {
    oplifeexp[0]->setEnabled(true);
    oplifeexp[1]->setEnabled(true);
    show_tables();
}

void frmdist3::number_left() {
    if (const auto number = read_unsigned(to_utf8(txtnumber->text()))) {
        txtnumber->setText(to_qt(format_number(*number, pattern::whole)));
    }
}

void frmdist3::amount_left() {
    if (const auto amount = get_num(to_utf8(txtfixamount->text()))) {
        txtfixamount->setText(to_qt(format_number(*amount, pattern::plain_amount)));
    }
}

bool frmdist3::chk_birth() {
    const SpouseCheck check =
        check_spouse(to_utf8(mskbenebirth->mask_text()), scenario.current_age, module.today());
    if (check.birth_date) {
        mskbenebirth->setText(to_qt(date_text(*check.birth_date)));
        scenario.spouse_birth_date = *check.birth_date;
        scenario.spouse_current_age = check.age;
    }
    if (check.message.empty()) {
        mark_joint_pair();
        return true;
    }
    if (check.birth_date) {
        back_to_single_life();
        report_once(check.message, oplifeexp[0]);
    } else {
        report_once(check.message, mskbenebirth);
    }
    return false;
}

void frmdist3::go_next() {
    clear_error();
    if (joint_chosen() && !chk_birth()) {
        return;
    }
    const LengthEntry entry{.option = static_cast<LengthOption>(scenario.length_option),
                            .joint = joint_chosen(),
                            .number_text = to_utf8(txtnumber->text()),
                            .amount_text = to_utf8(txtfixamount->text())};
    const Check check = chk_fld(module, entry);
    number_left();
    amount_left();
    if (entry.option == by_dollar_amount && get_num(entry.amount_text) > scenario.present_value) {
        txtfixamount->setText(to_qt(format_number(scenario.fixed_amount, pattern::plain_amount)));
    }
    if (check) {
        refuse(check->text, check->field);
        return;
    }
    module.screens.show(ScreenId::frmdrate);  // first, so that step 2 does not come to the front
    module.screens.hide(ScreenId::frmdist3);
}

void frmdist3::go_previous() {
    module.screens.hide(ScreenId::frmdist3);
    module.screens.show(ScreenId::frmdist2);
}

}  // namespace kelvar
