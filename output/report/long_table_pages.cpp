#include "output/report/long_table_pages.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QPagedPaintDevice>
#include <QScreen>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

#include "output/report/page_painter.h"

namespace kelvar {

namespace {

constexpr int fewest_rows = 3;     // below the heading; a table with fewer is not long
constexpr int fewest_on_page = 2;  // so that no row stands alone

// Null when there is none.
QTextTable* long_table(const QTextDocument& report) {
    QTextTable* longest = nullptr;
    int most_rows = fewest_rows - 1;
    for (QTextFrame* frame : report.rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr) {
            continue;
        }
        const QTextTableFormat format = table->format();
        const int rows = table->rows() - format.headerRowCount();
        const bool plain = format.border() == 0.0 && format.cellSpacing() == 0.0;
        if (plain && format.headerRowCount() > 0 && rows > most_rows) {
            longest = table;
            most_rows = rows;
        }
    }
    return longest;
}

// As far as its first cell tells.
std::pair<int, int> look_of_row(const QTextTable& table, int row) {
    const QTextTableCell cell = table.cellAt(row, 0);
    const QTextBlock block = cell.firstCursorPosition().block();
    const QTextBlock::iterator text = block.begin();
    return {cell.columnSpan(),
            text.atEnd() ? block.charFormatIndex() : text.fragment().charFormatIndex()};
}

// A table in its document as the toolkit has laid it out. Distances in pixels of the device.
class LongTable {
public:
    LongTable(QTextTable& table, double scale)
        : table_(table), scale_(scale), heading_rows_(table.format().headerRowCount()) {
        const auto usual = look_of_row(table, heading_rows_);
        for (int row = 0; row < table.rows(); ++row) {
            rows_.push_back(measured(row));
            rows_.back().usual = look_of_row(table, row) == usual;
        }
    }

    void divide() const;

private:
    struct Row {
        double top = std::numeric_limits<double>::max();
        double bottom = 0.0;
        bool usual = false;  // like the first one; the others sum them up

        double height() const { return std::ceil(bottom - top); }  // as the toolkit rounds it
    };
    // The room that a page is to have left before it turns to the row.
    struct Gap {
        int row;
        double room;
    };

    Row measured(int number) const;
    double edge(const QTextTableCell& cell, QTextFormat::Property padding, double border) const;
    bool may_begin_a_page(int number) const;
    int end_of_page(int first, int full) const;
    void fill_up(const Gap& gap) const;

    const Row& row(int number) const { return rows_[static_cast<std::size_t>(number)]; }

    QTextTable& table_;
    double scale_;  // for one pixel of HTML
    int heading_rows_;
    std::vector<Row> rows_;
};

LongTable::Row LongTable::measured(int number) const {
    const auto* layout = table_.document()->documentLayout();
    Row row;
    for (int column = 0; column < table_.columns();) {
        const QTextTableCell cell = table_.cellAt(number, column);
        const QTextTableCellFormat format = cell.format().toTableCellFormat();
        const QRectF first = layout->blockBoundingRect(cell.firstCursorPosition().block());
        const QRectF last = layout->blockBoundingRect(cell.lastCursorPosition().block());
        const double above = edge(cell, QTextFormat::TableCellTopPadding, format.topBorder());
        const double below = edge(cell, QTextFormat::TableCellBottomPadding, format.bottomBorder());
        row.top = std::min(row.top, first.top() - above);
        row.bottom = std::max(row.bottom, last.bottom() + below);
        column += cell.columnSpan();
    }
    return row;
}

double LongTable::edge(const QTextTableCell& cell, QTextFormat::Property padding, double border) const {
    const QTextFormat format = cell.format();
    const double padded =
        format.hasProperty(padding) ? format.doubleProperty(padding) : table_.format().cellPadding();
    return (padded + border) * scale_;
}

bool LongTable::may_begin_a_page(int number) const {
    return row(number).usual && std::count_if(rows_.begin() + number, rows_.end(),
                                              std::mem_fn(&Row::usual)) >= fewest_on_page;
}

// Of a page that has the rows from `first` on and room up to `full`.
int LongTable::end_of_page(int first, int full) const {
    const bool is_last = full == static_cast<int>(rows_.size());
    for (int next = full; !is_last && next >= first + fewest_on_page; --next) {
        if (may_begin_a_page(next)) {
            return next;
        }
    }
    return std::max(full, first + 1);
}

void LongTable::divide() const {
    const int end = static_cast<int>(rows_.size());
    const double page = table_.document()->pageSize().height();
    // The toolkit keeps it free above the heading and at the end of every page.
    const double margin = table_.format().topMargin() * scale_;
    const double heading = row(heading_rows_ - 1).bottom - row(0).top;
    double y = std::fmod(row(0).top, page);
    const auto is_divided = [page](const Row& row) {
        return row.height() > page - std::fmod(row.top, page);
    };
    if (std::ranges::any_of(rows_, is_divided)) {
        return;  // rows of several lines, which the toolkit divides as well
    }
    std::vector<Gap> gaps;
    for (int first = heading_rows_; first < end;) {
        double room = page - y - heading - margin;
        int full = first;
        for (; full < end && row(full).height() <= room; ++full) {
            room -= row(full).height();
        }
        const bool is_below_text = first == heading_rows_ && y > margin;
        y = margin;
        if (is_below_text && full < first + fewest_on_page) {
            QTextTableFormat on_new_page = table_.format();
            on_new_page.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
            table_.setFormat(on_new_page);
            continue;
        }
        const int next = end_of_page(first, full);
        for (int moved = next; moved < full; ++moved) {
            room += row(moved).height();
        }
        if (next < full) {
            gaps.push_back({next, room});
        }
        first = next;
    }
    std::for_each(gaps.rbegin(), gaps.rend(), [this](const Gap& gap) { fill_up(gap); });
}

// Leaves too little for the row, and enough for differences in rounding.
void LongTable::fill_up(const Gap& gap) const {
    const double height = (gap.room - row(gap.row).height() / 2.0) / scale_;
    table_.insertRows(gap.row, 1);
    for (int column = 0; column < table_.columns(); ++column) {
        QTextTableCell cell = table_.cellAt(gap.row, column);
        QTextTableCellFormat no_padding;
        no_padding.setPadding(0.0);
        cell.setFormat(no_padding);
        QTextBlockFormat line;
        line.setLineHeight(height, QTextBlockFormat::FixedHeight);
        cell.firstCursorPosition().setBlockFormat(line);
    }
}

}  // namespace

void lay_out_report(QTextDocument& report, QPagedPaintDevice& device) {
    report.setLayoutEnabled(false);
    while (report.isUndoAvailable()) {
        report.undo();  // what was filled up for another device
    }
    lay_out(report, device);
    if (QTextTable* table = long_table(report)) {
        const double scale =
            device.logicalDpiY() / std::round(QGuiApplication::primaryScreen()->logicalDotsPerInchY());
        QTextCursor once(&report);  // laid out again once, with all of it
        once.beginEditBlock();
        LongTable(*table, scale).divide();
        once.endEditBlock();
    }
}

}  // namespace kelvar
