// A report with a place for the chart of its result.
#pragma once

#include <QObject>
#include <QTextObjectInterface>

#include "output/report/report_document.h"

namespace kelvar {

// The image named "result:chart" is painted when its page is, so that it is as sharp as the device. Its
// width and height count 96 to the inch. Without a chart the place stays empty.
class ChartedReport : public ReportDocument {
    Q_OBJECT

public:
    ChartedReport(std::filesystem::path folder, PaintChart chart);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
};

// Takes the place of what usually draws the images of a document, which draws all others.
class ChartPlace : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    ChartPlace(QTextDocument& document, PaintChart chart);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& area, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    PaintChart chart_;
    QTextObjectInterface* images_;
};

}  // namespace kelvar
