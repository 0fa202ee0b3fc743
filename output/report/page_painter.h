// Pages on paper or in a PDF, each with a foot that has its number and what the figures are, and with a
// head from the second one on.
#pragma once

#include <QMarginsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <stdexcept>

class QTextDocument;

namespace kelvar {

// Of every page, in points: three quarters of an inch, less above the head and below the foot.
inline const QMarginsF page_margins(54.0, 32.0, 54.0, 32.0);

// What every screen and page with results says of them.
inline constexpr const char16_t* estimate_note =
    u"Estimates for illustration, not guaranteed, before taxes and penalties.";

// What everything printed looks like unless its HTML says otherwise; to be set before the HTML.
void set_style(QTextDocument& document);
// Lays a document out in pages for a device, which must outlive its use. Points of fonts and pixels of
// distances are those of the device.
void lay_out(QTextDocument& document, QPagedPaintDevice& device);

// The text says what went wrong, for the user.
class PrintError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Told how far the pages are.
class PageCounter {
public:
    virtual void begin(int pages) = 0;
    // Another page is to follow. False when no more are wanted.
    virtual bool go_on() = 0;

protected:
    ~PageCounter() = default;
};

class PagePainter {
public:
    // The counter may be null. Throws PrintError when the device cannot be drawn on, as does every step
    // below.
    PagePainter(QPagedPaintDevice& device, int page_count, PageCounter* counter);
    PagePainter(const PagePainter&) = delete;
    PagePainter& operator=(const PagePainter&) = delete;

    // Starts the next page and draws its head, of which the first page has none, and its foot. False
    // for a page that the device is not to print: nothing is drawn then.
    bool next_page(const QString& title, const QString& whose);
    // Sends the last page off.
    void finish();

    QPainter& painter() { return painter_; }
    // Where the content of a page goes, in device pixels; the same on every page.
    QRectF body() const { return body_; }

    // Draws one page, counted from 0, of a document that was laid out for the same device.
    void draw(const QTextDocument& document, int page);

private:
    void draw_head(const QString& title, const QString& whose);
    void draw_foot();

    QPagedPaintDevice& device_;
    PageCounter* counter_;
    QPainter painter_;
    QRectF body_;
    int page_count_;
    int page_ = 0;
    int drawn_ = 0;
};

}  // namespace kelvar
