#include "widgets/bar_chart.h"

#include <QAccessible>
#include <QChartView>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "widgets/accessible_bar_chart.h"
#include "widgets/controls.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// Black on white with a grid that survives a copier, whatever the screen's colours are.
BarChartDrawing::Look paper_look(QFont font) {
    font.setPointSizeF(11.0);  // also where the screen's texts are larger
    return {.font = font,
            .paper = Qt::white,
            .text = Qt::black,
            .lines = QColor(0xb0, 0xb0, 0xb0),
            .bars = QColor(0x17, 0x40, 0x5f),
            .turn_values_beyond = 8};  // nobody can point at a bar on paper
}

}  // namespace

BarChart::BarChart(const char* name, const QString& accessible_name)
    : drawing_(new BarChartDrawing({.font = font(),
                                    .paper = palette().color(QPalette::Base),
                                    .text = palette().color(QPalette::WindowText),
                                    .lines = theme::colors().border,
                                    .bars = theme::colors().accent,
                                    .most_steps = theme::large_text() ? 4 : 8})),
      view_(new QChartView(drawing_)),
      readout_(theme::label({}, theme::Role::value, "lblreadout")),
      legend_(new QWidget) {
    make_bar_charts_accessible();
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(accessible_name);
    setFocusPolicy(Qt::StrongFocus);
    view_->setRenderHint(QPainter::Antialiasing);
    view_->setFocusPolicy(Qt::NoFocus);
    view_->setFrameShape(QFrame::NoFrame);
    view_->viewport()->setMouseTracking(true);
    view_->viewport()->installEventFilter(this);
    setMinimumHeight((theme::large_text() ? 12 : 16) * fontMetrics().height());
    readout_->setAlignment(Qt::AlignCenter);
    readout_->setWordWrap(true);
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

void BarChart::show_bars(const BarData& bars) {
    data_ = bars;
    if (data_.whole.isEmpty()) {
        data_.whole = accessibleName();
    }
    drawing_->draw(bars);
    const int titles = (bars.value_title.isEmpty() ? 0 : 1) + (bars.label_title.isEmpty() ? 0 : 1);
    setMinimumHeight(minimumHeight() + titles * fontMetrics().height());
    legend_->setVisible(bars.sets.size() > 1);
    for (std::size_t set = 0; set < bars.sets.size(); ++set) {
        add_legend_key(set);
    }
    say();
}

void BarChart::add_legend_key(std::size_t set) {
    auto* picture = new QLabel;
    picture->setPixmap(theme::legend_key(set == 0 ? Qt::SolidPattern : Qt::BDiagPattern));
    auto* entry = new QHBoxLayout;
    entry->addWidget(picture);
    entry->addWidget(theme::label(data_.sets[set].name, theme::Role::body));
    entry->addStretch(1);
    auto* keys = static_cast<QBoxLayout*>(legend_->layout());
    keys->addLayout(entry);
    keys->addStretch(1);
}

void BarChart::paint_on_paper(QPainter& painter, const QRectF& area) const {
    constexpr double width = 900.0;  // how large the texts are beside the bars
    QGraphicsScene scene;
    auto* drawing = new BarChartDrawing(paper_look(font()));
    scene.addItem(drawing);
    drawing->draw(data_);
    drawing->resize(width, width * area.height() / area.width());
    drawing->layout()->activate();
    scene.render(&painter, area, drawing->boundingRect());
}

void BarChart::select(int place) {
    if (drawing_->places() == 0) {
        return;
    }
    selected_ = std::clamp(place, 0, drawing_->places() - 1);
    say_selected();
}

void BarChart::choose(int label) {
    selected_ = label * static_cast<int>(data_.sets.size());
    say();
}

void BarChart::say() {
    if (hasFocus()) {
        say_selected();
    } else {
        say_whole();
    }
}

bool BarChart::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        const QPoint point = static_cast<QMouseEvent*>(event)->pos();
        const int place = drawing_->place_at(drawing_->mapFromScene(view_->mapToScene(point)));
        if (place < 0) {
            say();
        } else if (readout_->text() != sentence(place)) {
            select(place);
        }
    } else if (event->type() == QEvent::Leave) {
        say();
    }
    return QWidget::eventFilter(watched, event);
}

void BarChart::say_whole() {
    drawing_->mark(-1);
    readout_->setText(data_.whole);
    setAccessibleDescription(data_.whole);
}

void BarChart::say_selected() {
    if (drawing_->places() == 0) {
        return;
    }
    drawing_->mark(selected_);
    readout_->setText(sentence(selected_));
    setAccessibleDescription(sentence(selected_));
    if (hasFocus()) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(selected_);
        QAccessible::updateAccessibility(&event);
    }
}

QString BarChart::sentence(int bar) const {
    const std::size_t place = static_cast<std::size_t>(bar);
    const BarSet& set = data_.sets[place % data_.sets.size()];
    const std::size_t label = place / data_.sets.size();
    return data_.labels.at(static_cast<qsizetype>(label)) + u": "_s + set.name +
           (data_.unit == BarUnit::dollars ? u" "_s : u": "_s) +
           full_text(set.values[label], data_.unit);
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
            select(drawing_->places() - 1);
            break;
        default:
            QWidget::keyPressEvent(event);
            break;
    }
}

void BarChart::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    say();
}

void BarChart::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    say();
}

}  // namespace kelvar
