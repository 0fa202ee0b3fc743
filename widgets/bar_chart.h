// A bar chart on a screen: Left and Right, Home and End, or the pointer go from bar to bar.
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
    void show_bars(const BarData& bars) { show_data(bars); }
    // After show_bars: the keys go on from the first bar of this label, from 0 on; with the focus it is
    // said at once.
    void choose(int label);

    QString sentence(int place) const override;

protected:
    ChartDrawing* new_drawing(const ChartDrawing::Look& look) const override;
    std::optional<int> place_after(int key) const override;
};

}  // namespace kelvar
