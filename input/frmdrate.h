#pragma once

#include <array>

#include "input/rules/rates.h"
#include "shell/screen.h"

class QCheckBox;

namespace kelvar {

// Rates of return: one or more assumed annual rates, each standing for a portfolio.
class frmdrate : public Screen {
    Q_OBJECT

public:
    explicit frmdrate(Module1& module);
    void load() override;
    void activate() override;
    void put_into(Entries& entries) const override;
    bool take(const Entries& entries) override;

protected:
    // The words beside a portfolio show it where they were clicked.
    void words_clicked(QToolButton* picture, QPoint place) override;
    void go_next() override;
    void go_previous() override;

private:
    void build_rates(QBoxLayout* column);
    void build_portfolios(QBoxLayout* column);
    void rate_ticked(int index);
    RateTicks ticks() const;
    bool chk_rate();
    bool chk_month();
    void pick_one();
    void show_portfolio(int index, QPoint position);

    std::array<QCheckBox*, 5> chkrate{};
    std::array<QToolButton*, 4> picrate{};  // by portfolio
};

}  // namespace kelvar
