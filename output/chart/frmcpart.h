#pragma once

#include "output/chart/chart_screen.h"

namespace kelvar {

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
