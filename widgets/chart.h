// Base of the charts on a screen: keys or the pointer say each place of the drawing in words below it,
// and to screen readers; without focus and pointer the words are on the chart as a whole.
#pragma once

#include <QStringList>
#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

class QLabel;
class QPainter;

namespace kelvar {

class ChartDrawing;
struct ChartLook;

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

// A value of a set.
struct ChartPoint {
    std::size_t set;
    std::size_t label;
};

class Chart : public QWidget {
    Q_OBJECT

public:
    ~Chart() override;

    // Draws the same as it looks best on paper. The area is as wide as `width` on a screen: the less it
    // is, the larger are the texts. Where it is less than 300 high there are fewer of them.
    void paint_on_paper(QPainter& painter, const QRectF& area, double width = 1000.0) const;

    // Places count the values in the order in which they are read.
    int places() const { return static_cast<int>(points_.size()); }
    int selected() const { return selected_; }
    // What a place shows, such as "2021: Total paid $9,036.72".
    virtual QString sentence(int place) const = 0;
    // What else is known of it, such as "Age 71"; may be empty.
    QString detail(int place) const;

protected:
    enum class Order { by_label, by_set };  // in which the values are read

    Chart(const char* name, const QString& accessible_name);

    // May be called again: takes the place of what was shown, and keeps the label that was selected.
    void show_data(const ChartData& data, Order order);
    virtual std::unique_ptr<ChartDrawing> new_drawing(const ChartLook& look) const = 0;
    // Where a key leads from the selected place; nothing for a key of somebody else. What is outside
    // the chart means its nearest place.
    virtual std::optional<int> place_after(int key) const = 0;

    const ChartData& data() const { return data_; }
    const ChartPoint& point(int place) const { return points_[static_cast<std::size_t>(place)]; }
    QString label_of(int place) const {
        return data_.labels[static_cast<qsizetype>(point(place).label)];
    }
    double value_of(int place) const { return data_.sets[point(place).set].values[point(place).label]; }
    ChartDrawing* drawing() const { return drawing_.get(); }
    // The keys go on from this place; with the focus it is said at once.
    void go_on_from(int place);

    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    static constexpr int no_place = -1;

    int place_at(const QPoint& spot) const;
    void say(int place);
    void say_selected() { say(hasFocus() ? selected_ : no_place); }

    ChartData data_;
    std::vector<ChartPoint> points_;         // of the places
    std::unique_ptr<ChartDrawing> drawing_;  // null while nothing was shown
    QLabel* readout_ = nullptr;
    int selected_ = 0;
};

}  // namespace kelvar
