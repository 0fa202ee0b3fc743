// A bar chart on a screen, a group of bars for each label: Left and Right, Home and End, or the pointer
// go from bar to bar. Values stand above the bars where there is room.
#pragma once

#include "widgets/chart.h"

namespace kelvar {

using BarSet = ChartSet;
using BarData = ChartData;

class BarChart : public Chart {
    Q_OBJECT

public:
    BarChart(const char* name, const QString& accessible_name) : Chart(name, accessible_name) {}

    // May be called again. Each set has a value for every label.
    void show_bars(const BarData& bars) { show_data(bars, Order::by_label); }
    // After show_bars: the keys go on from the first bar of this label, from 0 on; with the focus it is
    // said at once.
    void choose(int label);

    QString sentence(int place) const override;

protected:
    std::unique_ptr<ChartDrawing> new_drawing(const ChartLook& look) const override;
    std::optional<int> place_after(int key) const override;
};

}  // namespace kelvar
