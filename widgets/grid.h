// A read-only table of records: header that stays, alternating rows, columns wide enough for their
// contents. Arrow keys move inside, Home and End go to the first and last row, Tab leaves it. Typing
// goes to the first row whose entry in the search column begins so.
#pragma once

#include <QElapsedTimer>
#include <QTableView>

namespace kelvar {

class Grid : public QTableView {
    Q_OBJECT

public:
    Grid(const char* name, const QString& accessible_name);

    void setModel(QAbstractItemModel* model) override;
    // The column that typing looks in; at first column 0.
    void set_search_column(int column) { search_column_ = column; }
    void keyboardSearch(const QString& typed) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void measure_columns();
    void spread_columns();

    std::vector<int> needed_widths_;
    int search_column_ = 0;
    QString sought_;  // what was typed so far
    QElapsedTimer since_typed_;
    QPersistentModelIndex found_;  // where that led to
};

}  // namespace kelvar
