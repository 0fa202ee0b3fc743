// A read-only table of records: header that stays, alternating rows, columns wide enough for their
// contents. Arrow keys move inside, Home and End go to the first and last row, Tab leaves it.
#pragma once

#include <QTableView>

namespace kelvar {

class Grid : public QTableView {
    Q_OBJECT

public:
    Grid(const char* name, const QString& accessible_name);

    void setModel(QAbstractItemModel* model) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void measure_columns();
    void spread_columns();

    std::vector<int> needed_widths_;
};

}  // namespace kelvar
