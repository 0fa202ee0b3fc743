#include "widgets/chart_drawing.h"

#include <QPicture>
#include <algorithm>
#include <cmath>
#include <limits>

#include "core/numbers.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

double tick_step(double bound, int most) {
    for (double power = 1.0;; power *= 10.0) {
        for (const double step : {1.0 * power, 2.0 * power, 2.5 * power, 5.0 * power}) {
            if (step == std::floor(step) && !(bound > step * most)) {
                return step;
            }
        }
    }
}

QString short_text(double value, ChartUnit unit) {
    return to_qt(
        format_number(value, unit == ChartUnit::dollars ? pattern::whole_dollars : pattern::whole));
}

QString full_text(double value, ChartUnit unit) {
    return unit == ChartUnit::dollars ? to_qt(format_number(value, pattern::dollars))
                                      : short_text(value, unit) + u" years"_s;
}

ChartDrawing::ChartDrawing(const ChartData& data, const ChartLook& look, int key_width)
    : data_(data), look_(look), labels_(new QCPAxisTickerText), ticks_(new QCPAxisTickerText) {
    setAttribute(Qt::WA_TransparentForMouseEvents);  // the chart reads the pointer, the page scrolls
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setBackground(look.paper);
    setAutoAddPlottableToLegend(data.sets.size() > 1);
    plotLayout()->setRowSpacing(0);
    set_up_axes();
    add_titles();
    if (data.sets.size() > 1) {
        add_legend(key_width);
    }
}

void ChartDrawing::set_up_axes() {
    const QFontMetrics metrics(look_.font);
    for (QCPAxis* axis : {xAxis, yAxis}) {
        axis->setTickLabelFont(look_.font);
        axis->setTickLabelColor(look_.text);
        axis->setBasePen(QPen(look_.lines));
        axis->setTickPen(QPen(look_.lines));
        axis->setTickLength(0);
        axis->setSubTicks(false);
    }
    xAxis->setTicker(labels_);
    xAxis->setRange(-0.5, static_cast<double>(data_.labels.size()) - 0.5);
    xAxis->setTickLabelPadding(metrics.height() / 2);  // below the text of the lowest tick
    xAxis->setPadding(0);
    xAxis->grid()->setVisible(false);
    place_ticks();
    yAxis->setTicker(ticks_);
    yAxis->setRange(0.0, data_.upper);
    yAxis->setTickLabelPadding(static_cast<int>(gap));
    yAxis->setPadding(theme::grid);
    yAxis->grid()->setPen(QPen(look_.lines));
    yAxis->grid()->setZeroLinePen(Qt::NoPen);
    const int label = data_.labels.isEmpty() ? 0 : metrics.horizontalAdvance(data_.labels.back());
    axisRect()->setMinimumMargins({0, 0, std::max(theme::grid, label / 2), 0});
    add_room_above(1);
}

void ChartDrawing::add_titles() {
    xAxis->setLabel(data_.label_title);
    xAxis->setLabelFont(look_.font);
    xAxis->setLabelColor(look_.text);
    if (!data_.value_title.isEmpty()) {
        auto* title = new QCPTextElement(this, data_.value_title, look_.font);
        title->setTextColor(look_.text);
        title->setTextFlags(Qt::AlignLeft | Qt::AlignVCenter);
        title->setMargins({theme::grid, 0, 0, 0});
        add_row_above(title);
    }
    if (!data_.notes.isEmpty()) {
        QCPItemText* title = add_text(data_.notes_title, look_.font);  // in their line, the lowest
        title->position->setType(QCPItemPosition::ptViewportRatio);
        title->position->setCoords(0.0, 1.0);
        title->setPositionAlignment(Qt::AlignLeft | Qt::AlignBottom);
        title->setPadding({theme::grid, 0, 0, 0});
    }
}

void ChartDrawing::add_legend(int key_width) {
    const int line = QFontMetrics(look_.font).height();
    legend->setVisible(true);
    legend->setBorderPen(Qt::NoPen);
    legend->setBrush(Qt::NoBrush);
    legend->setFont(look_.font);
    legend->setTextColor(look_.text);
    legend->setIconSize(std::max(key_width, line), line);
    add_row_above(legend);
}

void ChartDrawing::add_row_above(QCPLayoutElement* element) {
    plotLayout()->insertRow(0);
    plotLayout()->addElement(0, 0, element);
    plotLayout()->setRowStretchFactor(0, 0.001);  // no more than it needs
}

void ChartDrawing::add_room_above(int lines) {
    const int room = lines * QFontMetrics(look_.font).height();
    axisRect()->setMinimumMargins(axisRect()->minimumMargins() + QMargins(0, room, 0, 0));
}

QCPItemText* ChartDrawing::add_text(const QString& text, const QFont& font) {
    auto* item = new QCPItemText(this);  // owned by this, as every element of it
    item->setText(text);
    item->setFont(font);
    item->setColor(look_.text);
    item->setClipToAxisRect(false);
    return item;
}

double ChartDrawing::slot() const {
    return axisRect()->width() / xAxis->range().size();
}

// What fits is only known once the rest is laid out: labels by the width, the upper bound by the
// height.
void ChartDrawing::updateLayout() {
    int needed = 0;
    for (int set = 0; set < legend->itemCount(); ++set) {
        needed += legend->item(set)->minimumOuterSizeHint().width() + legend->columnSpacing();
    }
    legend->setFillOrder(needed > viewport().width() ? QCPLegend::foRowsFirst
                                                     : QCPLegend::foColumnsFirst);
    QCustomPlot::updateLayout();
    place_labels();
    QCustomPlot::updateLayout();
    place_ticks();
    fit_sets();
    QCustomPlot::updateLayout();
}

// Every label, or every second, fifth, tenth and so on, so that no number, all of one width, touches
// the next. A wide label of two words takes two lines; a note stands below its label.
void ChartDrawing::place_labels() {
    labels_->clear();
    const QFontMetricsF metrics(look_.font);
    const double number = metrics.horizontalAdvance(data_.labels.value(data_.labels.size() - 1)) + gap;
    // A label in words stands for itself; the steps are counted from the first number.
    const qsizetype first = data_.labels.value(0, u"0"_s).front().isDigit() ? 0 : 1;
    const double aside = look_.names_ends && first == 1 ? move_words_aside(number) : 0.0;
    qsizetype step = 1;
    for (const qsizetype larger : {2, 5, 10, 20, 50}) {
        if (number > slot() * static_cast<double>(step)) {
            step = larger;
        }
    }
    const auto middle_of = [this](double label) {
        return xAxis->coordToPixel(label) - axisRect()->left();
    };
    const qsizetype end = look_.names_ends ? data_.labels.size() - 1 : -1;
    const double free_until = end < 0 ? std::numeric_limits<double>::max()
                                      : middle_of(static_cast<double>(end)) - (number + gap) / 2.0;
    double free_from = -axisRect()->left();
    for (qsizetype label = 0; label < data_.labels.size(); ++label) {
        QString text = data_.labels[label];
        if (metrics.horizontalAdvance(text) + gap > slot()) {
            text.replace(u' ', u'\n');
        }
        const double half = metrics.size(0, text).width() / 2.0;
        const double place = label < first ? -aside : static_cast<double>(label);
        const double middle = middle_of(place);
        const bool counted = label < first || (label - first) % step == 0;
        const bool fits = middle - half >= free_from && middle + half <= free_until;
        if (label == end || (counted && fits)) {
            const QString note = data_.notes.value(label);
            labels_->addTick(place, note.isEmpty() ? text : text + u'\n' + note);
            free_from = middle + half + gap;
        }
    }
}

// So far, in labels, that words before numbers leave the first number its place; the axis begins there.
double ChartDrawing::move_words_aside(double number) {
    const double words =
        QFontMetricsF(look_.font).size(0, QString(data_.labels[0]).replace(u' ', u'\n')).width();
    const double apart = (words + gap + number) / 2.0;
    xAxis->setRangeLower(-0.5);
    if (apart <= slot()) {
        return 0.0;
    }
    const double width = axisRect()->width();
    const double aside = std::max(0.5, (apart * xAxis->range().upper - width) / (width - apart));
    xAxis->setRangeLower(-aside);
    return aside;
}

// Round steps, and the bound, which is named when there is room above the last of them, or in its
// place.
void ChartDrawing::place_ticks() {
    const double step = tick_step(data_.upper, look_.most_steps);
    ticks_->clear();
    for (double tick = 0.0; tick <= data_.upper; tick += step) {
        ticks_->addTick(tick, short_text(tick, data_.unit));
    }
    const double above_last = std::fmod(data_.upper, step);
    if (above_last > 0.0) {
        const double room = axisRect()->height() * above_last / data_.upper;
        const bool beside = room >= QFontMetricsF(look_.font).height();
        if (look_.names_ends && !beside) {
            ticks_->ticks().remove(ticks_->ticks().lastKey());
        }
        const bool named = look_.names_ends || beside;
        ticks_->addTick(data_.upper, named ? short_text(data_.upper, data_.unit) : QString());
    }
}

// A picture keeps lines and texts as such, and can be painted anywhere; then it is scaled by itself to
// the device's resolution.
void ChartDrawing::paint(QPainter& painter, const QRectF& area, int width) {
    const double scale = area.width() / width;
    QPicture picture;
    QCPPainter recorder(&picture);
    recorder.setMode(QCPPainter::pmVectorized);
    toPainter(&recorder, width, qRound(area.height() / scale));
    recorder.end();
    painter.save();
    painter.translate(area.topLeft());
    const double by_itself = 1.0 * painter.device()->logicalDpiX() / picture.logicalDpiX();
    painter.scale(scale / by_itself, scale / by_itself);
    painter.drawPicture(0, 0, picture);
    painter.restore();
}

}  // namespace kelvar
