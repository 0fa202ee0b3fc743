// What the toolkit lays out of a report with a long list: everything around the list, and of the list
// the few rows that decide what it looks like.
#pragma once

#include <memory>
#include <vector>

#include "output/report/report_document.h"
#include "output/report/report_list.h"

class QPagedPaintDevice;
class QTextBlock;
class QTextTable;

namespace kelvar {

// Distances in pixels of the device, which must outlive it as the list must.
class ReportSheet {
public:
    // Where the text of a cell goes, from the page's left and below the row's top, and how wide it may
    // be.
    struct Place {
        double x;
        double y;
        double width;
        QTextLayout* text;  // of the heading, as the toolkit laid it out; null in other rows
    };
    struct Row {
        double height;
        std::vector<Place> places;
    };

    // Null when the rows cannot be told apart in the report's text, or when one of them takes more than
    // a line.
    static std::unique_ptr<ReportSheet> make(const ReportDocument& report, int table,
                                             const ReportList& list, QPagedPaintDevice& device);

    const ReportDocument& document() const { return *document_; }
    double page_height() const;
    double scale() const { return scale_; }  // pixels for one of HTML

    // Of the list, in the document laid out in pages.
    double top() const { return top_; }
    double heading_height() const;
    double bottom_margin() const;
    // A row of the list, the heading's first.
    const Row& row(int number) const;

    // Moves what follows the list so that it continues `end` below the top of a page. Returns where
    // that is in the document, or less than 0 when nothing follows.
    double continue_at(double end);

private:
    QTextTable* table() const;
    Row& row_at(int number);
    std::optional<Row> measured(QTextBlock& block, int number, double& top) const;
    bool measure(const std::vector<int>& rows);

    const ReportList* list_ = nullptr;
    std::unique_ptr<ReportDocument> document_;
    int table_ = 0;  // which of the document's
    double scale_ = 1.0;
    double top_ = 0.0;
    std::vector<Row> heading_;
    std::vector<Row> kinds_;  // other rows, by their kind
};

}  // namespace kelvar
