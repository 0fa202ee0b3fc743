#include "widgets/bar_chart.h"

#include "widgets/bar_chart_drawing.h"

using namespace Qt::StringLiterals;

namespace kelvar {

ChartDrawing* BarChart::new_drawing(const ChartDrawing::Look& look) const {
    return new BarChartDrawing(look);
}

void BarChart::choose(int label) {
    go_on_from(label * static_cast<int>(data().sets.size()));
}

QString BarChart::sentence(int place) const {
    const auto [set, label] = drawing()->point(place);
    const BarSet& bars = data().sets[set];
    return data().labels.at(static_cast<qsizetype>(label)) + u": "_s + bars.name +
           (data().unit == ChartUnit::dollars ? u" "_s : u": "_s) +
           full_text(bars.values[label], data().unit);
}

std::optional<int> BarChart::place_after(int key) const {
    switch (key) {
        case Qt::Key_Left:
            return selected() - 1;
        case Qt::Key_Right:
            return selected() + 1;
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return places() - 1;
        default:
            return {};
    }
}

}  // namespace kelvar
