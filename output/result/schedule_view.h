// A schedule by payments or by years, and the panel below it: why the chosen payment has its amount, or
// where the money of all years came from and went.
#pragma once

#include <QWidget>

#include "core/records.h"
#include "engine/projection.h"

class QAbstractItemModel;
class QLabel;
class QStackedWidget;

namespace kelvar {

class Grid;
class RecordTableModel;
class TextTableModel;
class ViewChoice;

class ScheduleView : public QWidget {
    Q_OBJECT

public:
    explicit ScheduleView(const Scenario& scenario);

    // The options Payments and Years, which stand above the view.
    ViewChoice* choice() const { return choice_; }
    // The payments are read from their record set as they are painted.
    void load(Database& database);
    // A projection whose payments are stored.
    void show_projection(const Projection& projection);

    bool shows_years() const;
    const QAbstractItemModel* shown_rows() const;

private:
    QWidget* build_panel();
    void choose_view();
    QString explained(int row) const;  // empty without payments
    void explain();
    void show_years();

    const Scenario& scenario;
    Database* database_ = nullptr;
    Projection projection_;
    ViewChoice* choice_ = nullptr;
    QStackedWidget* grids_ = nullptr;
    QStackedWidget* panel_ = nullptr;
    Grid* grddist = nullptr;
    Grid* grdyear = nullptr;
    QLabel* lblexplain = nullptr;
    QLabel* lblledger = nullptr;
    QLabel* longest_ = nullptr;    // never shown: the panel has room for it, so that the grids stay put
    QLabel* lblminimum = nullptr;  // the years below the federal minimum, if there are any
    RecordTableModel* rows_ = nullptr;
    TextTableModel* years_ = nullptr;
};

}  // namespace kelvar
