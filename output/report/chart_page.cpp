#include "output/report/chart_page.h"

#include <QPagedPaintDevice>
#include <QTextDocument>

#include "output/report/page_painter.h"
#include "widgets/chart.h"

namespace kelvar {

void draw_chart_page(QPagedPaintDevice& device, Date printed, const QString& title,
                     const QString& above, const Chart& chart) {
    PagePainter page(device, printed, 1);
    QTextDocument document;
    set_style(document);
    document.setHtml(above);
    lay_out(document, device);
    if (page.next_page(title)) {
        page.draw(document, 0);
        chart.paint_on_paper(page.painter(),
                             page.body().adjusted(0.0, document.size().height(), 0.0, 0.0));
    }
    page.finish();
}

}  // namespace kelvar
