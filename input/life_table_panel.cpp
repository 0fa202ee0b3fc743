#include "input/life_table_panel.h"

#include <QHBoxLayout>
#include <QLabel>

#include "core/plan.h"
#include "input/rules/lookup_ages.h"
#include "widgets/controls.h"
#include "widgets/grid.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

LifeTablePanel::LifeTablePanel() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    build_single(column);
    build_joint(column);
}

void LifeTablePanel::build_single(QBoxLayout* column) {
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
    column->addWidget(single_table_, 1);
}

void LifeTablePanel::build_joint(QBoxLayout* column) {
    joint_table_ = new QWidget;
    auto* joint = new QVBoxLayout(joint_table_);
    joint->setContentsMargins(0, 0, 0, 0);
    grdlife1 = new Grid("grdlife1", u"Joint life expectancy table"_s);
    joint->addWidget(
        theme::label(u"JOINT LIFE EXPECTANCY TABLE"_s, theme::Role::section, "lblgrid1text1"));
    joint->addWidget(grdlife1, 1);
    column->addWidget(joint_table_, 1);
}

void LifeTablePanel::load(Database& database) {
    lifexp_ = &database.lifexp();
    joinlife_ = &database.joinlife();
    life_rows_ = new RecordTableModel(*lifexp_, age_columns(false), this);
    grdlife->setModel(life_rows_);
    add_grid1();
}

void LifeTablePanel::show_ages(const Scenario& scenario, Date today) {
    const bool minimum_distribution = minimum_distribution_counts(scenario);
    add_grid(scenario, today);
    lblgridtext2->setText(minimum_distribution ? u"MINIMUM DISTRIBUTION"_s
                                               : u"SINGLE LIFE EXPECTANCY"_s);
    lblgridtext4->setText(u"Age looked up: %1"_s.arg(single_life_age(scenario, today)));
    lblgridtext5->setText(minimum_distribution ? u"*Minimum Distribution Years=age+divisor"_s
                                               : u"*Life Expectancy=age+divisor"_s);
}

// The minimum distribution table stands before the row of age 69, the single life table from it on.
void LifeTablePanel::add_grid(const Scenario& scenario, Date today) {
    const bool minimum_distribution = minimum_distribution_counts(scenario);
    const std::size_t border = row_with(*lifexp_, "age", plan::oldest_of_single_life_table);
    const std::size_t first = minimum_distribution ? 0 : border;
    const std::size_t end = minimum_distribution ? border : lifexp_->RecordCount();
    life_rows_->set_columns(age_columns(minimum_distribution));
    life_rows_->show_rows(first, end);

    const std::size_t own = row_with(*lifexp_, "age", single_life_age(scenario, today));
    if (own >= first && own < end) {
        grdlife->selectRow(static_cast<int>(own - first));
    }
    // In the month of the 70th birthday the table shown and the age looked up can be of two kinds.
    lblothertable->setVisible(own < lifexp_->RecordCount() && (own < first || own >= end));
    lblothertable->setText(minimum_distribution
                               ? u"This age is looked up in the single life expectancy table."_s
                               : u"This age is looked up in the minimum distribution table."_s);
}

std::vector<RecordTableModel::Column> LifeTablePanel::age_columns(bool minimum_distribution) const {
    return life_columns(*lifexp_, {u"AGE"_s, u"DIVISOR"_s,
                                   minimum_distribution ? u"MIN. DIST. YRS."_s : u"LIFE EXPECTANCY"_s});
}

void LifeTablePanel::add_grid1() {
    auto* rows = new RecordTableModel(*joinlife_,
                                      {field_column(*joinlife_, "PartAge", u"Participant's Age"_s),
                                       field_column(*joinlife_, "beneage", u"Age of Spouse"_s),
                                       field_column(*joinlife_, "LifeAge", u"Joint Life Expectancy"_s)},
                                      this);
    rows->show_rows(0, joinlife_->RecordCount());
    grdlife1->setModel(rows);
}

void LifeTablePanel::mark_joint_pair(const Scenario& scenario, bool with_spouse) {
    const JointAges ages = joint_life_ages(scenario);
    const std::size_t participants = row_with(*joinlife_, "PartAge", ages.participant);
    const std::size_t spouse_column = joinlife_->column("BeneAge");
    const std::size_t participant_column = joinlife_->column("PartAge");
    grdlife1->clearSelection();
    grdlife1->scrollTo(grdlife1->model()->index(static_cast<int>(participants), 0),
                       QTableView::PositionAtTop);
    if (!with_spouse) {
        return;
    }
    for (std::size_t row = participants; row < joinlife_->RecordCount(); ++row) {
        if (as_number(joinlife_->cell(row, participant_column)) == ages.participant &&
            as_number(joinlife_->cell(row, spouse_column)) == ages.spouse) {
            grdlife1->selectRow(static_cast<int>(row));
            grdlife1->scrollTo(grdlife1->currentIndex(), QTableView::PositionAtCenter);
            return;
        }
    }
}

void LifeTablePanel::show_joint(bool joint) {
    single_table_->setVisible(!joint);
    joint_table_->setVisible(joint);
}

}  // namespace kelvar
