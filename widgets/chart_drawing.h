// The drawing of a chart, for the screen and for paper: what stands over each label, on a value axis
// from 0. Labels stand below it where there is room.
#pragma once

#include <QChart>
#include <QFont>
#include <QStringList>
#include <vector>

class QBarCategoryAxis;
class QCategoryAxis;
class QGraphicsItem;
class QGraphicsSimpleTextItem;

namespace kelvar {

struct ChartSet {
    QString name;
    std::vector<double> values;  // at least 0; one per label
};

enum class ChartUnit { dollars, years };

// What is drawn. `upper` is the upper bound of the axis, a whole number of at least 1.
struct ChartData {
    QStringList labels;
    std::vector<ChartSet> sets;
    double upper = 1.0;
    ChartUnit unit = ChartUnit::dollars;
    QString value_title{};  // above the value axis; may be empty
    QString label_title{};  // below the labels; may be empty
    QString whole{};        // the chart in one sentence; empty: its accessible name
    QStringList notes{};    // a second line, one below each label, empty for none; or none at all
    QString notes_title{};  // what they are, at their left
};

class ChartDrawing : public QChart {
    Q_OBJECT

public:
    static constexpr double gap = 8.0;  // between texts

    struct Look {
        QFont font;
        QColor paper;
        QColor text;
        QColor lines;
        QColor sets;
        int most_steps = 8;          // of the value axis
        int turn_values_beyond = 0;  // this many bars the values read upwards; 0 never
    };
    // A value of a set.
    struct Point {
        std::size_t set;
        std::size_t label;
    };

    // Called once.
    void draw(const ChartData& data);

    // Places count the values in the order in which they are read.
    virtual int places() const = 0;
    virtual Point point(int place) const = 0;
    // Marks this place alone; -1 none.
    virtual void mark(int place) = 0;
    // The place that a point of the drawing means; -1 outside.
    virtual int place_at(const QPointF& spot) const = 0;
    // What stands for a set in the legend; owned by the caller.
    virtual QGraphicsItem* new_key(std::size_t set) const = 0;

protected:
    explicit ChartDrawing(const Look& look);

    // Once, before the texts: what is drawn over the labels, and how many lines its own texts need
    // above the highest tick.
    virtual void add_sets() = 0;
    virtual int lines_above() const { return 1; }
    // After each change of size.
    virtual void place_sets() = 0;

    const Look& look() const { return look_; }
    const ChartData& data() const { return data_; }
    QBarCategoryAxis* label_axis() const { return label_axis_; }
    QCategoryAxis* value_axis() const { return value_axis_; }
    QGraphicsSimpleTextItem* add_text(const QString& text, const QFont& font);
    // Room of a label.
    double slot() const;
    // Where a value stands; the middles of the labels are 0, 1, 2 and so on.
    QPointF position(double label, double value) const;
    // The label in whose room a point inside the plot lies.
    int label_at(const QPointF& spot) const;

private:
    int set_ticks();
    void add_labels();
    int line_height() const;
    void place_texts();
    void place_ticks();
    void place_titles();
    void place_labels();
    std::size_t label_step() const;
    void place_note(std::size_t label);

    Look look_;
    ChartData data_;
    QBarCategoryAxis* label_axis_ = nullptr;
    QCategoryAxis* value_axis_ = nullptr;
    std::vector<QGraphicsSimpleTextItem*> label_texts_;
    std::vector<QGraphicsSimpleTextItem*> note_texts_;                     // one per label, or none
    std::vector<std::pair<double, QGraphicsSimpleTextItem*>> tick_texts_;  // with their values
    QGraphicsSimpleTextItem* value_title_ = nullptr;
    QGraphicsSimpleTextItem* label_title_ = nullptr;
    QGraphicsSimpleTextItem* notes_title_ = nullptr;
};

// "$1,200" or "14" on the axis; "$1,200.00" or "14 years" in words.
QString short_text(double value, ChartUnit unit);
QString full_text(double value, ChartUnit unit);

}  // namespace kelvar
