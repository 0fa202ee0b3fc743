// A bar chart on a screen: arrow keys or the pointer say each bar in words below it, and to screen
// readers; without focus and pointer the words are on the chart as a whole.
#pragma once

#include <QWidget>

#include "widgets/bar_chart_drawing.h"

class QChartView;
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

    // Bars are counted by label, then by set.
    int bars() const { return drawing_->places(); }
    int selected() const { return selected_; }
    // What a bar shows, such as "2021: Total paid $9,036.72".
    QString sentence(int bar) const;

    // The arrow keys go on from the first bar of this label; with the focus it is said at once.
    void choose(int label);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void add_legend_key(std::size_t set);
    void select(int place);
    void say();
    void say_selected();
    void say_whole();

    BarData data_;
    BarChartDrawing* drawing_ = nullptr;
    QChartView* view_ = nullptr;
    QLabel* readout_ = nullptr;
    QWidget* legend_ = nullptr;
    int selected_ = 0;
};

}  // namespace kelvar
