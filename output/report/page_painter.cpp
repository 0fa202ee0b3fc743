#include "output/report/page_painter.h"

#include <QAbstractTextDocumentLayout>
#include <QPageLayout>
#include <QPageRanges>
#include <QTextDocument>

#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr double head_inches = 24.0 / 72.0;
constexpr double foot_inches = 20.0 / 72.0;
constexpr double body_points = 10.0;
constexpr double small_points = 8.0;

// Four sizes: the figure that the page is about, titles, text, and what is small. 8 pixels are the
// grid.
const QString style =
    uR"(
h1 { font-size: x-large; font-weight: bold; margin-top: 0px; margin-bottom: 8px; line-height: 90%; }
    h2 { font-size: medium; font-weight: bold; margin-top: 16px; margin-bottom: 4px; }
    p { margin-top: 0px; margin-bottom: 8px; line-height: 90%; }
    p.figure { font-size: 28pt; font-weight: bold; margin-bottom: 0px; }
    p.chart { line-height: 100%; margin-bottom: 16px; }
    span.period { font-size: 15pt; }
    p.note, td.note { font-size: 8pt; }
    table { margin-top: 0px; margin-bottom: 0px; }
    th { font-weight: bold; padding: 2px 8px 2px 0px; border-bottom: 1px solid #17405f; }
    td { padding: 2px 8px 2px 0px; }
    td[align="right"], th[align="right"] { padding: 2px 0px 2px 8px; }
    td.amount { white-space: nowrap; }
)"_s;

constexpr const char* refused = "The printer or the file does not take any pages.";

// The page without its margins, head and foot, in device pixels.
QRectF body_of(const QPagedPaintDevice& device) {
    const double inch = device.logicalDpiY();
    const QSizeF page = device.pageLayout().paintRectPixels(device.logicalDpiY()).size();
    return QRectF({0.0, 0.0}, page).adjusted(0.0, head_inches * inch, 0.0, -foot_inches * inch);
}

}  // namespace

void set_style(QTextDocument& document) {
    document.setDefaultFont(theme::paper_font(body_points));
    document.setDefaultStyleSheet(style);
    document.setDocumentMargin(0.0);
    // Laid out only once, when device and page are known: for a long list that is most of the work.
    document.setLayoutEnabled(false);
    document.documentLayout();
}

void lay_out(QTextDocument& document, QPagedPaintDevice& device) {
    document.documentLayout()->setPaintDevice(&device);
    const QSizeF page = body_of(device).size();
    document.setPageSize(page);
    document.setLayoutEnabled(true);
    // A table wider than the page makes all of it smaller, rather than lose its last figures.
    constexpr double rounded = 1.002;
    if (const double wide = document.size().width() / page.width(); wide > rounded) {
        document.setPageSize(page * wide);
    }
}

PagePainter::PagePainter(QPagedPaintDevice& device, int page_count, PageCounter* counter)
    : device_(device), counter_(counter), body_(body_of(device)), page_count_(page_count) {
    if (!painter_.begin(&device)) {
        throw PrintError(refused);
    }
    if (counter_ != nullptr) {
        counter_->begin(page_count);
    }
}

bool PagePainter::next_page(const QString& title, const QString& whose) {
    ++page_;
    const QPageRanges wanted = device_.pageRanges();
    if (!wanted.isEmpty() && !wanted.contains(page_)) {
        return false;
    }
    const bool is_first = drawn_++ == 0;
    if (!is_first && ((counter_ != nullptr && !counter_->go_on()) || !device_.newPage())) {
        throw PrintError(refused);
    }
    if (page_ > 1) {
        draw_head(title, whose);
    }
    draw_foot();
    return true;
}

void PagePainter::finish() {
    if (drawn_ == 0) {
        throw PrintError("There are no such pages: it has " + std::to_string(page_count_) + ".");
    }
    if (!painter_.end()) {
        throw PrintError(refused);
    }
}

void PagePainter::draw(const QTextDocument& document, int page) {
    const double top = page * document.pageSize().height();
    const double scale = body_.width() / document.pageSize().width();
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = QRectF({0.0, top}, document.pageSize());
    context.palette.setColor(QPalette::Text, Qt::black);
    painter_.save();
    painter_.translate(body_.topLeft());
    painter_.scale(scale, scale);
    painter_.translate(0.0, -top);
    painter_.setClipRect(context.clip);
    document.documentLayout()->draw(&painter_, context);
    painter_.restore();
}

void PagePainter::draw_head(const QString& title, const QString& whose) {
    painter_.save();
    QFont font = theme::paper_font(body_points);
    font.setBold(true);
    painter_.setFont(font);
    const double line = painter_.fontMetrics().height();
    const QRectF area(body_.left(), 0.0, body_.width(), line);
    painter_.drawText(area, Qt::AlignLeft | Qt::AlignBottom, title);
    const double left = painter_.fontMetrics().horizontalAdvance(title) + line;
    painter_.setFont(theme::paper_font(small_points));
    const int room = static_cast<int>(area.width() - left);
    painter_.drawText(area, Qt::AlignRight | Qt::AlignBottom,
                      painter_.fontMetrics().elidedText(whose, Qt::ElideMiddle, room));
    painter_.setPen(QPen(Qt::black, device_.logicalDpiY() / 150.0));
    painter_.drawLine(area.bottomLeft(), area.bottomRight());
    painter_.restore();
}

void PagePainter::draw_foot() {
    painter_.save();
    painter_.setFont(theme::paper_font(small_points));
    const double foot = foot_inches * device_.logicalDpiY();
    const QRectF area(body_.left(), body_.bottom(), body_.width(), foot);
    painter_.drawText(area, Qt::AlignLeft | Qt::AlignBottom, QString::fromUtf16(estimate_note));
    painter_.drawText(area, Qt::AlignRight | Qt::AlignBottom,
                      u"Page %1 of %2"_s.arg(page_).arg(page_count_));
    painter_.restore();
}

}  // namespace kelvar
