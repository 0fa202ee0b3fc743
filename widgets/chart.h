// Base of the charts on a screen: keys or the pointer say each place of the drawing in words below it,
// and to screen readers; without focus and pointer the words are on the chart as a whole.
#pragma once

#include <QWidget>
#include <optional>

#include "widgets/chart_drawing.h"

class QChartView;
class QLabel;
class QPainter;
class QVBoxLayout;

namespace kelvar {

class Chart : public QWidget {
    Q_OBJECT

public:
    // Draws the same as it looks best on paper. The area is as wide as `width` on a screen: the less it
    // is, the larger are the texts, and below 600 there are fewer of them.
    void paint_on_paper(QPainter& painter, const QRectF& area, double width = 900.0) const;

    int places() const { return drawing_ == nullptr ? 0 : drawing_->places(); }
    int selected() const { return selected_; }
    // What a place shows, such as "2021: Total paid $9,036.72".
    virtual QString sentence(int place) const = 0;
    // What else is known of it, such as "Age 71"; may be empty.
    QString detail(int place) const;

protected:
    Chart(const char* name, const QString& accessible_name);

    // May be called again: takes the place of what was shown, and keeps the label that was selected.
    void show_data(const ChartData& data);
    virtual ChartDrawing* new_drawing(const ChartDrawing::Look& look) const = 0;
    // Where a key leads from the selected place; nothing for a key of somebody else. What is outside
    // the chart means its nearest place.
    virtual std::optional<int> place_after(int key) const = 0;

    const ChartData& data() const { return data_; }
    ChartDrawing* drawing() const { return drawing_; }
    // The keys go on from this place; with the focus it is said at once.
    void go_on_from(int place);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void show_drawing();
    QString label_of(int place) const;
    int first_place_of(const QString& label) const;
    void show_legend();
    void select(int place);
    void say();
    void say_selected();
    void say_whole();

    ChartData data_;
    ChartDrawing* drawing_ = nullptr;  // owned by the view; null while nothing was shown
    QChartView* view_ = nullptr;
    QLabel* readout_ = nullptr;
    QWidget* legend_ = nullptr;
    QVBoxLayout* column_ = nullptr;
    int selected_ = 0;
};

}  // namespace kelvar
