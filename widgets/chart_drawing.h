// The drawing of a chart, for the screen and for paper: what stands over each label, on a value axis
// from 0. Labels stand below it where there is room.
#pragma once

#include <qcustomplot.h>
#include <array>

#include "widgets/chart.h"

namespace kelvar {

struct ChartLook {
    QFont font;
    QColor paper;
    QColor text;
    QColor lines;
    std::array<QColor, 4> sets;  // lines; bars have the first
    QColor chosen{};
    int most_steps = 8;          // of the value axis
    int turn_values_beyond = 0;  // this many bars the values read upwards; 0 never
    bool values_at_ends =
        false;                // of the bars where not all values fit: the first, the last, the second
    bool names_ends = false;  // the bound, the last label and the lines, whatever gives way to them
};

class ChartDrawing : public QCustomPlot {
    Q_OBJECT

public:
    // Marks this value alone, or none.
    virtual void mark(const ChartPoint* point) = 0;
    // How far a spot of the drawing is from meaning this value.
    virtual double distance(const ChartPoint& point, const QPointF& spot) const = 0;
    // As vectors. The area is as wide as `width` on a screen.
    void paint(QPainter& painter, const QRectF& area, int width);

protected:
    static constexpr double gap = 8.0;  // between texts

    // Sets that are added stand in a legend when there are several, beside keys at least this wide.
    ChartDrawing(const ChartData& data, const ChartLook& look, int key_width);

    void updateLayout() override;
    // After each change of size.
    virtual void fit_sets() {}

    const ChartData& data() const { return data_; }
    double value_of(const ChartPoint& point) const { return data_.sets[point.set].values[point.label]; }
    QCPItemText* add_text(const QString& text, const QFont& font);
    // Room for this many lines more above the highest tick.
    void add_room_above(int lines);
    // Pixels between the middles of two labels, which are 0, 1, 2 and so on.
    double slot() const;

private:
    void set_up_axes();
    void add_titles();
    void add_legend(int key_width);
    void add_row_above(QCPLayoutElement* element);
    void place_labels();
    double move_words_aside(double number);
    void place_ticks();

    ChartData data_;
    ChartLook look_;
    QSharedPointer<QCPAxisTickerText> labels_;
    QSharedPointer<QCPAxisTickerText> ticks_;
};

// The smallest whole 1, 2, 2.5 or 5 times a power of ten that makes at most `most` (at least 1) steps
// from 0 up to a whole bound of at least 1, so 130,000 in 7 gives 20,000. The last may end below it.
double tick_step(double bound, int most);

// "$1,200" or "14" on the axis; "$1,200.00" or "14 years" in words.
QString short_text(double value, ChartUnit unit);
QString full_text(double value, ChartUnit unit);

}  // namespace kelvar
