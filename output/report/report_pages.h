// A report in pages for one device.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "output/report/report_list.h"

class QPagedPaintDevice;
class QPainter;

namespace kelvar {

class PagePainter;
class ReportDocument;
class ReportSheet;

// The longest table of a report, if it has a heading and all its rows take one line, is divided so that
// no row stands alone on a page, and none that is not like the first one, such as a total, without a
// row above it. The toolkit lays out everything else, and of that table only the rows that decide what
// it looks like.
class ReportPages {
public:
    // Rows from `first` to before `end`, under the heading, `y` below the top of the page.
    struct ListPage {
        int page;
        double y;
        int first;
        int end;
    };

    // The device must outlive this.
    ReportPages(ReportDocument& report, QPagedPaintDevice& device);
    ~ReportPages();

    int count() const;
    // Draws one page, counted from 0.
    void draw(PagePainter& painter, int page) const;

    // All rows of the table; null when the toolkit lays it out.
    const ReportList* list() const { return sheet_ == nullptr ? nullptr : &*list_; }
    // How the table was divided; empty when the toolkit does it. Rows count from the heading's first.
    const std::vector<ListPage>& list_pages() const { return pages_; }

private:
    bool take_list(const ReportDocument& report, QPagedPaintDevice& device);
    void divide();
    int end_of_page(int first, double room) const;
    bool may_begin_a_page(int row) const;
    void draw_list(QPainter& painter, const ListPage& page) const;
    void draw_row(QPainter& painter, int row, double y) const;
    void draw_ground(QPainter& painter, const ReportList::Cell& cell, QRectF area) const;

    std::optional<ReportList> list_;
    std::unique_ptr<ReportSheet> sheet_;     // null when the toolkit lays out all
    std::unique_ptr<ReportDocument> whole_;  // what it lays out then; null when the report is whole
    const ReportDocument* all_;              // the one or the other
    std::vector<ListPage> pages_;
    double continued_ = -1.0;  // where the sheet goes on after the list; less than 0 if nowhere
};

}  // namespace kelvar
