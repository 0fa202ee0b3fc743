#include "widgets/line_chart_drawing.h"

#include <QGraphicsPathItem>
#include <QLineF>
#include <QPen>
#include <algorithm>
#include <cmath>
#include <limits>

#include "widgets/theme.h"

namespace kelvar {

namespace {

constexpr double line_width = 1.75;
constexpr double strong_width = 3.5;
constexpr double marker_radius = 4.0;
constexpr double marker_distance = 10 * theme::grid;

QPen line_pen(const QColor& color, std::size_t set, double width) {
    static const QList<QList<qreal>> dashes{{}, {6.0, 3.0}, {1.0, 2.5}, {7.0, 2.5, 1.0, 2.5}};
    QPen pen(color, width);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    const QList<qreal>& dash = dashes.at(static_cast<qsizetype>(set) % dashes.size());
    if (!dash.isEmpty()) {
        pen.setDashPattern(dash);
    }
    return pen;
}

// A circle, a square, a triangle or a diamond of about the same size.
QPainterPath marker(std::size_t set, const QPointF& middle, double radius) {
    QPainterPath path;
    const auto add = [&](std::initializer_list<QPointF> corners) {
        QPolygonF shape;
        for (const QPointF& corner : corners) {
            shape << middle + radius * corner;
        }
        path.addPolygon(shape);
        path.closeSubpath();
    };
    switch (set % 4) {
        case 0:
            path.addEllipse(middle, radius, radius);
            break;
        case 1:
            add({{-0.9, -0.9}, {0.9, -0.9}, {0.9, 0.9}, {-0.9, 0.9}});
            break;
        case 2:
            add({{0.0, -1.3}, {1.2, 0.9}, {-1.2, 0.9}});
            break;
        default:
            add({{0.0, -1.4}, {1.4, 0.0}, {0.0, 1.4}, {-1.4, 0.0}});
            break;
    }
    return path;
}

QGraphicsPathItem* marker_item(const QColor& line, const QColor& inside, QGraphicsItem* parent) {
    auto* item = new QGraphicsPathItem(parent);
    item->setPen(QPen(line, 1.5));
    item->setBrush(inside);
    item->setZValue(16);
    return item;
}

}  // namespace

void LineChartDrawing::add_sets() {
    for (std::size_t set = 0; set < data().sets.size(); ++set) {
        auto* line = new QGraphicsPathItem(this);
        line->setPen(line_pen(look().sets, set, line_width));
        line->setZValue(15);
        lines_.push_back({line, marker_item(look().sets, look().paper, this)});
    }
    mark_ = marker_item(look().text, look().text, this);
    mark_->setZValue(17);
}

void LineChartDrawing::emphasise(int set) {
    for (std::size_t line = 0; line < lines_.size(); ++line) {
        const bool strong = static_cast<int>(line) == set;
        lines_[line].line->setPen(line_pen(look().sets, line, strong ? strong_width : line_width));
        lines_[line].markers->setBrush(strong ? look().sets : look().paper);
    }
}

int LineChartDrawing::places() const {
    std::size_t count = 0;
    for (const ChartSet& set : data().sets) {
        count += set.values.size();
    }
    return static_cast<int>(count);
}

ChartDrawing::Point LineChartDrawing::point(int place) const {
    std::size_t label = static_cast<std::size_t>(place);
    std::size_t set = 0;
    while (label >= data().sets[set].values.size()) {
        label -= data().sets[set].values.size();
        ++set;
    }
    return {set, label};
}

int LineChartDrawing::place(std::size_t set, std::size_t label) const {
    std::size_t before = 0;
    for (std::size_t other = 0; other < set; ++other) {
        before += data().sets[other].values.size();
    }
    const std::size_t end = std::max<std::size_t>(data().sets[set].values.size(), 1);
    return static_cast<int>(before + std::min(label, end - 1));
}

QPointF LineChartDrawing::spot_of(const Point& point) const {
    return position(static_cast<double>(point.label), data().sets[point.set].values[point.label]);
}

void LineChartDrawing::mark(int place) {
    marked_ = place;
    QPainterPath path;
    if (place >= 0) {
        path = marker(point(place).set, spot_of(point(place)), 1.5 * marker_radius);
    }
    mark_->setPath(path);
}

int LineChartDrawing::place_at(const QPointF& spot) const {
    int nearest = -1;
    double least = std::numeric_limits<double>::max();
    for (int place = 0; plotArea().contains(spot) && place < places(); ++place) {
        const double distance = QLineF(spot, spot_of(point(place))).length();
        if (distance < least) {
            least = distance;
            nearest = place;
        }
    }
    return nearest;
}

QGraphicsItem* LineChartDrawing::new_key(std::size_t set) const {
    constexpr double width = 6 * theme::grid;
    constexpr double middle = theme::grid;
    QPainterPath path(QPointF(0.0, middle));
    path.lineTo(width, middle);
    auto* key = new QGraphicsPathItem(path);
    key->setPen(line_pen(look().sets, set, line_width));
    marker_item(look().sets, look().paper, key)
        ->setPath(marker(set, {width / 2, middle}, marker_radius));
    return key;
}

void LineChartDrawing::place_sets() {
    for (std::size_t set = 0; set < lines_.size(); ++set) {
        QPolygonF points;
        for (std::size_t label = 0; label < data().sets[set].values.size(); ++label) {
            points << spot_of({set, label});
        }
        QPainterPath path;
        path.addPolygon(points);
        lines_[set].line->setPath(path);
        place_markers(set);
    }
    mark(marked_);
}

// Far enough apart to leave the dashes to be seen, and not where the other lines have theirs.
void LineChartDrawing::place_markers(std::size_t set) {
    const std::size_t count = data().sets[set].values.size();
    const std::size_t sets = lines_.size();
    const std::size_t step =
        std::max(sets, static_cast<std::size_t>(std::ceil(marker_distance / slot())));
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (std::size_t label = std::min(set * step / sets, count); label < count; label += step) {
        path.addPath(marker(set, spot_of({set, label}), marker_radius));
    }
    lines_[set].markers->setPath(path);
}

}  // namespace kelvar
