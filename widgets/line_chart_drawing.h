// The drawing of a line chart: a line per set over the labels. Lines differ by dashes and markers, so
// they are told apart without colour.
#pragma once

#include "widgets/chart_drawing.h"

class QGraphicsPathItem;

namespace kelvar {

class LineChartDrawing : public ChartDrawing {
    Q_OBJECT

public:
    explicit LineChartDrawing(const Look& look) : ChartDrawing(look) {}

    // This line is drawn stronger than the others; -1 none.
    void emphasise(int set);
    // The place of a set's value, or of its last one where it has none for that label.
    int place(std::size_t set, std::size_t label) const;

    // Places count the values by set, then by label.
    int places() const override;
    Point point(int place) const override;
    void mark(int place) override;
    // The nearest value.
    int place_at(const QPointF& spot) const override;
    QGraphicsItem* new_key(std::size_t set) const override;

protected:
    void add_sets() override;
    void place_sets() override;

private:
    struct Line {
        QGraphicsPathItem* line;
        QGraphicsPathItem* markers;
    };

    QPointF spot_of(const Point& point) const;
    void place_markers(std::size_t set);

    std::vector<Line> lines_;
    QGraphicsPathItem* mark_ = nullptr;
    int marked_ = -1;
};

}  // namespace kelvar
