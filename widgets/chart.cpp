#include "widgets/chart.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

#include "widgets/accessible.h"
#include "widgets/chart_drawing.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

ChartLook screen_look(const QWidget& chart) {
    return {.font = chart.font(),
            .paper = theme::colors().card,
            .text = theme::colors().text,
            .lines = theme::colors().border,
            .sets = theme::colors().lines,
            .chosen = theme::colors().chosen,
            .most_steps = theme::large_text() ? 4 : 8,
            .names_ends = true};
}

// Black on white with a grid that survives a copier, whatever the screen's colours are.
ChartLook paper_look(bool low) {
    const QColor ink(0x17, 0x40, 0x5f);
    return {.font = theme::paper_font(11.0),
            .paper = Qt::white,
            .text = Qt::black,
            .lines = QColor(0xb0, 0xb0, 0xb0),
            .sets = {ink, ink, ink, ink},
            .most_steps = low ? 4 : 8,
            .turn_values_beyond = low ? 0 : 8,  // nobody can point at a bar on paper
            .values_at_ends = true};
}

}  // namespace

Chart::Chart(const char* name, const QString& accessible_name)
    : readout_(theme::label({}, theme::Role::value, "lblreadout")) {
    make_charts_accessible();
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(accessible_name);
    setAttribute(Qt::WA_StyledBackground);  // a card
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    readout_->setAttribute(Qt::WA_TransparentForMouseEvents);
    readout_->setAlignment(Qt::AlignCenter);
    readout_->setWordWrap(true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(theme::grid, theme::grid, theme::grid, theme::grid);
    column->setSpacing(theme::grid / 2);
    column->addWidget(readout_);
}

Chart::~Chart() = default;

void Chart::show_data(const ChartData& data, Order order) {
    const QString selected = places() == 0 ? QString() : label_of(selected_);
    data_ = data;
    points_.clear();
    for (std::size_t set = 0; set < data.sets.size(); ++set) {
        for (std::size_t label = 0; label < data.sets[set].values.size(); ++label) {
            points_.push_back({set, label});
        }
    }
    if (order == Order::by_label) {
        std::ranges::stable_sort(points_, {}, &ChartPoint::label);
    }
    if (data_.whole.isEmpty()) {
        data_.whole = accessibleName();
    }
    const int lines = (theme::large_text() ? 12 : 16) + (data.value_title.isEmpty() ? 0 : 1) +
                      (data.label_title.isEmpty() ? 0 : 1) + (data.notes.isEmpty() ? 0 : 1);
    setMinimumHeight(lines * fontMetrics().height());
    drawing_ = new_drawing(screen_look(*this));
    static_cast<QBoxLayout*>(layout())->insertWidget(0, drawing_.get(), 1);
    int place = 0;
    while (place < places() && label_of(place) != selected) {
        ++place;
    }
    go_on_from(place < places() ? place : 0);
}

void Chart::paint_on_paper(QPainter& painter, const QRectF& area, double width) const {
    constexpr double low_below = 300.0;
    const double height = area.height() / area.width() * width;
    new_drawing(paper_look(height < low_below))->paint(painter, area, qRound(width));
}

QString Chart::detail(int place) const {
    const QString note = data_.notes.value(static_cast<qsizetype>(point(place).label));
    return note.isEmpty() ? QString() : data_.notes_title + u' ' + note;
}

void Chart::go_on_from(int place) {
    selected_ = std::clamp(place, 0, std::max(0, places() - 1));
    say_selected();
}

void Chart::say(int place) {
    const bool whole = place < 0 || place >= places();
    const QString words = whole ? data_.whole : sentence(place);
    readout_->setText(words);
    setAccessibleDescription(words);
    if (drawing_ != nullptr) {
        drawing_->mark(whole ? nullptr : &point(place));
        drawing_->replot(QCustomPlot::rpQueuedReplot);
    }
    if (hasFocus() && !whole) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(place);
        QAccessible::updateAccessibility(&event);
    }
}

// The nearest one inside the axes.
int Chart::place_at(const QPoint& spot) const {
    int nearest = no_place;
    double least = std::numeric_limits<double>::max();
    const bool inside = drawing_ != nullptr && drawing_->axisRect()->rect().contains(spot);
    for (int place = 0; inside && place < places(); ++place) {
        const double distance = drawing_->distance(point(place), spot);
        if (distance < least) {
            least = distance;
            nearest = place;
        }
    }
    return nearest;
}

void Chart::mouseMoveEvent(QMouseEvent* event) {
    const int place = drawing_ == nullptr ? no_place : place_at(drawing_->mapFrom(this, event->pos()));
    if (place == no_place) {
        say_selected();
    } else if (readout_->text() != sentence(place)) {
        selected_ = place;
        say(place);
    }
}

void Chart::leaveEvent(QEvent*) {
    say_selected();
}

void Chart::keyPressEvent(QKeyEvent* event) {
    const std::optional<int> place = places() == 0 ? std::nullopt : place_after(event->key());
    if (place) {
        go_on_from(*place);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void Chart::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    say_selected();
}

void Chart::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    say_selected();
}

}  // namespace kelvar
