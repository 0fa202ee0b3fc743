#include "widgets/bar_chart.h"

#include <algorithm>

#include "widgets/chart_drawing.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr double group_width = 0.8;  // share of a label's room that its bars take
constexpr double small_font = 0.85;  // of the values above the bars, on a screen

class BarDrawing : public ChartDrawing {
public:
    BarDrawing(const ChartData& data, const ChartLook& look)
        : ChartDrawing(data, look, 0),
          sets_(static_cast<int>(data.sets.size())),
          values_at_ends_(look.values_at_ends),
          paper_(look.paper),
          turned_(look.turn_values_beyond > 0 && data.labels.size() * sets_ > look.turn_values_beyond) {
        for (std::size_t set = 0; set < data.sets.size(); ++set) {
            add_bars(set, look);
        }
        if (turned_) {
            add_room_above(3);
        }
        chosen_value_ = add_value(look);
        chosen_value_->setLayer(u"overlay"_s);
        chosen_value_->setBrush(look.paper);
        chosen_value_->setPen(look.lines);
        chosen_value_->setPadding({3, 0, 3, 0});
    }

    void mark(const ChartPoint* point) override {
        for (int set = 0; set < sets_; ++set) {
            plottable(set)->setSelection(QCPDataSelection());
        }
        chosen_ = point == nullptr ? std::nullopt : std::optional(*point);
        if (point != nullptr) {
            chosen_value_->setText(short_text(value_of(*point), data().unit));
            const int bar = static_cast<int>(point->label);
            plottable(static_cast<int>(point->set))->setSelection(QCPDataSelection({bar, bar + 1}));
        }
    }

    // Sideways: the bar is meant in whose column the spot lies.
    double distance(const ChartPoint& point, const QPointF& spot) const override {
        return std::abs(xAxis->coordToPixel(middle(point)) - spot.x());
    }

protected:
    // Values stand above their bars when all of them fit beside each other, if need be turned to read
    // upwards; else that of the chosen bar alone, over the bars beside it and inside the axes.
    void fit_sets() override {
        const double room = slot() * group_width / sets_;
        const bool fit = std::ranges::all_of(values_, [&](const QCPItemText* value) {
            const QFontMetricsF metrics(value->font());
            return turned_ ? metrics.height() <= room
                           : metrics.horizontalAdvance(value->text()) + gap <= room;
        });
        for (QCPItemText* value : values_) {
            value->setVisible(fit);
        }
        if (values_at_ends_ && !fit) {
            show_values_at_ends();
        }
        chosen_value_->setVisible(chosen_ && !fit);
        if (chosen_) {
            put_above(chosen_value_, *chosen_);
        }
    }

private:
    // Inside the axes. Returns the place of its text, not turned.
    QRectF put_above(QCPItemText* value, const ChartPoint& bar) const {
        const QFontMetricsF metrics(value->font());
        const QRectF plot = axisRect()->rect();
        const double width = metrics.horizontalAdvance(value->text());
        const double middle_there = xAxis->coordToPixel(middle(bar));
        const double place =
            std::max(plot.left() + width / 2.0, std::min(middle_there, plot.right() - width / 2.0));
        const double above = yAxis->coordToPixel(value_of(bar)) - gap / 2.0;
        value->position->setPixelPosition({place, above});
        return {place - width / 2.0, above - metrics.height(), width, metrics.height()};
    }

    // Of the first set. They read upwards where a bar beside them is higher. Where two would touch, the
    // one that is named first stays.
    void show_values_at_ends() {
        const std::size_t count = data().labels.size();
        std::vector<QRectF> taken;
        for (const std::size_t label : {std::size_t{0}, count - 1, std::size_t{1} % count}) {
            QCPItemText* value = values_[label];
            QRectF place = put_above(value, {0, label});
            const bool upwards = hides_a_bar(place, label);
            if (upwards) {
                const QPointF foot(xAxis->coordToPixel(middle({0, label})), place.bottom());
                value->position->setPixelPosition(foot);
                place = {foot.x() - place.height() / 2.0, foot.y() - place.width(), place.height(),
                         place.width()};
            }
            value->setBrush(upwards ? QBrush(Qt::NoBrush) : paper_);  // over the lines of the grid
            value->setRotation(upwards ? -90.0 : 0.0);
            value->setPositionAlignment(upwards ? Qt::AlignLeft | Qt::AlignVCenter
                                                : Qt::AlignHCenter | Qt::AlignBottom);
            value->setVisible(std::ranges::none_of(taken, [&](const QRectF& other) {
                return other.adjusted(-gap, 0.0, gap, 0.0).intersects(place);
            }));
            taken.push_back(place);
        }
    }
    bool hides_a_bar(const QRectF& place, std::size_t but) const {
        for (std::size_t label = 0; label < data().sets.front().values.size(); ++label) {
            const double half = group_width * slot() / 2.0;
            const double x = xAxis->coordToPixel(static_cast<double>(label));
            const bool beside = x + half < place.left() || x - half > place.right();
            if (label != but && !beside && yAxis->coordToPixel(value_of({0, label})) < place.bottom()) {
                return true;
            }
        }
        return false;
    }

    double middle(const ChartPoint& bar) const {
        const double beside = (static_cast<double>(bar.set) + 0.5) / sets_ - 0.5;
        return static_cast<double>(bar.label) + group_width * beside;
    }

    // The first set is drawn solid, the second hatched, so that they differ without colour too.
    void add_bars(std::size_t set, const ChartLook& look) {
        auto* bars = new QCPBars(xAxis, yAxis);  // owned by the drawing, like all that it draws
        bars->setName(data().sets[set].name);
        bars->setWidth(group_width / sets_);
        const Qt::BrushStyle pattern = set == 0 ? Qt::SolidPattern : Qt::BDiagPattern;
        bars->setPen(QPen(look.sets.front(), 1.5));
        bars->setBrush(QBrush(look.sets.front(), pattern));
        bars->setSelectable(QCP::stSingleData);
        bars->selectionDecorator()->setPen(QPen(look.chosen, 2.5));
        bars->selectionDecorator()->setBrush(QBrush(look.chosen, pattern));
        for (std::size_t label = 0; label < data().sets[set].values.size(); ++label) {
            const ChartPoint bar{set, label};
            bars->addData(middle(bar), value_of(bar));
            QCPItemText* value = add_value(look);
            value->setText(short_text(value_of(bar), data().unit));
            value->position->setCoords(middle(bar), value_of(bar));
            values_.push_back(value);
        }
    }

    QCPItemText* add_value(const ChartLook& look) {
        QFont font = look.font;
        font.setPointSizeF(font.pointSizeF() * (values_at_ends_ ? 1.0 : small_font));
        QCPItemText* text = add_text({}, font);
        text->setRotation(turned_ ? -90.0 : 0.0);
        text->setPositionAlignment(turned_ ? Qt::AlignLeft | Qt::AlignVCenter
                                           : Qt::AlignHCenter | Qt::AlignBottom);
        text->setPadding(turned_ ? QMargins(3, 0, 0, 0) : QMargins(0, 0, 0, 2));
        return text;
    }

    int sets_;
    bool values_at_ends_;
    QBrush paper_;
    bool turned_;  // the values
    std::vector<QCPItemText*> values_;
    std::optional<ChartPoint> chosen_;
    QCPItemText* chosen_value_;
};

}  // namespace

std::unique_ptr<ChartDrawing> BarChart::new_drawing(const ChartLook& look) const {
    return std::make_unique<BarDrawing>(data(), look);
}

void BarChart::choose(int label) {
    go_on_from(label * static_cast<int>(data().sets.size()));
}

QString BarChart::sentence(int place) const {
    return label_of(place) + u": "_s + data().sets[point(place).set].name +
           (data().unit == ChartUnit::dollars ? u" "_s : u": "_s) +
           full_text(value_of(place), data().unit);
}

std::optional<int> BarChart::place_after(int key) const {
    switch (key) {
        case Qt::Key_Left:
            return selected() - 1;
        case Qt::Key_Right:
            return selected() + 1;
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return places() - 1;
        default:
            return {};
    }
}

}  // namespace kelvar
