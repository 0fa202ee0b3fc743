#include "output/bar_chart.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QCategoryAxis>
#include <QChart>
#include <QChartView>
#include <QGraphicsLayout>
#include <QGraphicsSimpleTextItem>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "core/numbers.h"
#include "shell/screen.h"
#include "shell/text.h"
#include "shell/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr double bar_width = 0.8;    // share of a label's room that its bars take
constexpr double small_font = 0.85;  // of the values above the bars

}  // namespace

BarChart::BarChart(const char* name, const QString& accessible_name, Unit unit)
    : unit_(unit),
      chart_(new QChart),
      view_(new QChartView(chart_)),
      series_(new QBarSeries),
      label_axis_(new QBarCategoryAxis),
      value_axis_(new QCategoryAxis),
      readout_(theme::label({}, theme::Role::value)),
      legend_(new QWidget) {
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(accessible_name);
    setFocusPolicy(Qt::StrongFocus);
    const QColor text = palette().color(QPalette::WindowText);
    chart_->legend()->hide();
    // Room for half a line above the highest tick and half a label beside the outer ones.
    chart_->setMargins({theme::grid, fontMetrics().height(), theme::grid, 0});
    chart_->layout()->setContentsMargins(0, 0, 0, 0);
    chart_->setBackgroundBrush(palette().base());
    chart_->setBackgroundRoundness(0);
    chart_->addSeries(series_);
    series_->setBarWidth(bar_width);
    value_axis_->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    value_axis_->setGridLineColor(theme::colors().border);
    label_axis_->setGridLineVisible(false);
    for (QAbstractAxis* axis : std::initializer_list<QAbstractAxis*>{label_axis_, value_axis_}) {
        axis->setLabelsColor(text);
        axis->setLabelsFont(font());
        axis->setLinePenColor(theme::colors().border);
    }
    chart_->addAxis(label_axis_, Qt::AlignBottom);
    chart_->addAxis(value_axis_, Qt::AlignLeft);
    series_->attachAxis(label_axis_);
    series_->attachAxis(value_axis_);
    connect(chart_, &QChart::plotAreaChanged, this, [this] { place_value_texts(); });

    view_->setRenderHint(QPainter::Antialiasing);
    view_->setFocusPolicy(Qt::NoFocus);
    view_->setFrameShape(QFrame::NoFrame);
    setMinimumHeight(16 * fontMetrics().height());
    readout_->setAlignment(Qt::AlignCenter);
    readout_->setWordWrap(true);
    readout_->setObjectName(u"lblreadout"_s);
    QBoxLayout* keys = control::row();
    legend_->setLayout(keys);
    keys->setContentsMargins(0, 0, 0, 0);
    keys->addStretch(1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(theme::grid, theme::grid, theme::grid, theme::grid);
    column->setSpacing(theme::grid / 2);
    column->addWidget(legend_);
    column->addWidget(view_, 1);
    column->addWidget(readout_);
}

void BarChart::show_bars(const QStringList& labels, const std::vector<Set>& sets, double upper) {
    label_axis_->setCategories(labels);
    set_ticks(upper);
    for (const Set& set : sets) {
        add_set(set);
    }
    QFont value_font = font();
    value_font.setPointSizeF(font().pointSizeF() * small_font);
    for (qsizetype label = 0; label < labels.size(); ++label) {
        for (const Set& set : sets) {
            const double value = set.values[static_cast<std::size_t>(label)];
            auto* text = new QGraphicsSimpleTextItem(short_text(value), chart_);
            text->setFont(value_font);
            text->setBrush(palette().windowText());
            text->setZValue(20);
            value_texts_.push_back(text);
        }
    }
    selected_ = 0;
    place_value_texts();
    say_selected();
}

// The bounds are among the ticks.
void BarChart::set_ticks(double upper) {
    constexpr int steps = 5;
    value_axis_->setRange(0.0, upper);
    for (int step = 0; step <= steps; ++step) {
        const double value = upper * step / steps;
        value_axis_->append(short_text(value), value);
    }
}

QString BarChart::short_text(double value) const {
    return to_qt(format_number(value, unit_ == Unit::dollars ? "$###,###,##0" : "##0"));
}

QString BarChart::full_text(double value) const {
    return unit_ == Unit::dollars ? to_qt(format_number(value, "$###,###,##0.00"))
                                  : short_text(value) + u" years"_s;
}

void BarChart::add_set(const Set& set) {
    const bool second = !series_->barSets().isEmpty();
    auto* bars = new QBarSet(set.name);
    for (const double value : set.values) {
        bars->append(value);
    }
    const QColor accent = theme::colors().accent;
    bars->setBrush(second ? QBrush(accent, Qt::BDiagPattern) : QBrush(accent));
    bars->setPen(QPen(accent, 1.5));
    bars->setSelectedColor(palette().color(QPalette::WindowText));
    series_->append(bars);
    const int number = static_cast<int>(series_->barSets().size()) - 1;
    connect(bars, &QBarSet::hovered, this, [this, number](bool inside, int label) {
        if (inside) {
            select(label * static_cast<int>(series_->count()) + number);
        }
    });
    add_legend_key(*bars);
}

void BarChart::add_legend_key(const QBarSet& set) {
    const int side = 2 * theme::grid;
    QPixmap key(side, side);
    key.fill(palette().color(QPalette::Base));
    QPainter painter(&key);
    painter.setPen(set.pen());
    painter.setBrush(set.brush());
    painter.drawRect(1, 1, side - 3, side - 3);
    painter.end();
    auto* picture = new QLabel;
    picture->setPixmap(key);
    auto* entry = new QHBoxLayout;
    entry->addWidget(picture);
    entry->addWidget(theme::label(set.label(), theme::Role::body));
    entry->addStretch(1);
    auto* keys = static_cast<QBoxLayout*>(legend_->layout());
    keys->addLayout(entry);
    keys->addStretch(1);
}

void BarChart::select(int place) {
    if (value_texts_.empty()) {
        return;
    }
    selected_ = std::clamp(place, 0, static_cast<int>(value_texts_.size()) - 1);
    say_selected();
}

void BarChart::say_selected() {
    const int sets = static_cast<int>(series_->count());
    if (sets == 0 || value_texts_.empty()) {
        return;
    }
    const int label = selected_ / sets;
    for (QBarSet* set : series_->barSets()) {
        set->deselectAllBars();
    }
    QBarSet* set = series_->barSets().at(selected_ % sets);
    if (hasFocus()) {
        set->selectBar(label);
    }
    const QString sentence = label_axis_->at(label) + u": "_s + set->label() +
                             (unit_ == Unit::dollars ? u" "_s : u": "_s) + full_text(set->at(label));
    readout_->setText(sentence);
    setAccessibleDescription(sentence);
}

// The values stand above their bars where they fit beside each other.
void BarChart::place_value_texts() {
    const int sets = static_cast<int>(series_->count());
    if (sets == 0 || label_axis_->count() == 0) {
        return;
    }
    const double room = chart_->plotArea().width() / label_axis_->count() * bar_width / sets;
    const bool fits = std::ranges::all_of(value_texts_, [&](const QGraphicsSimpleTextItem* text) {
        return text->boundingRect().width() + theme::grid <= room;
    });
    for (std::size_t place = 0; place < value_texts_.size(); ++place) {
        QGraphicsSimpleTextItem* text = value_texts_[place];
        const int set = static_cast<int>(place) % sets;
        const int label = static_cast<int>(place) / sets;
        const double x = label - bar_width / 2 + bar_width * (set + 0.5) / sets;
        const QPointF top = chart_->mapToPosition({x, series_->barSets().at(set)->at(label)}, series_);
        const QSizeF size = text->boundingRect().size();
        text->setPos(top.x() - size.width() / 2,
                     std::max(chart_->plotArea().top() - size.height(), top.y() - size.height() - 2));
        text->setVisible(fits);
    }
}

void BarChart::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            select(selected_ - 1);
            break;
        case Qt::Key_Right:
            select(selected_ + 1);
            break;
        case Qt::Key_Home:
            select(0);
            break;
        case Qt::Key_End:
            select(static_cast<int>(value_texts_.size()) - 1);
            break;
        default:
            QWidget::keyPressEvent(event);
            break;
    }
}

void BarChart::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    say_selected();
}

void BarChart::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    say_selected();
}

}  // namespace kelvar
