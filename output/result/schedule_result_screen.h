// Base of the result screens that show a schedule of payments: the computation step, the grid, the
// cover over it, the chart button.
#pragma once

#include "engine/schedule.h"
#include "engine/store.h"
#include "output/result/result_screen.h"

namespace kelvar {

class Grid;
class RecordTableModel;

class ScheduleScreen : public ResultScreen {
    Q_OBJECT

protected:
    ScheduleScreen(Module1& module, ScreenId id, const char* name, ScreenId chart);

    void load() override;
    void get_value() override;

    // Terms of the periodic payments at the selected rate; stores the values that lead up to them in
    // the scenario.
    virtual PaymentTerms payment_terms() = 0;
    // What was paid before the periodic payments; part of the total.
    virtual double paid_before() const { return 0.0; }
    // Shows the values that payment_terms stored, or nothing while the result is covered.
    virtual void show_values(bool visible) = 0;
    // Fields of the heading row for printing; the labels already show the result.
    virtual Heading heading() const = 0;

    // The part of the heading that all schedules write alike, in its order.
    void add_length_fields(Heading& heading) const;

    QLabel* lblnumber = nullptr;
    QLabel* lbltotalvalue = nullptr;
    QLabel* lblfee = nullptr;
    double selected_rate = 0.0;  // percent per year

private:
    void build_chart_buttons();

    PaymentSchedule calcu_yr_value(const PaymentTerms& terms);
    PaymentSchedule calcu_fix(const PaymentTerms& terms);
    PaymentSchedule compute(const PaymentTerms& terms);
    void show_schedule(const PaymentSchedule& schedule);
    void show_limit(const PaymentSchedule& schedule);
    void get_cover(const QString& reason) override;
    void dis_mnu(int what);
    void show_chart();

    double rate_ceiling_ = 100.0;  // lowest rate known to break the life expectancy limit
    std::string limit_text_;       // what was reported when it did
    ScreenId chart_;
    QPushButton* cmdchart = nullptr;
    QToolButton* pichart = nullptr;
    Grid* grddist = nullptr;
    RecordTableModel* rows_ = nullptr;
};

}  // namespace kelvar
