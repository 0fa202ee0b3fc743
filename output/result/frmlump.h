#pragma once

#include "output/result/result_screen.h"

namespace kelvar {

class BarChart;
class Grid;
class TextTableModel;

// Lump sum: value of the account at the payment, beside today's balance, at every picked rate.
class frmlump : public ResultScreen {
    Q_OBJECT

public:
    explicit frmlump(Module1& module);
    void load() override;

protected:
    void get_value() override;
    Table shown_table() const override;

private:
    void follow_row();
    void show_all_rates();

    QLabel* lblcurvalue = nullptr;
    QLabel* lblfrstdate = nullptr;
    QLabel* lblstartvalue = nullptr;
    QLabel* lblfee = nullptr;
    QLabel* lbltotalvalue = nullptr;
    BarChart* grphlump = nullptr;
    Grid* grdvalues = nullptr;
    TextTableModel* values_ = nullptr;
};

}  // namespace kelvar
