#include "output/report/report_sheet.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QPagedPaintDevice>
#include <QRegularExpression>
#include <QScreen>
#include <QTextBlock>
#include <QTextTable>
#include <algorithm>
#include <cmath>

#include "output/report/page_painter.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// Where the rows of one table begin in the text, and where the table ends. Tables inside others are not
// looked for: these have no list.
struct RowsInText {
    std::vector<qsizetype> begin;
    qsizetype end = -1;
};

RowsInText rows_in_text(const QString& html, int table) {
    static const QRegularExpression tag(
        u"<!--.*?-->|<(/?)(table|tr)\\b"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    RowsInText rows;
    int seen = -1;
    for (auto tags = tag.globalMatch(html); tags.hasNext() && rows.end < 0;) {
        const QRegularExpressionMatch found = tags.next();
        if (!found.hasCaptured(1)) {
            continue;  // a comment
        }
        const bool opens = found.capturedLength(1) == 0;
        if (found.capturedLength(2) == 2) {
            if (opens && seen == table) {
                rows.begin.push_back(found.capturedStart());
            }
        } else if (opens) {
            ++seen;
        } else if (seen == table) {
            rows.end = found.capturedStart();
        }
    }
    return rows;
}

// Without the rows of a table that are not among `kept`, which holds the last one. Empty when they are
// not found.
QString shortened(const QString& html, int table, std::size_t row_count, const std::vector<int>& kept) {
    const RowsInText rows = rows_in_text(html, table);
    if (rows.begin.size() != row_count || rows.end < 0) {
        return {};
    }
    QString text = html.left(rows.begin.front());
    for (const int row : kept) {
        const auto at = static_cast<std::size_t>(row);
        const qsizetype end = at + 1 < row_count ? rows.begin[at + 1] : html.size();
        text += QStringView(html).sliced(rows.begin[at], end - rows.begin[at]);
    }
    return text;
}

}  // namespace

std::unique_ptr<ReportSheet> ReportSheet::make(const ReportDocument& report, int table,
                                               const ReportList& list, QPagedPaintDevice& device) {
    const std::vector<int> rows = list.typical_rows();
    const QString html = shortened(report.html(), table, list.rows().size(), rows);
    if (html.isEmpty()) {
        return nullptr;
    }
    auto sheet = std::make_unique<ReportSheet>();
    sheet->document_ = report.with(html);
    sheet->list_ = &list;
    sheet->table_ = table;
    sheet->scale_ =
        device.logicalDpiY() / std::round(QGuiApplication::primaryScreen()->logicalDotsPerInchY());
    lay_out_endless(*sheet->document_, device);
    if (!sheet->measure(rows)) {
        return nullptr;
    }
    lay_out(*sheet->document_, device);
    sheet->top_ = sheet->document_->documentLayout()->frameBoundingRect(sheet->table()).top();
    return sheet;
}

QTextTable* ReportSheet::table() const {
    return qobject_cast<QTextTable*>(document_->rootFrame()->childFrames().value(table_));
}

double ReportSheet::page_height() const {
    return document_->pageSize().height();
}

double ReportSheet::bottom_margin() const {
    return table()->format().bottomMargin() * scale_;
}

double ReportSheet::heading_height() const {
    double height = 0.0;
    for (const Row& row : heading_) {
        height += row.height;
    }
    return height;
}

const ReportSheet::Row& ReportSheet::row(int number) const {
    const auto at = static_cast<std::size_t>(number);
    return at < heading_.size() ? heading_[at]
                                : kinds_[static_cast<std::size_t>(list_->rows()[at].kind)];
}

ReportSheet::Row& ReportSheet::row_at(int number) {
    const auto at = static_cast<std::size_t>(number);
    return at < heading_.size() ? heading_[at]
                                : kinds_[static_cast<std::size_t>(list_->rows()[at].kind)];
}

// The row that begins with the cell of this block, which ends up behind it. Its height is not known
// yet.
std::optional<ReportSheet::Row> ReportSheet::measured(QTextBlock& block, int number,
                                                      double& top) const {
    const ReportList::Row& of = list_->rows()[static_cast<std::size_t>(number)];
    const bool heading = number < list_->heading_rows();
    const auto* layout = document_->documentLayout();
    Row row{};
    for (std::size_t i = 0; i < list_->cells(of).size(); ++i, block = block.next()) {
        QTextLayout* text = block.layout();
        if ((!heading && text->lineCount() != 1) || block.text() != list_->text(of, i).text()) {
            return {};
        }
        const ReportList::Cell& cell = list_->cells(of)[i];
        const QTextLine line = text->lineAt(0);
        const QPointF at = layout->blockBoundingRect(block).topLeft();
        top = std::min(top, at.y() - (cell.padding.top() + cell.top_border) * scale_);
        row.places.push_back(
            {at.x(), at.y() + (heading ? 0.0 : line.y()), line.width(), heading ? text : nullptr});
    }
    for (Place& place : row.places) {
        place.y -= top;
    }
    return row;
}

// The rows follow each other without a break, so that one ends where the next one begins.
bool ReportSheet::measure(const std::vector<int>& rows) {
    const QTextTable* shown = table();
    if (shown == nullptr || shown->rows() != static_cast<int>(rows.size())) {
        return false;
    }
    const double end = document_->documentLayout()->frameBoundingRect(table()).bottom();
    kinds_.resize(list_->kinds());
    heading_.resize(static_cast<std::size_t>(list_->heading_rows()));
    QTextBlock block = shown->firstCursorPosition().block();
    Row* last = nullptr;
    double last_top = 0.0;
    for (const int number : rows) {
        double top = end;
        const std::optional<Row> row = measured(block, number, top);
        if (!row) {
            return false;
        }
        if (last != nullptr) {
            last->height = top - last_top;
        }
        last = &row_at(number);
        *last = *row;
        last_top = top;
    }
    last->height = end - last_top;
    return true;
}

double ReportSheet::continue_at(double end) {
    const QTextBlock next = table()->lastCursorPosition().block().next();
    if (!next.isValid() || (next == document_->lastBlock() && next.length() <= 1)) {
        return -1.0;
    }
    const auto* layout = document_->documentLayout();
    const double shown_end = layout->frameBoundingRect(table()).bottom();
    const double gap = layout->blockBoundingRect(next).top() - shown_end;
    const double page = std::floor(shown_end / page_height());
    double continued = page * page_height() + end;
    if (continued < shown_end) {
        continued += page_height();
    }
    QTextBlockFormat format = next.blockFormat();
    format.setTopMargin((continued - shown_end + gap) / scale_);
    QTextCursor(next).setBlockFormat(format);
    return continued;
}

}  // namespace kelvar
