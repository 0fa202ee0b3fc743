// A bar chart over a value axis from 0: one group of bars per label, one bar per set in each group.
// Values stand above the bars where there is room; arrow keys or the pointer say each one in words.
#pragma once

#include <QStringList>
#include <QWidget>
#include <vector>

class QBarCategoryAxis;
class QBarSeries;
class QBarSet;
class QCategoryAxis;
class QChart;
class QChartView;
class QGraphicsSimpleTextItem;
class QLabel;

namespace kelvar {

class BarChart : public QWidget {
    Q_OBJECT

public:
    struct Set {
        QString name;
        std::vector<double> values;  // one per label
    };

    enum class Unit { dollars, years };

    BarChart(const char* name, const QString& accessible_name, Unit unit = Unit::dollars);

    // Called once. `upper` is the upper bound of the axis. The first set is drawn solid, the
    // second hatched, so that they differ without colour too.
    void show_bars(const QStringList& labels, const std::vector<Set>& sets, double upper);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void add_set(const Set& set);
    void add_legend_key(const QBarSet& set);
    void select(int place);
    void say_selected();
    void place_value_texts();
    void set_ticks(double upper);
    QString short_text(double value) const;  // on the axis and above the bars
    QString full_text(double value) const;   // in words below the chart

    Unit unit_;
    QChart* chart_ = nullptr;
    QChartView* view_ = nullptr;
    QBarSeries* series_ = nullptr;
    QBarCategoryAxis* label_axis_ = nullptr;
    QCategoryAxis* value_axis_ = nullptr;
    QLabel* readout_ = nullptr;
    QWidget* legend_ = nullptr;
    std::vector<QGraphicsSimpleTextItem*> value_texts_;  // by label, then by set
    int selected_ = 0;                                   // place in the same order
};

}  // namespace kelvar
