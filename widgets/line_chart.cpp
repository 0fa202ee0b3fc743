#include "widgets/line_chart.h"

#include <algorithm>

#include "widgets/chart_drawing.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr double line_width = 1.75;
constexpr double strong_width = 3.5;
constexpr double marker_distance = 10 * theme::grid;

QPen line_pen(const QColor& color, int set, double width) {
    static const QList<QList<qreal>> dashes{{}, {6.0, 3.0}, {1.0, 2.5}, {7.0, 2.5, 1.0, 2.5}};
    QPen pen(color, width);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    if (const QList<qreal>& dash = dashes.at(set % dashes.size()); !dash.isEmpty()) {
        pen.setDashPattern(dash);
    }
    return pen;
}

// Of about the same size.
QCPScatterStyle marker(int set, const QColor& line, const QColor& inside, double scale = 1.0) {
    constexpr std::pair<QCPScatterStyle::ScatterShape, double> shapes[] = {
        {QCPScatterStyle::ssCircle, 8.0},
        {QCPScatterStyle::ssSquare, 7.5},
        {QCPScatterStyle::ssTriangle, 9.5},
        {QCPScatterStyle::ssDiamond, 11.0}};
    const auto [shape, size] = shapes[set % 4];
    return {shape, QPen(line, 1.5), inside, scale * size};
}

// Its markers are far enough apart to leave the dashes to be seen, and not where other lines have
// theirs.
class Line : public QCPGraph {
public:
    Line(QCPAxis* labels, QCPAxis* values, int set, int sets)
        : QCPGraph(labels, values), set_(set), sets_(sets) {
        setAdaptiveSampling(false);
    }

protected:
    // Markers at 0 are whole.
    QRect clipRect() const override {
        constexpr int most = 2 * theme::grid;
        return keyAxis()->axisRect()->rect().adjusted(-most, -most, most, most);
    }
    void drawScatterPlot(QCPPainter* painter, const QVector<QPointF>& values,
                         const QCPScatterStyle& style) const override {
        const double slot = keyAxis()->coordToPixel(1.0) - keyAxis()->coordToPixel(0.0);
        const int step = std::max(sets_, static_cast<int>(std::ceil(marker_distance / slot)));
        QVector<QPointF> marked;
        for (qsizetype label = set_ * step / sets_; label < values.size(); label += step) {
            marked << values[label];
        }
        QCPGraph::drawScatterPlot(painter, marked, style);
    }

private:
    int set_;
    int sets_;
};

class LineDrawing : public ChartDrawing {
public:
    LineDrawing(const ChartData& data, const ChartLook& look)
        : ChartDrawing(data, look, 6 * theme::grid), look_(look) {
        const int sets = static_cast<int>(data.sets.size());
        for (int set = 0; set < sets; ++set) {
            auto* line = new Line(xAxis, yAxis, set, sets);  // owned by the drawing
            line->setName(data.sets[static_cast<std::size_t>(set)].name.trimmed());
            for (const double value : data.sets[static_cast<std::size_t>(set)].values) {
                line->addData(line->dataCount(), value);
            }
        }
        emphasise(LineChart::no_line);
        setAutoAddPlottableToLegend(false);
        mark_ = new Line(xAxis, yAxis, 0, 1);
        mark_->setLineStyle(QCPGraph::lsNone);
    }

    // This line is drawn stronger than the others.
    void emphasise(int set) {
        for (int line = 0; line < static_cast<int>(data().sets.size()); ++line) {
            const bool strong = line == set;
            graph(line)->setPen(line_pen(look_.sets, line, strong ? strong_width : line_width));
            graph(line)->setScatterStyle(marker(line, look_.sets, strong ? look_.sets : look_.paper));
        }
    }

    void mark(const ChartPoint* point) override {
        mark_->data()->clear();
        if (point != nullptr) {
            const int set = static_cast<int>(point->set);
            mark_->addData(static_cast<double>(point->label), value(*point));
            mark_->setScatterStyle(marker(set, look_.text, look_.text, 1.5));
        }
    }

    double distance(const ChartPoint& point, const QPointF& spot) const override {
        const QPointF there(xAxis->coordToPixel(static_cast<double>(point.label)),
                            yAxis->coordToPixel(value(point)));
        return QLineF(spot, there).length();
    }

private:
    double value(const ChartPoint& point) const { return data().sets[point.set].values[point.label]; }

    ChartLook look_;
    QCPGraph* mark_ = nullptr;
};

}  // namespace

std::unique_ptr<ChartDrawing> LineChart::new_drawing(const ChartLook& look) const {
    return std::make_unique<LineDrawing>(data(), look);
}

void LineChart::choose(int set) {
    static_cast<LineDrawing*>(drawing())->emphasise(set);
    drawing()->replot(QCustomPlot::rpQueuedReplot);
    if (set != no_line && places() > 0) {
        go_on_from(place_on(static_cast<std::size_t>(set), point(selected()).label));
    }
}

int LineChart::place_on(std::size_t set, std::size_t label) const {
    int place = 0;
    while (place + 1 < places() &&
           (point(place).set < set || (point(place + 1).set == set && point(place).label < label))) {
        ++place;
    }
    return place;
}

QString LineChart::sentence(int place) const {
    return label_of(place) + u", "_s + data().sets[point(place).set].name.trimmed() + u": "_s +
           full_text(value_of(place), data().unit);
}

std::optional<int> LineChart::place_after(int key) const {
    const auto [set, label] = point(selected());
    switch (key) {
        case Qt::Key_Left:
            return place_on(set, label == 0 ? 0 : label - 1);
        case Qt::Key_Right:
            return place_on(set, label + 1);
        case Qt::Key_Home:
            return place_on(set, 0);
        case Qt::Key_End:
            return place_on(set, data().sets[set].values.size());
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
    std::vector<std::pair<double, int>> upwards;
    for (int place = 0; place < places(); ++place) {
        if (point(place).label == point(selected()).label) {
            upwards.emplace_back(value_of(place), place);
        }
    }
    std::ranges::sort(upwards);
    const auto here = std::ranges::find(upwards, selected(), &std::pair<double, int>::second);
    const auto next =
        std::clamp<std::ptrdiff_t>(here - upwards.begin() + step, 0, std::ssize(upwards) - 1);
    return upwards[static_cast<std::size_t>(next)].second;
}

}  // namespace kelvar
