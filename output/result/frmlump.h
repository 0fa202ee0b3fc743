#pragma once

#include "output/result/result_screen.h"

namespace kelvar {

class BarChart;

// Lump sum: value of the account at the payment, beside today's balance, at every picked rate.
class frmlump : public ResultScreen {
    Q_OBJECT

public:
    explicit frmlump(Module1& module);
    void load() override;

protected:
    void get_value() override;

private:
    void get_chart();

    QLabel* lblcurvalue = nullptr;
    QLabel* lblfrstdate = nullptr;
    QLabel* lblstartvalue = nullptr;
    QLabel* lblfee = nullptr;
    QLabel* lbltotalvalue = nullptr;
    BarChart* grphlump = nullptr;
};

}  // namespace kelvar
