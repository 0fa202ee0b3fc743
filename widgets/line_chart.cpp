#include "widgets/line_chart.h"

#include <algorithm>
#include <numeric>

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
        {QCPScatterStyle::ssCircle, 8.0},           {QCPScatterStyle::ssSquare, 7.5},
        {QCPScatterStyle::ssTriangle, 9.5},         {QCPScatterStyle::ssDiamond, 11.0},
        {QCPScatterStyle::ssTriangleInverted, 9.5}, {QCPScatterStyle::ssCrossSquare, 8.5}};
    const auto [shape, size] = shapes[set % 6];
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
            if (look.names_ends) {
                add_name(line->name(), hue(set));
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
            graph(line)->setPen(line_pen(hue(line), line, strong ? strong_width : line_width));
            graph(line)->setScatterStyle(marker(line, hue(line), strong ? hue(line) : look_.paper));
        }
    }

    void mark(const ChartPoint* point) override {
        mark_->data()->clear();
        if (point != nullptr) {
            const int set = static_cast<int>(point->set);
            mark_->addData(static_cast<double>(point->label), value_of(*point));
            mark_->setScatterStyle(marker(set, look_.text, look_.text, 1.5));
        }
    }

    double distance(const ChartPoint& point, const QPointF& spot) const override {
        return QLineF(spot, pixel(point)).length();
    }

protected:
    // Each line's name interrupts it at its peak, or as near to that as the others leave room.
    void fit_sets() override {
        for (std::size_t set = 0; set < names_.size(); ++set) {
            const std::vector<double>& values = data().sets[set].values;
            const auto peak = std::ranges::max_element(values) - values.begin();
            std::vector<std::size_t> labels(values.size());
            std::iota(labels.begin(), labels.end(), 0U);
            std::ranges::stable_sort(labels, {}, [peak](std::size_t label) {
                return std::abs(static_cast<std::ptrdiff_t>(label) - peak);
            });
            const auto place = std::ranges::find_if(labels, [&](std::size_t label) {
                return has_room({set, label});
            });
            names_[set]->setVisible(place != labels.end());
            if (place != labels.end()) {
                names_[set]->position->setPixelPosition(pixel({set, *place}));
            }
        }
    }

private:
    QColor hue(int set) const { return look_.sets[static_cast<std::size_t>(set) % look_.sets.size()]; }
    QPointF pixel(const ChartPoint& point) const {
        return {xAxis->coordToPixel(static_cast<double>(point.label)),
                yAxis->coordToPixel(value_of(point))};
    }

    // Its ground is as high as its letters.
    void add_name(const QString& text, const QColor& color) {
        const QFontMetricsF metrics(look_.font);
        const QRectF letters = metrics.tightBoundingRect(text);
        QCPItemText* name = add_text(text, look_.font);
        name->setColor(color);
        name->setBrush(look_.paper);
        name->setPositionAlignment(Qt::AlignCenter);
        name->setPadding({2, 1 - qRound(metrics.ascent() + letters.top()), 2,
                          1 - qRound(metrics.descent() - letters.bottom())});
        names_.push_back(name);
    }

    QRectF box_of_name(std::size_t set, const QPointF& middle) const {
        QRectF box({}, QFontMetricsF(look_.font).size(0, names_[set]->text()));
        box.moveCenter(middle);
        return box;
    }

    // For the name inside the axes, beside the other lines and the names that have their place.
    bool has_room(const ChartPoint& point) const {
        const QRectF box = box_of_name(point.set, pixel(point));
        for (std::size_t set = 0; set < names_.size(); ++set) {
            const QPointF named = names_[set]->position->pixelPosition();
            if (set < point.set && names_[set]->visible() && box_of_name(set, named).intersects(box)) {
                return false;
            }
            for (const double x : {box.left(), box.center().x(), box.right()}) {
                const double distance =
                    graph(static_cast<int>(set))->selectTest({x, box.center().y()}, false);
                if (distance < (set == point.set ? 0.0 : box.height() / 2.0)) {  // below 0 outside
                    return false;
                }
            }
        }
        return true;
    }

    ChartLook look_;
    std::vector<QCPItemText*> names_;  // of the lines, none on paper
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
