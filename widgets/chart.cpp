#include "widgets/chart.h"

#include <QAccessible>
#include <QChartView>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QGraphicsSimpleTextItem>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "widgets/accessible_chart.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

ChartDrawing::Look screen_look(const QWidget& chart) {
    return {.font = chart.font(),
            .paper = chart.palette().color(QPalette::Base),
            .text = chart.palette().color(QPalette::WindowText),
            .lines = theme::colors().border,
            .sets = theme::colors().accent,
            .most_steps = theme::large_text() ? 4 : 8};
}

// Black on white with a grid that survives a copier, whatever the screen's colours are.
ChartDrawing::Look paper_look(QFont font, bool small) {
    font.setPointSizeF(11.0);  // also where the screen's texts are larger
    return {.font = font,
            .paper = Qt::white,
            .text = Qt::black,
            .lines = QColor(0xb0, 0xb0, 0xb0),
            .sets = QColor(0x17, 0x40, 0x5f),
            .most_steps = small ? 4 : 8,
            .turn_values_beyond = small ? 0 : 8};  // nobody can point at a bar on paper
}

QPixmap picture(QGraphicsItem* key, double density) {
    QGraphicsScene scene;
    scene.addItem(key);
    const QRectF area = scene.itemsBoundingRect();
    QPixmap pixmap((area.size() * density).toSize());
    pixmap.setDevicePixelRatio(density);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    scene.render(&painter, QRectF(QPointF(), area.size()), area);
    return pixmap;
}

// Keys and names of the sets in a row of this width; gives its height.
double add_legend(QGraphicsScene& scene, const ChartDrawing& drawing, const ChartData& data,
                  const QFont& font, double width) {
    const double slot = width / static_cast<double>(data.sets.size());
    double height = 0.0;
    for (std::size_t set = 0; set < data.sets.size(); ++set) {
        QGraphicsItem* key = drawing.new_key(set);
        scene.addItem(key);
        key->setPos(slot * static_cast<double>(set) + theme::grid, 0.0);
        auto* name = scene.addSimpleText(data.sets[set].name.trimmed(), font);
        const QRectF place =
            key->sceneBoundingRect() | key->mapRectToScene(key->childrenBoundingRect());
        name->setPos(place.right() + theme::grid, 0.0);
        height = std::max(height, name->boundingRect().height() + theme::grid);
        key->setY(name->boundingRect().height() / 2 - place.center().y());
    }
    return height;
}

}  // namespace

Chart::Chart(const char* name, const QString& accessible_name)
    : readout_(theme::label({}, theme::Role::value, "lblreadout")), column_(new QVBoxLayout(this)) {
    make_charts_accessible();
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(accessible_name);
    setFocusPolicy(Qt::StrongFocus);
    readout_->setAlignment(Qt::AlignCenter);
    readout_->setWordWrap(true);
    column_->setContentsMargins(theme::grid, theme::grid, theme::grid, theme::grid);
    column_->setSpacing(theme::grid / 2);
    column_->addWidget(readout_);
}

void Chart::show_data(const ChartData& data) {
    const QString selected = places() == 0 ? QString() : label_of(selected_);
    data_ = data;
    if (data_.whole.isEmpty()) {
        data_.whole = accessibleName();
    }
    const int lines = (theme::large_text() ? 12 : 16) + (data.value_title.isEmpty() ? 0 : 1) +
                      (data.label_title.isEmpty() ? 0 : 1) + (data.notes.isEmpty() ? 0 : 1);
    setMinimumHeight(lines * fontMetrics().height());
    show_drawing();
    show_legend();
    go_on_from(first_place_of(selected));
}

QString Chart::label_of(int place) const {
    return data_.labels.at(static_cast<qsizetype>(drawing_->point(place).label));
}

int Chart::first_place_of(const QString& label) const {
    int place = 0;
    while (place < places() && label_of(place) != label) {
        ++place;
    }
    return place < places() ? place : 0;
}

void Chart::show_drawing() {
    drawing_ = new_drawing(screen_look(*this));
    drawing_->draw(data_);
    if (view_ != nullptr) {
        const std::unique_ptr<QChart> before(view_->chart());
        view_->setChart(drawing_);
        return;
    }
    view_ = new QChartView(drawing_);
    view_->setRenderHint(QPainter::Antialiasing);
    view_->setFocusPolicy(Qt::NoFocus);
    view_->setFrameShape(QFrame::NoFrame);
    view_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);  // else never smaller than it was
    view_->viewport()->setMouseTracking(true);
    view_->viewport()->installEventFilter(this);
    column_->insertWidget(0, view_, 1);
}

void Chart::show_legend() {
    constexpr int always_there = 600;  // this width, also in the narrowest window
    delete legend_;
    legend_ = nullptr;
    if (data_.sets.size() < 2) {
        return;
    }
    legend_ = new QWidget;
    auto* keys = new QBoxLayout(QBoxLayout::LeftToRight, legend_);
    keys->setContentsMargins(0, 0, 0, 0);
    keys->addStretch(1);
    for (std::size_t set = 0; set < data_.sets.size(); ++set) {
        auto* key = new QLabel;
        key->setPixmap(picture(drawing_->new_key(set), devicePixelRatioF()));
        auto* entry = new QHBoxLayout;
        entry->addWidget(key);
        entry->addWidget(theme::label(data_.sets[set].name, theme::Role::body));
        entry->addStretch(1);
        keys->addLayout(entry);
        keys->addStretch(1);
    }
    if (legend_->sizeHint().width() > always_there) {
        keys->setDirection(QBoxLayout::TopToBottom);
    }
    column_->insertWidget(0, legend_);
}

void Chart::paint_on_paper(QPainter& painter, const QRectF& area, double width) const {
    constexpr double small_below = 600.0;
    const double height = width * area.height() / area.width();
    const ChartDrawing::Look look = paper_look(font(), width < small_below);
    QGraphicsScene scene;
    ChartDrawing* drawing = new_drawing(look);
    scene.addItem(drawing);
    drawing->draw(data_);
    const double top =
        data_.sets.size() < 2 ? 0.0 : add_legend(scene, *drawing, data_, look.font, width);
    drawing->setPos(0.0, top);
    drawing->resize(width, height - top);
    drawing->layout()->activate();
    scene.render(&painter, area, QRectF(0.0, 0.0, width, height));
}

QString Chart::detail(int place) const {
    const QString note = data_.notes.value(static_cast<qsizetype>(drawing_->point(place).label));
    return note.isEmpty() ? QString() : data_.notes_title + u' ' + note;
}

void Chart::select(int place) {
    if (places() > 0) {
        selected_ = std::clamp(place, 0, places() - 1);
        say_selected();
    }
}

void Chart::go_on_from(int place) {
    selected_ = std::clamp(place, 0, std::max(0, places() - 1));
    say();
}

void Chart::say() {
    if (hasFocus()) {
        say_selected();
    } else {
        say_whole();
    }
}

bool Chart::eventFilter(QObject* watched, QEvent* event) {
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

void Chart::say_whole() {
    if (drawing_ != nullptr) {
        drawing_->mark(-1);
    }
    readout_->setText(data_.whole);
    setAccessibleDescription(data_.whole);
}

void Chart::say_selected() {
    if (places() == 0) {
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

void Chart::keyPressEvent(QKeyEvent* event) {
    const std::optional<int> place = places() == 0 ? std::nullopt : place_after(event->key());
    if (place) {
        select(*place);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void Chart::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    say();
}

void Chart::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    say();
}

}  // namespace kelvar
