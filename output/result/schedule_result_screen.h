// Base of the result screens that show a schedule of payments: the computation step, the schedule, the
// cover over it, the buttons that lead to its chart and to the comparison of the rates.
#pragma once

#include "output/result/result_screen.h"

namespace kelvar {

class ScheduleView;

class ScheduleScreen : public ResultScreen {
    Q_OBJECT

public:
    // Also shows the rate that was chosen in the comparison.
    void activate() override;

protected:
    ScheduleScreen(Module1& module, ScreenId id, const char* name, ScreenId chart);

    void load() override;
    void get_value() override;
    Table shown_table() const override;

    // Shows the values before the payments as the scenario holds them, or nothing while the result is
    // covered.
    virtual void show_values(bool visible) = 0;

    QLabel* lblnumber = nullptr;
    QLabel* lbltotalvalue = nullptr;
    QLabel* lblfee = nullptr;

private:
    void build_buttons();

    Outcome compute(double rate);
    void show_result(const Projection& projection);
    void show_limit(double rate);
    void cover_limit(double rate);
    void get_cover(const QString& reason) override;
    void dis_mnu(int what);
    void compare_rates();
    void show_chart();

    static constexpr double no_ceiling = 100.0;
    double rate_ceiling_ = no_ceiling;  // lowest rate known to break the life expectancy limit
    std::string limit_text_;            // what was reported when it did
    ScreenId chart_;
    QPushButton* cmdchart = nullptr;
    QToolButton* pichart = nullptr;
    QPushButton* cmdcompare = nullptr;
    ScheduleView* schedule_ = nullptr;
};

// Periodic payments: value at the first payment and the schedule from there on.
class frmperio : public ScheduleScreen {
    Q_OBJECT

public:
    explicit frmperio(Module1& module);
    void load() override;

protected:
    void show_values(bool visible) override;

private:
    QLabel* lblcurvalue = nullptr;
    QLabel* lblfrstdate = nullptr;
    QLabel* lblstartvalue = nullptr;
};

// Partial lump sum: paid at the first date; the rest in periodic payments from the second date on.
class frmparti : public ScheduleScreen {
    Q_OBJECT

public:
    explicit frmparti(Module1& module);
    void load() override;

protected:
    void show_values(bool visible) override;

private:
    QLabel* lblcurvalue = nullptr;
    QLabel* lblpartial = nullptr;
    QLabel* lblfrstdate = nullptr;
    QLabel* lblstartvalue = nullptr;
    QLabel* lblscnddate = nullptr;
    QLabel* lblscndvalue = nullptr;
};

}  // namespace kelvar
