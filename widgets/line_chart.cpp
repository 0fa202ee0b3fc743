#include "widgets/line_chart.h"

#include <algorithm>

#include "widgets/line_chart_drawing.h"

using namespace Qt::StringLiterals;

namespace kelvar {

ChartDrawing* LineChart::new_drawing(const ChartDrawing::Look& look) const {
    return new LineChartDrawing(look);
}

LineChartDrawing& LineChart::lines() const {
    return static_cast<LineChartDrawing&>(*drawing());
}

void LineChart::choose(int set) {
    lines().emphasise(set);
    if (set != no_line && places() > 0) {
        go_on_from(lines().place(static_cast<std::size_t>(set), lines().point(selected()).label));
    }
}

QString LineChart::sentence(int place) const {
    const auto [set, label] = drawing()->point(place);
    return data().labels.at(static_cast<qsizetype>(label)) + u", "_s + data().sets[set].name.trimmed() +
           u": "_s + full_text(data().sets[set].values[label], data().unit);
}

std::optional<int> LineChart::place_after(int key) const {
    const auto [set, label] = lines().point(selected());
    switch (key) {
        case Qt::Key_Left:
            return lines().place(set, label == 0 ? 0 : label - 1);
        case Qt::Key_Right:
            return lines().place(set, label + 1);
        case Qt::Key_Home:
            return lines().place(set, 0);
        case Qt::Key_End:
            return lines().place(set, data().sets[set].values.size());
        case Qt::Key_Up:
            return neighbour(1);
        case Qt::Key_Down:
            return neighbour(-1);
        default:
            return {};
    }
}

// The line that lies next above (1) or below (-1) at the selected label; lines that meet there keep the
// order of their sets.
int LineChart::neighbour(int step) const {
    const auto [selected_set, label] = lines().point(selected());
    std::vector<std::pair<double, std::size_t>> upwards;
    for (std::size_t set = 0; set < data().sets.size(); ++set) {
        if (label < data().sets[set].values.size()) {
            upwards.emplace_back(data().sets[set].values[label], set);
        }
    }
    std::ranges::sort(upwards);
    const auto here = std::ranges::find(upwards, selected_set, &std::pair<double, std::size_t>::second);
    const auto place =
        std::clamp<std::ptrdiff_t>(here - upwards.begin() + step, 0, std::ssize(upwards) - 1);
    return lines().place(upwards[static_cast<std::size_t>(place)].second, label);
}

}  // namespace kelvar
