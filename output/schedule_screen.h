// Base of the result screens that show a schedule of payments: the computation step, the grid, the
// cover over it, the chart button.
#pragma once

#include "engine/schedule.h"
#include "engine/store.h"
#include "output/result_screen.h"

class QStackedWidget;

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
    void build_actions();
    void build_grid();

    PaymentSchedule calcu_yr_value(const PaymentTerms& terms);
    PaymentSchedule calcu_fix(const PaymentTerms& terms);
    PaymentSchedule compute();
    void show_schedule(const PaymentSchedule& schedule);
    void show_limit(const PaymentSchedule& schedule);
    void get_cover(const QString& reason);
    void uncover();
    void dis_mnu(int what);
    void show_chart();

    double rate_ceiling_ = 100.0;  // lowest rate known to break the life expectancy limit
    std::string limit_text_;       // what was reported when it did
    ScreenId chart_;
    QPushButton* cmdprint = nullptr;
    QPushButton* cmdchart = nullptr;
    QToolButton* pichart = nullptr;
    QStackedWidget* result_ = nullptr;
    QLabel* lblcover = nullptr;
    Grid* grddist = nullptr;
    RecordTableModel* rows_ = nullptr;
};

}  // namespace kelvar
