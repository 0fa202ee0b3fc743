#include "output/report/page_painter.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageRanges>
#include <QTextDocument>

#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr double footer_inches = 0.475;
constexpr double body_points = 10.0;
constexpr double footer_points = 8.0;

const QString style =
    uR"(
    h1 { font-size: x-large; margin-top: 0px; margin-bottom: 11px; }
    h2 { font-size: large; margin-top: 14px; margin-bottom: 2px; }
    p { margin-top: 2px; margin-bottom: 6px; }
    p.note { font-size: 9pt; }
    table { margin-top: 3px; margin-bottom: 3px; }
    th { font-weight: 600; background-color: #e3ebf2; padding: 2px 6px; }
    td { padding: 1px 6px; }
)"_s;

constexpr const char* refused = "The printer or the file does not take any pages.";

QFont font_of_size(double points) {
    QFont font = QGuiApplication::font();
    font.setPointSizeF(points);
    return font;
}

// The page without its margins and footer, in device pixels.
QRectF body_of(const QPagedPaintDevice& device) {
    const double footer = footer_inches * device.logicalDpiY();
    const QSizeF page = device.pageLayout().paintRectPixels(device.logicalDpiY()).size();
    return QRectF({0.0, 0.0}, page).adjusted(0.0, 0.0, 0.0, -footer);
}

}  // namespace

void set_style(QTextDocument& document) {
    document.setDefaultFont(font_of_size(body_points));
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

PagePainter::PagePainter(QPagedPaintDevice& device, Date printed, int page_count, PageCounter* counter)
    : device_(device),
      counter_(counter),
      body_(body_of(device)),
      printed_(printed),
      page_count_(page_count) {
    if (!painter_.begin(&device)) {
        throw PrintError(refused);
    }
    if (counter_ != nullptr) {
        counter_->begin(page_count);
    }
}

bool PagePainter::next_page(const QString& title) {
    ++page_;
    const QPageRanges wanted = device_.pageRanges();
    if (!wanted.isEmpty() && !wanted.contains(page_)) {
        return false;
    }
    const bool is_first = drawn_++ == 0;
    if (!is_first && ((counter_ != nullptr && !counter_->go_on()) || !device_.newPage())) {
        throw PrintError(refused);
    }
    draw_footer(title);
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
    painter_.scale(scale, scale);
    painter_.translate(0.0, -top);
    painter_.setClipRect(context.clip);
    document.documentLayout()->draw(&painter_, context);
    painter_.restore();
}

void PagePainter::draw_footer(const QString& title) {
    const double footer = footer_inches * device_.logicalDpiY();
    const QRectF area(body_.left(), body_.bottom() + footer / 4, body_.width(), footer * 3 / 4);
    painter_.save();
    painter_.setFont(font_of_size(footer_points));
    painter_.setPen(QPen(QColor(0x80, 0x80, 0x80), device_.logicalDpiY() / 150.0));
    painter_.drawLine(area.topLeft(), area.topRight());
    painter_.setPen(Qt::black);
    const QRectF first_line = area.adjusted(0.0, 0.0, 0.0, -painter_.fontMetrics().height());
    const auto put = [&](Qt::Alignment side, const QString& text) {
        painter_.drawText(first_line, static_cast<int>(side | Qt::AlignBottom), text);
    };
    const QString printed = u"Printed "_s + to_qt(date_text(printed_));
    const double side = painter_.fontMetrics().horizontalAdvance(printed + u"    "_s);
    put(Qt::AlignLeft, printed);
    put(Qt::AlignHCenter, painter_.fontMetrics().elidedText(title, Qt::ElideRight,
                                                            static_cast<int>(area.width() - 2 * side)));
    put(Qt::AlignRight, u"Page %1 of %2"_s.arg(page_).arg(page_count_));
    painter_.drawText(area, Qt::AlignHCenter | Qt::AlignBottom, QString::fromUtf16(estimate_note));
    painter_.restore();
}

}  // namespace kelvar
