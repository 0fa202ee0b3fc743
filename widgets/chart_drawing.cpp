#include "widgets/chart_drawing.h"

#include <QBarCategoryAxis>
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

QString short_text(double value, ChartUnit unit) {
    return to_qt(
        format_number(value, unit == ChartUnit::dollars ? pattern::whole_dollars : pattern::whole));
}

QString full_text(double value, ChartUnit unit) {
    return unit == ChartUnit::dollars ? to_qt(format_number(value, pattern::dollars))
                                      : short_text(value, unit) + u" years"_s;
}

ChartDrawing::ChartDrawing(const Look& look)
    : look_(look), label_axis_(new QBarCategoryAxis), value_axis_(new QCategoryAxis) {
    legend()->hide();
    layout()->setContentsMargins(0, 0, 0, 0);
    setBackgroundBrush(look.paper);
    setBackgroundRoundness(0);
    value_axis_->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    value_axis_->setGridLineColor(look.lines);
    value_axis_->setLabelsVisible(false);  // they would be cut to dots where the ticks are close
    value_axis_->setLinePenColor(look.lines);
    label_axis_->setGridLineVisible(false);
    label_axis_->setLabelsVisible(false);
    label_axis_->setLinePenColor(look.lines);
    addAxis(label_axis_, Qt::AlignBottom);
    addAxis(value_axis_, Qt::AlignLeft);
    connect(this, &QChart::plotAreaChanged, this, [this] { place_texts(); });
}

void ChartDrawing::draw(const ChartData& data) {
    data_ = data;
    label_axis_->setCategories(data.labels);
    // Room for half a line above the highest tick, and for the labels below, which are texts of ours
    // and begin below the lowest tick's text.
    const bool two_lines = data.labels.join(QChar()).contains(u' ') || !data.notes.isEmpty();
    const int line = line_height();
    const int above = lines_above() + (data.value_title.isEmpty() ? 0 : 1);
    const int below = (two_lines ? 2 : 1) + (data.label_title.isEmpty() ? 0 : 1);
    const int left = set_ticks();
    setMargins({left, above * line, theme::grid, line / 2 + below * line});
    add_sets();
    add_labels();
    place_texts();
}

int ChartDrawing::line_height() const {
    return static_cast<int>(std::ceil(QFontMetricsF(look_.font).height())) + 1;
}

// Gives the room that their texts need. The upper bound has none unless it is a tick: it would be in
// the way of the last one.
int ChartDrawing::set_ticks() {
    value_axis_->setRange(0.0, data_.upper);
    const double step = tick_step(data_.upper, look_.most_steps);
    double widest = 0.0;
    for (int tick = 0; tick * step <= data_.upper; ++tick) {
        const QString text = short_text(tick * step, data_.unit);
        value_axis_->append(text, tick * step);
        tick_texts_.emplace_back(tick * step, add_text(text, look_.font));
        widest = std::max(widest, tick_texts_.back().second->boundingRect().width());
    }
    return 2 * theme::grid + static_cast<int>(widest);
}

void ChartDrawing::add_labels() {
    for (const QString& label : data_.labels) {
        label_texts_.push_back(add_text(label, look_.font));
    }
    for (const QString& note : data_.notes) {
        note_texts_.push_back(add_text(note, look_.font));
    }
    value_title_ = add_text(data_.value_title, look_.font);
    label_title_ = add_text(data_.label_title, look_.font);
    notes_title_ = add_text(data_.notes_title, look_.font);
}

QGraphicsSimpleTextItem* ChartDrawing::add_text(const QString& text, const QFont& font) {
    auto* item = new QGraphicsSimpleTextItem(text, this);
    item->setFont(font);
    item->setBrush(look_.text);
    item->setZValue(20);
    return item;
}

double ChartDrawing::slot() const {
    return plotArea().width() / static_cast<double>(data_.labels.size());
}

QPointF ChartDrawing::position(double label, double value) const {
    const QRectF plot = plotArea();
    return {plot.left() + slot() * (label + 0.5), plot.bottom() - plot.height() * value / data_.upper};
}

int ChartDrawing::label_at(const QPointF& spot) const {
    const int last = static_cast<int>(data_.labels.size()) - 1;
    return std::clamp(static_cast<int>((spot.x() - plotArea().left()) / slot()), 0, last);
}

void ChartDrawing::place_texts() {
    if (label_texts_.empty()) {
        return;
    }
    place_labels();
    place_ticks();
    place_titles();
    place_sets();
}

// Every label, or every second, fifth, tenth and so on, so that no number, all of one width, touches
// the next.
std::size_t ChartDrawing::label_step() const {
    const double width = label_texts_.back()->boundingRect().width() + gap;
    std::size_t step = 1;
    for (const std::size_t larger : {2U, 5U, 10U, 20U, 50U}) {
        if (width > slot() * static_cast<double>(step)) {
            step = larger;
        }
    }
    return step;
}

// A wide label of two words takes two lines.
void ChartDrawing::place_labels() {
    const std::size_t step = label_step();
    const QRectF plot = plotArea();
    // A label in words stands for itself; the steps are counted from the first number.
    const std::size_t first = label_texts_.front()->text().front().isDigit() ? 0 : 1;
    double free_from = 0.0;
    for (std::size_t label = 0; label < label_texts_.size(); ++label) {
        QGraphicsSimpleTextItem* text = label_texts_[label];
        text->setText(text->text().replace(u'\n', u' '));
        if (text->boundingRect().width() + gap > slot()) {
            text->setText(text->text().replace(u' ', u'\n'));
        }
        const double width = text->boundingRect().width();
        const double middle = position(static_cast<double>(label), 0.0).x();
        const double left = std::clamp(middle - width / 2, 0.0, std::max(0.0, size().width() - width));
        text->setPos(left, plot.bottom() + line_height() / 2.0);
        const bool in_step = label < first || (label - first) % step == 0;
        text->setVisible(in_step && left >= free_from);
        if (text->isVisible()) {
            free_from = left + width + gap;
        }
        if (label < note_texts_.size()) {
            place_note(label);
        }
    }
}

// Below the middle of its label, and seen where that is; no note is wider than a label.
void ChartDrawing::place_note(std::size_t label) {
    const QGraphicsSimpleTextItem* above = label_texts_[label];
    QGraphicsSimpleTextItem* note = note_texts_[label];
    const double middle = above->x() + above->boundingRect().width() / 2;
    note->setPos(middle - note->boundingRect().width() / 2, above->y() + line_height());
    note->setVisible(above->isVisible());
}

void ChartDrawing::place_ticks() {
    for (const auto& [value, text] : tick_texts_) {
        const QSizeF size = text->boundingRect().size();
        text->setPos(plotArea().left() - gap - size.width(),
                     position(0.0, value).y() - size.height() / 2);
    }
}

void ChartDrawing::place_titles() {
    const QSizeF size = label_title_->boundingRect().size();
    value_title_->setPos(theme::grid, 0.0);
    label_title_->setPos(plotArea().center().x() - size.width() / 2,
                         this->size().height() - size.height());
    notes_title_->setPos(theme::grid, plotArea().bottom() + line_height() * 1.5);
}

}  // namespace kelvar
