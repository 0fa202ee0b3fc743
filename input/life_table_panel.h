#pragma once

#include <QWidget>

#include "core/records.h"
#include "core/scenario.h"
#include "widgets/record_table_model.h"

class QBoxLayout;
class QLabel;

namespace kelvar {

class Grid;

// The life expectancy table that the length of payments is checked against: the single life or minimum
// distribution table, or in its place the joint table, with the row that is looked up.
class LifeTablePanel : public QWidget {
    Q_OBJECT

public:
    LifeTablePanel();

    // Once, before anything is shown. The tables stay those of this database, which must outlive them.
    void load(Database& database);
    // Shows the kind of table that counts at the age when payments start, and marks the row looked up.
    void show_ages(const Scenario& scenario, Date today);
    // Marks the pair of ages looked up in the joint table; without a spouse the participant's first row
    // is only scrolled to.
    void mark_joint_pair(const Scenario& scenario, bool with_spouse);
    // Puts the joint table in the place of the other, or takes it away.
    void show_joint(bool joint);

private:
    void build_single(QBoxLayout* column);
    void build_joint(QBoxLayout* column);
    void add_grid(const Scenario& scenario, Date today);
    void add_grid1();
    std::vector<RecordTableModel::Column> age_columns(bool minimum_distribution) const;

    const Recordset* lifexp_ = nullptr;
    const Recordset* joinlife_ = nullptr;
    QWidget* single_table_ = nullptr;
    QWidget* joint_table_ = nullptr;
    QLabel* lblgridtext2 = nullptr;
    QLabel* lblgridtext4 = nullptr;
    QLabel* lblgridtext5 = nullptr;
    QLabel* lblothertable = nullptr;
    Grid* grdlife = nullptr;
    Grid* grdlife1 = nullptr;
    RecordTableModel* life_rows_ = nullptr;
};

}  // namespace kelvar
