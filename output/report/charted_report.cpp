#include "output/report/charted_report.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <QUrl>

#include "output/report/page_painter.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

const QString chart_name = u"result:chart"_s;
constexpr double units_per_inch = 96.0;

bool is_chart(const QTextFormat& format) {
    return format.toImageFormat().name() == chart_name;
}

}  // namespace

ChartedReport::ChartedReport(std::filesystem::path folder, PaintChart chart)
    : ReportDocument(std::move(folder)) {
    set_style(*this);
    new ChartPlace(*this, std::move(chart));
}

QVariant ChartedReport::loadResource(int type, const QUrl& name) {
    if (type == ImageResource && name == QUrl(chart_name)) {
        QImage nothing(1, 1, QImage::Format_ARGB32);
        nothing.fill(Qt::transparent);
        return nothing;
    }
    return ReportDocument::loadResource(type, name);
}

ChartPlace::ChartPlace(QTextDocument& document, PaintChart chart)
    : QObject(&document),
      chart_(std::move(chart)),
      images_(document.documentLayout()->handlerForObject(QTextFormat::ImageObject)) {
    document.documentLayout()->registerHandler(QTextFormat::ImageObject, this);
}

QSizeF ChartPlace::intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) {
    if (!is_chart(format)) {
        return images_->intrinsicSize(document, position, format);
    }
    const QPaintDevice* device = document->documentLayout()->paintDevice();
    const double scale = device == nullptr ? 1.0 : device->logicalDpiY() / units_per_inch;
    const QTextImageFormat image = format.toImageFormat();
    return QSizeF(image.width(), image.height()) * scale;
}

void ChartPlace::drawObject(QPainter* painter, const QRectF& area, QTextDocument* document,
                            int position, const QTextFormat& format) {
    if (!is_chart(format)) {
        images_->drawObject(painter, area, document, position, format);
    } else if (chart_ && !area.isEmpty()) {
        painter->save();
        chart_(*painter, area);
        painter->restore();
    }
}

}  // namespace kelvar
