#pragma once

#include "engine/comparison.h"
#include "output/report/print_buttons.h"
#include "shell/screen.h"
#include "widgets/line_chart.h"

class QCheckBox;

namespace kelvar {

class Grid;
class PriceLine;
class TextTableModel;

// The payments at each chosen rate side by side, and how the balance goes down. A rate that is picked
// is shown on the result screen behind.
class frmcompare : public Screen {
    Q_OBJECT

public:
    explicit frmcompare(Module1& module);
    void load() override;

private:
    void build_table();
    void build_buttons();
    void show_rates();
    void show_lines();
    void follow_row();
    void show_schedule();
    void compute();
    // The chosen rate that a row is about, from 0 on; -1 for one that nobody chose.
    int chosen_rate(int row) const;
    QString file_name() const;
    PrintJob print_job() const;

    Comparison comparison_;
    LineData lines_;
    QLabel* lblsub = nullptr;
    Grid* grdcompare = nullptr;
    LineChart* grphcompare = nullptr;
    QLabel* lblspread = nullptr;
    QCheckBox* chkfall = nullptr;
    QCheckBox* chkzero = nullptr;
    PriceLine* prices_ = nullptr;
    TextTableModel* rows_ = nullptr;
};

}  // namespace kelvar
