// A line chart on a screen: Left and Right go from label to label, Up and Down from line to line as
// they lie above each other, Home and End to the first and last value of a line; the pointer says the
// nearest value. Lines differ by dashes and markers, so they are told apart without colour.
#pragma once

#include "widgets/chart.h"

namespace kelvar {

using LineSet = ChartSet;  // may have fewer values than there are labels: its line ends early
using LineData = ChartData;

class LineChart : public Chart {
    Q_OBJECT

public:
    LineChart(const char* name, const QString& accessible_name) : Chart(name, accessible_name) {}

    // May be called again; no line is chosen then. Up to six are told apart.
    void show_lines(const LineData& lines) { show_data(lines, Order::by_set); }
    static constexpr int no_line = -1;
    // After show_lines: draws this line, from 0 on, stronger, and the keys go on from it; with the
    // focus it is said at once. With no_line none is stronger, and the keys stay where they are.
    void choose(int set);

    // Such as "2031, 5%: $201,334.12".
    QString sentence(int place) const override;

protected:
    std::unique_ptr<ChartDrawing> new_drawing(const ChartLook& look) const override;
    std::optional<int> place_after(int key) const override;

private:
    // The value of a line that is nearest to a label.
    int place_on(std::size_t set, std::size_t label) const;
    int neighbour(int step) const;
};

}  // namespace kelvar
