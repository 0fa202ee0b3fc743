// The drawing of a bar chart, for the screen and for paper: one group of bars per label over a value
// axis from 0. Values stand above the bars, and labels below them, where there is room.
#pragma once

#include <QChart>
#include <QFont>
#include <QStringList>
#include <vector>

class QBarCategoryAxis;
class QBarSeries;
class QBarSet;
class QCategoryAxis;
class QGraphicsSimpleTextItem;

namespace kelvar {

struct BarSet {
    QString name;
    std::vector<double> values;  // one per label
};

enum class BarUnit { dollars, years };

// What is drawn. `upper` is the upper bound of the axis, a whole number of at least 1.
struct BarData {
    QStringList labels;
    std::vector<BarSet> sets;
    double upper = 1.0;
    BarUnit unit = BarUnit::dollars;
    QString value_title{};  // above the value axis; may be empty
    QString label_title{};  // below the labels; may be empty
    QString whole{};        // the chart in one sentence; empty: its accessible name
};

class BarChartDrawing : public QChart {
    Q_OBJECT

public:
    struct Look {
        QFont font;
        QColor paper;
        QColor text;
        QColor lines;
        QColor bars;
        int most_steps = 8;          // of the value axis
        int turn_values_beyond = 0;  // this many bars the values read upwards; 0 never
    };

    explicit BarChartDrawing(const Look& look);

    // Called once. The first set is drawn solid, the second hatched, so that they differ without colour
    // too.
    void draw(const BarData& data);

    // Places count the bars by label, then by set.
    int places() const { return static_cast<int>(value_texts_.size()); }
    // Marks this bar alone; -1 none.
    void mark(int place);
    // The bar in whose column a point of the drawing lies; -1 outside.
    int place_at(const QPointF& point);

private:
    void add_set(const BarSet& set);
    int set_ticks(double upper);
    QGraphicsSimpleTextItem* add_text(const QString& text, const QFont& font);
    int line_height() const;
    void place_texts();
    void place_values(double slot);
    void place_ticks();
    void place_titles();
    void place_labels(double slot);
    QPointF bar_top(int place);

    Look look_;
    BarUnit unit_ = BarUnit::dollars;
    bool turned_ = false;  // the values above the bars
    QBarSeries* series_ = nullptr;
    QBarCategoryAxis* label_axis_ = nullptr;
    QCategoryAxis* value_axis_ = nullptr;
    std::vector<QGraphicsSimpleTextItem*> label_texts_;
    std::vector<QGraphicsSimpleTextItem*> value_texts_;
    std::vector<std::pair<double, QGraphicsSimpleTextItem*>> tick_texts_;  // with their values
    QGraphicsSimpleTextItem* value_title_ = nullptr;
    QGraphicsSimpleTextItem* label_title_ = nullptr;
};

// "$1,200" or "14" on the axis; "$1,200.00" or "14 years" in words.
QString short_text(double value, BarUnit unit);
QString full_text(double value, BarUnit unit);

}  // namespace kelvar
