#include "output/report/chart_page.h"

#include "output/report/charted_report.h"

namespace kelvar {

Report chart_page(const QString& title, const QString& above, PaintChart chart) {
    auto page = std::make_shared<ChartedReport>(std::filesystem::path(), PaintChart());
    page->setHtml(above);
    page->setMetaInformation(QTextDocument::DocumentTitle, title);
    page->chart_below = std::move(chart);
    return page;
}

}  // namespace kelvar
