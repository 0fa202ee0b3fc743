// A read-only table of records: header that stays, alternating rows, columns wide enough for their
// contents, texts brief and headings shortened where else it would scroll sideways, groups of rows
// parted by a fine line, changed cells marked (see table_model.h). Arrow keys move inside, Home and End
// go to the first and last row, Tab leaves it, and the current row stays in sight when its size
// changes. Typing goes to the first row whose entry in the search column begins so. Rows are chosen as
// in other lists and copied with their headings, for spreadsheets and for mail.
#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <optional>

namespace kelvar {

class Grid : public QTableView {
    Q_OBJECT

public:
    Grid(const char* name, const QString& accessible_name);

    void setModel(QAbstractItemModel* model) override;
    // The column that typing looks in; at first column 0.
    void set_search_column(int column) { search_column_ = column; }
    void keyboardSearch(const QString& typed) override;
    // Shows the text of this cell over all columns from there on; after the rows were shown.
    void join_cells(int row, int first_column);
    // Where it scrolls sideways, the column stands beside another one, after it.
    struct KeptColumn {
        int column;
        int after;
    };
    void keep_in_sight(KeptColumn kept) { kept_ = kept; }
    // Takes the height of all rows, for a table that is short.
    void show_all_rows();
    // Is never so low that fewer rows are to be seen; at first 4.
    void show_at_least(int rows);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void measure_columns();
    int row_height() const;  // of a row alone
    int height_of(int row) const;
    void fit_height();
    void fit_rows();
    void spread_columns();
    void move_closer(bool close);
    void show_menu(const QPoint& place);
    QList<int> rows_to_copy() const;
    void copy() const;

    struct ColumnWidth {
        int heading;        // of its longest word
        int least_heading;  // with long words shortened
        int contents;       // of the cells
        int brief_contents;
        int lead;    // that words keep from figures before them
        bool grows;  // with the room that is left
    };

    std::vector<ColumnWidth> widths_;  // without what stands left and right of the texts
    bool close_ = false;               // the columns
    bool brief_ = false;               // the texts
    int least_rows_ = 4;
    bool shows_all_rows_ = false;
    std::optional<KeptColumn> kept_;
    int search_column_ = 0;
    QString sought_;  // what was typed so far
    QElapsedTimer since_typed_;
    QPersistentModelIndex found_;  // where that led to
};

}  // namespace kelvar
