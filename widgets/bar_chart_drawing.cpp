#include "widgets/bar_chart_drawing.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QCategoryAxis>
#include <QFontMetricsF>
#include <QGraphicsLayout>
#include <QGraphicsSimpleTextItem>
#include <QLegend>
#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "widgets/axis_ticks.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr double bar_width = 0.8;    // share of a label's room that its bars take
constexpr double small_font = 0.85;  // of the values above the bars
constexpr double gap = theme::grid;  // between texts

}  // namespace

QString short_text(double value, BarUnit unit) {
    return to_qt(
        format_number(value, unit == BarUnit::dollars ? pattern::whole_dollars : pattern::whole));
}

QString full_text(double value, BarUnit unit) {
    return unit == BarUnit::dollars ? to_qt(format_number(value, pattern::dollars))
                                    : short_text(value, unit) + u" years"_s;
}

BarChartDrawing::BarChartDrawing(const Look& look)
    : look_(look),
      series_(new QBarSeries),
      label_axis_(new QBarCategoryAxis),
      value_axis_(new QCategoryAxis) {
    legend()->hide();
    layout()->setContentsMargins(0, 0, 0, 0);
    setBackgroundBrush(look.paper);
    setBackgroundRoundness(0);
    addSeries(series_);
    series_->setBarWidth(bar_width);
    value_axis_->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    value_axis_->setGridLineColor(look.lines);
    value_axis_->setLabelsVisible(false);  // they would be cut to dots where the ticks are close
    value_axis_->setLinePenColor(look.lines);
    label_axis_->setGridLineVisible(false);
    label_axis_->setLabelsVisible(false);
    label_axis_->setLinePenColor(look.lines);
    addAxis(label_axis_, Qt::AlignBottom);
    addAxis(value_axis_, Qt::AlignLeft);
    series_->attachAxis(label_axis_);
    series_->attachAxis(value_axis_);
    connect(this, &QChart::plotAreaChanged, this, [this] { place_texts(); });
}

void BarChartDrawing::draw(const BarData& data) {
    unit_ = data.unit;
    label_axis_->setCategories(data.labels);
    // Room for half a line above the highest tick, and for the labels below, which are texts of ours
    // and begin below the lowest tick's text.
    const bool two_lines = data.labels.join(QChar()).contains(u' ');
    const int line = line_height();
    const qsizetype bars = data.labels.size() * static_cast<qsizetype>(data.sets.size());
    turned_ = look_.turn_values_beyond > 0 && bars > look_.turn_values_beyond;
    const int above = (turned_ ? 4 : 1) + (data.value_title.isEmpty() ? 0 : 1);
    const int below = (two_lines ? 2 : 1) + (data.label_title.isEmpty() ? 0 : 1);
    const int left = set_ticks(data.upper);
    setMargins({left, above * line, theme::grid, line / 2 + below * line});
    for (const BarSet& set : data.sets) {
        add_set(set);
    }
    QFont value_font = look_.font;
    value_font.setPointSizeF(look_.font.pointSizeF() * small_font);
    for (qsizetype label = 0; label < data.labels.size(); ++label) {
        label_texts_.push_back(add_text(data.labels.at(label), look_.font));
        for (const BarSet& set : data.sets) {
            const double value = set.values[static_cast<std::size_t>(label)];
            value_texts_.push_back(add_text(short_text(value, unit_), value_font));
        }
    }
    value_title_ = add_text(data.value_title, look_.font);
    label_title_ = add_text(data.label_title, look_.font);
    place_texts();
}

int BarChartDrawing::line_height() const {
    return static_cast<int>(std::ceil(QFontMetricsF(look_.font).height())) + 1;
}

// Gives the room that their texts need. The upper bound has none unless it is a tick: it would be in
// the way of the last one.
int BarChartDrawing::set_ticks(double upper) {
    value_axis_->setRange(0.0, upper);
    const double step = tick_step(upper, look_.most_steps);
    double widest = 0.0;
    for (int tick = 0; tick * step <= upper; ++tick) {
        const QString text = short_text(tick * step, unit_);
        value_axis_->append(text, tick * step);
        tick_texts_.emplace_back(tick * step, add_text(text, look_.font));
        widest = std::max(widest, tick_texts_.back().second->boundingRect().width());
    }
    return 2 * theme::grid + static_cast<int>(widest);
}

void BarChartDrawing::add_set(const BarSet& set) {
    const bool first = series_->count() == 0;
    auto* bars = new QBarSet(set.name);
    for (const double value : set.values) {
        bars->append(value);
    }
    bars->setBrush(first ? QBrush(look_.bars) : QBrush(look_.bars, Qt::BDiagPattern));
    bars->setPen(QPen(look_.bars, 1.5));
    bars->setSelectedColor(look_.text);
    series_->append(bars);
}

QGraphicsSimpleTextItem* BarChartDrawing::add_text(const QString& text, const QFont& font) {
    auto* item = new QGraphicsSimpleTextItem(text, this);
    item->setFont(font);
    item->setBrush(look_.text);
    item->setZValue(20);
    return item;
}

void BarChartDrawing::mark(int place) {
    for (QBarSet* set : series_->barSets()) {
        set->deselectAllBars();
    }
    if (place >= 0) {
        const int sets = static_cast<int>(series_->count());
        series_->barSets().at(place % sets)->selectBar(place / sets);
    }
}

int BarChartDrawing::place_at(const QPointF& point) {
    if (!plotArea().contains(point)) {
        return -1;
    }
    const int sets = static_cast<int>(series_->count());
    const double x = mapToValue(point, series_).x() + 0.5;  // each label has a room of 1
    const int label = std::clamp(static_cast<int>(x), 0, places() / sets - 1);
    const double share = (x - label - (1.0 - bar_width) / 2) / bar_width;
    return label * sets + std::clamp(static_cast<int>(share * sets), 0, sets - 1);
}

void BarChartDrawing::place_texts() {
    if (label_texts_.empty()) {
        return;
    }
    const double slot = plotArea().width() / static_cast<double>(label_texts_.size());
    place_labels(slot);
    place_values(slot);
    place_ticks();
    place_titles();
}

// Every label, or every second, fifth, tenth and so on, so that none touches the next. A wide label of
// two words takes two lines.
void BarChartDrawing::place_labels(double slot) {
    const double widest = label_texts_.back()->boundingRect().width() + gap;
    std::size_t step = 1;
    for (const std::size_t larger : {2U, 5U, 10U, 20U, 50U}) {
        if (widest > slot * static_cast<double>(step)) {
            step = larger;
        }
    }
    const QRectF plot = plotArea();
    // A label in words stands for itself; the steps are counted from the first number.
    const std::size_t first = label_texts_.front()->text().front().isDigit() ? 0 : 1;
    double free_from = 0.0;
    for (std::size_t label = 0; label < label_texts_.size(); ++label) {
        QGraphicsSimpleTextItem* text = label_texts_[label];
        text->setText(text->text().replace(u'\n', u' '));
        if (text->boundingRect().width() + gap > slot) {
            text->setText(text->text().replace(u' ', u'\n'));
        }
        const double width = text->boundingRect().width();
        const double middle = plot.left() + slot * (static_cast<double>(label) + 0.5);
        const double left = std::clamp(middle - width / 2, 0.0, std::max(0.0, size().width() - width));
        text->setPos(left, plot.bottom() + line_height() / 2.0);
        const bool in_step = label < first || (label - first) % step == 0;
        text->setVisible(in_step && left >= free_from);
        if (text->isVisible()) {
            free_from = left + width + gap;
        }
    }
}

// Above their bars when all of them fit beside each other, if need be turned to read upwards.
void BarChartDrawing::place_values(double slot) {
    const int sets = static_cast<int>(series_->count());
    const double room = slot * bar_width / sets;
    const bool fits = std::ranges::all_of(value_texts_, [&](const QGraphicsSimpleTextItem* text) {
        return turned_ ? text->boundingRect().height() <= room
                       : text->boundingRect().width() + gap <= room;
    });
    for (int place = 0; place < places(); ++place) {
        QGraphicsSimpleTextItem* text = value_texts_[static_cast<std::size_t>(place)];
        const QPointF top = bar_top(place);
        const QSizeF size = text->boundingRect().size();
        if (turned_) {
            text->setRotation(-90.0);
            text->setPos(top.x() - size.height() / 2, top.y() - 3);
        } else {
            text->setPos(top.x() - size.width() / 2,
                         std::max(plotArea().top() - size.height(), top.y() - size.height() - 2));
        }
        text->setVisible(fits);
    }
}

void BarChartDrawing::place_ticks() {
    for (const auto& [value, text] : tick_texts_) {
        const QSizeF size = text->boundingRect().size();
        text->setPos(plotArea().left() - gap - size.width(),
                     mapToPosition({0.0, value}, series_).y() - size.height() / 2);
    }
}

void BarChartDrawing::place_titles() {
    if (value_title_ == nullptr) {
        return;
    }
    const QSizeF size = label_title_->boundingRect().size();
    value_title_->setPos(theme::grid, 0.0);
    label_title_->setPos(plotArea().center().x() - size.width() / 2,
                         this->size().height() - size.height());
}

QPointF BarChartDrawing::bar_top(int place) {
    const int sets = static_cast<int>(series_->count());
    const int set = place % sets;
    const int label = place / sets;
    const double x = label - bar_width / 2 + bar_width * (set + 0.5) / sets;
    return mapToPosition({x, series_->barSets().at(set)->at(label)}, series_);
}

}  // namespace kelvar
