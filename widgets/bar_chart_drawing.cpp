#include "widgets/bar_chart_drawing.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QCategoryAxis>
#include <QGraphicsPixmapItem>
#include <QGraphicsSimpleTextItem>
#include <algorithm>

#include "widgets/theme.h"

namespace kelvar {

namespace {

constexpr double bar_width = 0.8;    // share of a label's room that its bars take
constexpr double small_font = 0.85;  // of the values above the bars

// The first set is drawn solid, the second hatched, so that they differ without colour too.
Qt::BrushStyle fill(std::size_t set) {
    return set == 0 ? Qt::SolidPattern : Qt::BDiagPattern;
}

}  // namespace

BarChartDrawing::BarChartDrawing(const Look& look) : ChartDrawing(look), series_(new QBarSeries) {
    addSeries(series_);
    series_->setBarWidth(bar_width);
    series_->attachAxis(label_axis());
    series_->attachAxis(value_axis());
}

void BarChartDrawing::add_sets() {
    for (const ChartSet& set : data().sets) {
        auto* bars = new QBarSet(set.name);
        for (const double value : set.values) {
            bars->append(value);
        }
        bars->setBrush(QBrush(look().sets, fill(static_cast<std::size_t>(series_->count()))));
        bars->setPen(QPen(look().sets, 1.5));
        bars->setSelectedColor(look().text);
        series_->append(bars);
    }
    QFont value_font = look().font;
    value_font.setPointSizeF(look().font.pointSizeF() * small_font);
    const std::size_t labels = static_cast<std::size_t>(data().labels.size());
    for (std::size_t label = 0; label < labels; ++label) {
        for (const ChartSet& set : data().sets) {
            value_texts_.push_back(add_text(short_text(set.values[label], data().unit), value_font));
        }
    }
}

bool BarChartDrawing::turned() const {
    const qsizetype bars = data().labels.size() * static_cast<qsizetype>(data().sets.size());
    return look().turn_values_beyond > 0 && bars > look().turn_values_beyond;
}

ChartDrawing::Point BarChartDrawing::point(int place) const {
    const std::size_t bar = static_cast<std::size_t>(place);
    return {bar % data().sets.size(), bar / data().sets.size()};
}

void BarChartDrawing::mark(int place) {
    for (QBarSet* set : series_->barSets()) {
        set->deselectAllBars();
    }
    if (place >= 0) {
        const auto [set, label] = point(place);
        series_->barSets().at(static_cast<int>(set))->selectBar(static_cast<int>(label));
    }
}

int BarChartDrawing::place_at(const QPointF& spot) const {
    if (!plotArea().contains(spot) || places() == 0) {
        return -1;
    }
    const int sets = static_cast<int>(data().sets.size());
    const int label = label_at(spot);
    const double left = position(label - bar_width / 2, 0.0).x();
    const double share = (spot.x() - left) / (bar_width * slot());
    return label * sets + std::clamp(static_cast<int>(share * sets), 0, sets - 1);
}

QGraphicsItem* BarChartDrawing::new_key(std::size_t set) const {
    return new QGraphicsPixmapItem(theme::legend_key(fill(set)));
}

// Values stand above their bars when all of them fit beside each other, if need be turned to read
// upwards.
void BarChartDrawing::place_sets() {
    const double room = slot() * bar_width / static_cast<double>(data().sets.size());
    const bool fits = std::ranges::all_of(value_texts_, [&](const QGraphicsSimpleTextItem* text) {
        return turned() ? text->boundingRect().height() <= room
                        : text->boundingRect().width() + gap <= room;
    });
    for (int place = 0; place < places(); ++place) {
        QGraphicsSimpleTextItem* text = value_texts_[static_cast<std::size_t>(place)];
        const QPointF top = bar_top(place);
        const QSizeF size = text->boundingRect().size();
        if (turned()) {
            text->setRotation(-90.0);
            text->setPos(top.x() - size.height() / 2, top.y() - 3);
        } else {
            text->setPos(top.x() - size.width() / 2,
                         std::max(plotArea().top() - size.height(), top.y() - size.height() - 2));
        }
        text->setVisible(fits);
    }
}

QPointF BarChartDrawing::bar_top(int place) const {
    const auto [set, label] = point(place);
    const double middle = (static_cast<double>(set) + 0.5) / static_cast<double>(data().sets.size());
    return position(static_cast<double>(label) + bar_width * (middle - 0.5),
                    data().sets[set].values[label]);
}

}  // namespace kelvar
