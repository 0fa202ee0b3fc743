// Base of the yearly charts of a stored schedule: headings, one bar for each calendar year, what it
// stands for, printing. Everything shown is read from the work tables.
#pragma once

#include "output/report/print_buttons.h"
#include "shell/screen.h"
#include "widgets/bar_chart.h"

class QGridLayout;

namespace kelvar {

class SummaryPanel;
class ViewChoice;
struct YearlyTotals;

class ChartScreen : public Screen {
    Q_OBJECT

public:
    void load() override;

protected:
    ChartScreen(Module1& module, ScreenId id, const char* name);

    // What a screen shows besides what all charts do: points ahead of the years' payments, values of
    // the heading row.
    virtual void add_points(BarData&) {}
    virtual void add_values(const Recordset& /*distrib*/) {}

    // A value with its caption, below those already there.
    void add_value(const QString& caption, const QString& value, const char* name);

private:
    void get_headings();
    void add_line(const QString& text, const char* name);
    void get_gdata();
    void add_years(BarData& bars, const YearlyTotals& totals, const std::vector<double>& values) const;
    void period_chart();
    PrintJob print_job() const;

    SummaryPanel* summary_ = nullptr;
    QVBoxLayout* lines_ = nullptr;
    QGridLayout* values_ = nullptr;
    QString method_;
    QString rate_;
    QString printed_lines_;  // the same headings as HTML
    QString printed_values_;
    QString total_paid_;
    BarData payments_;
    BarData balances_;
    ViewChoice* view_ = nullptr;
    BarChart* grphsche = nullptr;
};

// Chart of periodic payments.
class frmcperi : public ChartScreen {
    Q_OBJECT

public:
    explicit frmcperi(Module1& module1) : ChartScreen(module1, ScreenId::frmcperi, "frmcperi") {}
};

// Chart of a partial lump sum and the periodic payments after it.
class frmcpart : public ChartScreen {
    Q_OBJECT

public:
    explicit frmcpart(Module1& module1) : ChartScreen(module1, ScreenId::frmcpart, "frmcpart") {}

protected:
    void add_points(BarData& bars) override;
    void add_values(const Recordset& distrib) override;

private:
    static QString get_month(const QString& name);
};

}  // namespace kelvar
