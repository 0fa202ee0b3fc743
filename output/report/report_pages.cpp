#include "output/report/report_pages.h"

#include <QPainter>
#include <QTextTable>
#include <algorithm>

#include "output/report/page_painter.h"
#include "output/report/report_sheet.h"

namespace kelvar {

namespace {

constexpr int fewest_on_page = 2;  // under the heading, so that none stands alone
constexpr double touching = 1.0;   // pixel: the toolkit also draws a table that only touches a strip

// Which of the tables is the list; less than 0 when there is none.
int longest_table(const ReportDocument& report) {
    if (report.rows() != nullptr) {
        return report.rows()->table();
    }
    const QList<QTextFrame*> frames = report.rootFrame()->childFrames();
    int longest = -1;
    int most_rows = 0;
    for (int i = 0; i < frames.size(); ++i) {
        const auto* table = qobject_cast<QTextTable*>(frames[i]);
        if (table == nullptr) {
            return -1;
        }
        const int rows = table->rows() - table->format().headerRowCount();
        if (table->format().headerRowCount() > 0 &&
            rows >= std::max(ReportRows::fewest, most_rows + 1)) {
            longest = i;
            most_rows = rows;
        }
    }
    return longest;
}

double offset(Qt::Alignment alignment, double room) {
    return alignment.testFlag(Qt::AlignRight)     ? room
           : alignment.testFlag(Qt::AlignHCenter) ? room / 2.0
                                                  : 0.0;
}

}  // namespace

ReportPages::ReportPages(ReportDocument& report, QPagedPaintDevice& device) : all_(&report) {
    if (take_list(report, device)) {
        return;
    }
    if (report.rows() != nullptr) {
        whole_ = report.with(report.html());
        all_ = whole_.get();
    }
    lay_out(whole_ ? *whole_ : report, device);
}

ReportPages::~ReportPages() = default;

bool ReportPages::take_list(const ReportDocument& report, QPagedPaintDevice& device) {
    const int table = longest_table(report);
    if (table < 0) {
        return false;
    }
    list_ = ReportList::read(*qobject_cast<QTextTable*>(report.rootFrame()->childFrames()[table]),
                             report.rows(), &device);
    if (list_) {
        sheet_ = ReportSheet::make(report, table, *list_, device);
    }
    if (sheet_ == nullptr) {
        return false;
    }
    divide();
    return true;
}

void ReportPages::divide() {
    const int end = static_cast<int>(list_->rows().size());
    const double height = sheet_->page_height();
    int page = static_cast<int>(sheet_->top() / height);
    double y = sheet_->top() - page * height;
    const double heading = sheet_->heading_height();
    const double room = height - heading - sheet_->bottom_margin();
    for (int first = list_->heading_rows(); first < end;) {
        const int next = end_of_page(first, room - y);
        if (next >= first + fewest_on_page || y <= 0.0) {
            pages_.push_back({page, y, first, next});
            first = next;
        }
        ++page;
        y = 0.0;
    }
    y = pages_.back().y + heading;
    for (int row = pages_.back().first; row < end; ++row) {
        y += sheet_->row(row).height;
    }
    continued_ = sheet_->continue_at(y);
}

// At least one row, however little room there is.
int ReportPages::end_of_page(int first, double room) const {
    const int end = static_cast<int>(list_->rows().size());
    int next = first;
    while (next < end && room >= sheet_->row(next).height) {
        room -= sheet_->row(next).height;
        ++next;
    }
    for (int earlier = next; next < end && earlier >= first + fewest_on_page; --earlier) {
        if (may_begin_a_page(earlier)) {
            return earlier;
        }
    }
    return std::max(next, first + 1);
}

// Rows like the first one are what the list is about; the others sum them up.
bool ReportPages::may_begin_a_page(int row) const {
    const std::vector<ReportList::Row>& rows = list_->rows();
    const int usual = rows[static_cast<std::size_t>(list_->heading_rows())].kind;
    const auto is_usual = [usual](const ReportList::Row& of) { return of.kind == usual; };
    return is_usual(rows[static_cast<std::size_t>(row)]) &&
           std::count_if(rows.begin() + row, rows.end(), is_usual) >= fewest_on_page;
}

int ReportPages::count() const {
    if (sheet_ == nullptr) {
        return all_->pageCount();
    }
    const int list_end = pages_.back().page + 1;
    if (continued_ < 0.0) {
        return list_end;
    }
    const int continued = static_cast<int>(continued_ / sheet_->page_height());
    return list_end + std::max(sheet_->document().pageCount() - 1 - continued, 0);
}

void ReportPages::draw(PagePainter& painter, int page) const {
    if (sheet_ == nullptr) {
        painter.draw(*all_, page);
        return;
    }
    const ReportDocument& document = sheet_->document();
    const double height = sheet_->page_height();
    if (page * height < sheet_->top()) {
        const double bottom = std::min((page + 1) * height, sheet_->top() - touching);
        painter.draw(document, page * height, bottom, 0.0);
    }
    const auto on_page = std::ranges::find(pages_, page, &ListPage::page);
    if (on_page != pages_.end()) {
        draw_list(painter.painter(), *on_page);
    }
    const int after = page - pages_.back().page;
    if (continued_ >= 0.0 && after >= 0) {
        const double top = (static_cast<int>(continued_ / height) + after) * height;
        const double from = after == 0 ? continued_ + touching : top;
        painter.draw(document, from, top + height, from - top);
    }
}

void ReportPages::draw_list(QPainter& painter, const ListPage& page) const {
    double y = page.y;
    const auto draw = [&](int row) {
        draw_row(painter, row, y);
        y += sheet_->row(row).height;
    };
    for (int row = 0; row < list_->heading_rows(); ++row) {
        draw(row);
    }
    for (int row = page.first; row < page.end; ++row) {
        draw(row);
    }
}

void ReportPages::draw_row(QPainter& painter, int number, double y) const {
    const ReportList::Row& row = list_->rows()[static_cast<std::size_t>(number)];
    const ReportSheet::Row& shown = sheet_->row(number);
    for (std::size_t i = 0; i < shown.places.size(); ++i) {
        const ReportList::Cell& cell = list_->cells(row)[i];
        const ReportSheet::Place& place = shown.places[i];
        draw_ground(painter, cell, {place.x, y, place.width, shown.height});
        if (painter.pen().brush() != cell.text) {
            painter.setPen(QPen(cell.text, 0.0));
        }
        if (place.text != nullptr) {
            place.text->draw(&painter, {place.x, y + place.y});
            continue;
        }
        const QTextLayout& text = list_->text(row, i);
        if (!text.text().isEmpty()) {
            const double room = place.width - text.lineAt(0).naturalTextWidth();
            text.draw(&painter, {place.x + offset(cell.alignment, room), y + place.y});
        }
    }
}

// Background and lines of a cell whose text may take this much of its row.
void ReportPages::draw_ground(QPainter& painter, const ReportList::Cell& cell, QRectF area) const {
    const double scale = sheet_->scale();
    area.adjust(-cell.padding.left() * scale, 0.0, cell.padding.right() * scale, 0.0);
    const auto fill = [&](double top, double bottom, const QBrush& brush) {
        if (brush.style() != Qt::NoBrush && bottom > top) {
            painter.fillRect(QRectF(area.left(), top, area.width(), bottom - top), brush);
        }
    };
    fill(area.top(), area.bottom(), cell.background);
    fill(area.top(), area.top() + cell.top_border * scale, cell.top_line);
    fill(area.bottom() - cell.bottom_border * scale, area.bottom(), cell.bottom_line);
}

}  // namespace kelvar
