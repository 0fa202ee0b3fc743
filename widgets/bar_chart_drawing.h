// The drawing of a bar chart: one group of bars per label. Values stand above the bars where there is
// room.
#pragma once

#include "widgets/chart_drawing.h"

class QBarSeries;

namespace kelvar {

class BarChartDrawing : public ChartDrawing {
    Q_OBJECT

public:
    explicit BarChartDrawing(const Look& look);

    // Places count the bars by label, then by set.
    int places() const override { return static_cast<int>(value_texts_.size()); }
    Point point(int place) const override;
    void mark(int place) override;
    // The bar in whose column the point lies.
    int place_at(const QPointF& spot) const override;
    QGraphicsItem* new_key(std::size_t set) const override;

protected:
    void add_sets() override;
    int lines_above() const override { return turned() ? 4 : 1; }
    void place_sets() override;

private:
    bool turned() const;  // the values above the bars
    QPointF bar_top(int place) const;

    QBarSeries* series_ = nullptr;
    std::vector<QGraphicsSimpleTextItem*> value_texts_;
};

}  // namespace kelvar
