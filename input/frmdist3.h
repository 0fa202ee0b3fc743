#pragma once

#include <array>

#include "shell/screen.h"
#include "widgets/record_table_model.h"

class QLineEdit;
class QRadioButton;

namespace kelvar {

class Grid;
class MaskedDateEdit;

// Length of payments: a number, a dollar amount, or a life expectancy, beside the table it is checked
// against.
class frmdist3 : public Screen {
    Q_OBJECT

public:
    explicit frmdist3(Module1& module);
    void load() override;
    void activate() override;

protected:
    void go_next() override;
    void go_previous() override;

private:
    void build_options(QBoxLayout* column);
    void build_life_options(QBoxLayout* column);
    void build_spouse(QBoxLayout* column);
    void build_tables(QBoxLayout* column);
    std::vector<RecordTableModel::Column> age_columns(bool minimum_distribution) const;

    void add_grid();
    void add_grid1();
    void mark_joint_pair();
    void set_age_texts();

    void choose_length(int index);
    void choose_life(int index);
    void back_to_single_life();
    bool joint_chosen() const;
    void show_tables();
    void dis_f1();
    void dis_f2();
    void dis_f3();
    void en_f1();
    void en_f2();
    void en_f3();

    void number_left();
    void amount_left();
    bool chk_birth();

    std::array<QRadioButton*, 3> optlength{};
    std::array<QRadioButton*, 2> oplifeexp{};
    QLineEdit* txtnumber = nullptr;
    QLineEdit* txtfixamount = nullptr;
    QGroupBox* frame3 = nullptr;
    MaskedDateEdit* mskbenebirth = nullptr;
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
