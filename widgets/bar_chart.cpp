#include "widgets/bar_chart.h"

#include <algorithm>

#include "widgets/chart_drawing.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr double group_width = 0.8;  // share of a label's room that its bars take
constexpr double small_font = 0.85;  // of the values above the bars

class BarDrawing : public ChartDrawing {
public:
    BarDrawing(const ChartData& data, const ChartLook& look)
        : ChartDrawing(data, look, 0),
          sets_(static_cast<int>(data.sets.size())),
          turned_(look.turn_values_beyond > 0 && data.labels.size() * sets_ > look.turn_values_beyond) {
        for (std::size_t set = 0; set < data.sets.size(); ++set) {
            add_bars(set, look);
        }
        if (turned_) {
            add_room_above(3);
        }
    }

    void mark(const ChartPoint* point) override {
        for (int set = 0; set < sets_; ++set) {
            plottable(set)->setSelection(QCPDataSelection());
        }
        if (point != nullptr) {
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
    // upwards.
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
    }

private:
    double middle(const ChartPoint& bar) const {
        const double beside = (static_cast<double>(bar.set) + 0.5) / sets_ - 0.5;
        return static_cast<double>(bar.label) + group_width * beside;
    }

    // The first set is drawn solid, the second hatched, so that they differ without colour too.
    void add_bars(std::size_t set, const ChartLook& look) {
        auto* bars = new QCPBars(xAxis, yAxis);  // owned by the drawing, like all that it draws
        bars->setName(data().sets[set].name);
        bars->setWidth(group_width / sets_);
        bars->setPen(QPen(look.sets, 1.5));
        bars->setBrush(QBrush(look.sets, set == 0 ? Qt::SolidPattern : Qt::BDiagPattern));
        bars->setSelectable(QCP::stSingleData);
        bars->selectionDecorator()->setPen(bars->pen());
        bars->selectionDecorator()->setBrush(look.text);
        for (std::size_t label = 0; label < data().sets[set].values.size(); ++label) {
            const double value = data().sets[set].values[label];
            bars->addData(middle({set, label}), value);
            add_text_above(middle({set, label}), value, look);
        }
    }

    void add_text_above(double place, double value, const ChartLook& look) {
        QFont font = look.font;
        font.setPointSizeF(font.pointSizeF() * small_font);
        QCPItemText* text = add_text(short_text(value, data().unit), font);
        text->position->setCoords(place, value);
        text->setRotation(turned_ ? -90.0 : 0.0);
        text->setPositionAlignment(turned_ ? Qt::AlignLeft | Qt::AlignVCenter
                                           : Qt::AlignHCenter | Qt::AlignBottom);
        text->setPadding(turned_ ? QMargins(3, 0, 0, 0) : QMargins(0, 0, 0, 2));
        values_.push_back(text);
    }

    int sets_;
    bool turned_;  // the values
    std::vector<QCPItemText*> values_;
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
