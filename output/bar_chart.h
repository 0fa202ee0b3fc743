// A bar chart on a screen: arrow keys or the pointer say each bar in words below it.
#pragma once

#include <QWidget>

#include "output/bar_drawing.h"

class QLabel;
class QPainter;

namespace kelvar {

class BarChart : public QWidget {
    Q_OBJECT

public:
    BarChart(const char* name, const QString& accessible_name);

    // Called once.
    void show_bars(const BarData& bars);
    // Draws the same bars as they look best on paper.
    void paint_on_paper(QPainter& painter, const QRectF& area) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void add_legend_key(std::size_t set);
    void select(int place);
    void say_selected();

    BarData data_;
    BarDrawing* drawing_ = nullptr;
    QLabel* readout_ = nullptr;
    QWidget* legend_ = nullptr;
    int selected_ = 0;
};

}  // namespace kelvar
