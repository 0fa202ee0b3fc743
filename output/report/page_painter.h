// Pages on paper or in a PDF, each with its footer: title, date, page number, and what the figures are.
#pragma once

#include <QMarginsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <stdexcept>

#include "core/dates.h"

class QTextDocument;

namespace kelvar {

// Of every page, in points: three quarters of an inch, less below the footer.
inline const QMarginsF page_margins(54.0, 54.0, 54.0, 45.0);

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
    PagePainter(QPagedPaintDevice& device, Date printed, int page_count, PageCounter* counter);
    PagePainter(const PagePainter&) = delete;
    PagePainter& operator=(const PagePainter&) = delete;

    // Starts the next page and draws its footer. False for a page that the device is not to print:
    // nothing is drawn then.
    bool next_page(const QString& title);
    // Sends the last page off.
    void finish();

    QPainter& painter() { return painter_; }
    // Where the content of a page goes, in device pixels; the same on every page.
    QRectF body() const { return body_; }

    // Draws one page, counted from 0, of a document that was laid out for the same device.
    void draw(const QTextDocument& document, int page);

private:
    void draw_footer(const QString& title);

    QPagedPaintDevice& device_;
    PageCounter* counter_;
    QPainter painter_;
    QRectF body_;
    Date printed_;
    int page_count_;
    int page_ = 0;
    int drawn_ = 0;
};

}  // namespace kelvar
