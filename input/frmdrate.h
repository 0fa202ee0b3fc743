#pragma once

#include <array>

#include "shell/screen.h"

class QCheckBox;

namespace kelvar {

// Rates of return: one or more assumed annual rates, each standing for a portfolio.
class frmdrate : public Screen {
    Q_OBJECT

public:
    explicit frmdrate(Module1& module);
    void load() override;

protected:
    void go_next() override;
    void go_previous() override;

private:
    void build_rates(QBoxLayout* column);
    void build_portfolios(QBoxLayout* column);
    bool chk_rate();
    void pick_one();
    void show_portfolio(int index, QWidget* picture);

    std::array<QCheckBox*, 5> chkrate{};
};

}  // namespace kelvar
