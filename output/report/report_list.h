// The long table of a report, such as its payments, apart from the document that it stands in: rows
// that are all alike are measured and drawn one by one, at a third of what laying out a whole table
// takes.
#pragma once

#include <QBrush>
#include <QFont>
#include <QMarginsF>
#include <QString>
#include <QTextLayout>
#include <memory>
#include <optional>
#include <vector>

class QPaintDevice;
class QTextTable;

namespace kelvar {

class ReportRows;

class ReportList {
public:
    // How one cell looks. Distances in pixels of HTML, borders 0 for none.
    struct Cell {
        QFont font;
        QBrush text;
        Qt::Alignment alignment;
        QBrush background;
        QMarginsF padding;
        double top_border = 0.0;
        double bottom_border = 0.0;
        QBrush top_line;
        QBrush bottom_line;
        int columns = 1;  // that it spans
    };
    // Rows of one kind have the same cells, but for their texts.
    struct Row {
        int kind;
        std::size_t first_text;
    };

    // Nothing when a cell below the heading holds more than one line or one look of text, or its table
    // is drawn with more than backgrounds and lines between its rows: these are left to the toolkit.
    // With `rows`, the table has below its heading only one of each of their kinds.
    static std::optional<ReportList> read(const QTextTable& table, const ReportRows* rows,
                                          QPaintDevice* device);

    int heading_rows() const { return heading_rows_; }
    const std::vector<Row>& rows() const { return rows_; }  // all, the heading's too
    std::size_t kinds() const { return kinds_.size(); }
    const std::vector<Cell>& cells(const Row& row) const {
        return kinds_[static_cast<std::size_t>(row.kind)];
    }
    QTextLayout& text(const Row& row, std::size_t cell) const { return *texts_[row.first_text + cell]; }

    // In ascending order the rows that decide what the table looks like: the heading, the widest texts
    // of every kind of row, the first and the last row.
    std::vector<int> typical_rows() const;

private:
    class Reader;

    int heading_rows_ = 0;
    std::vector<std::vector<Cell>> kinds_;
    std::vector<Row> rows_;
    std::vector<std::unique_ptr<QTextLayout>> texts_;  // each in one line, as wide as it is
};

}  // namespace kelvar
