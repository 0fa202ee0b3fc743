// A finished report with the files that it names: images, and style sheets if its template links any.
#pragma once

#include <QHash>
#include <QTextDocument>
#include <QTextObjectInterface>
#include <QUrl>
#include <QVariant>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace kelvar {

using PaintChart = std::function<void(QPainter&, const QRectF&)>;

// Only what lies in one folder is read: regular files of at most 10 MB each, images as PNG, JPEG, GIF
// or BMP. Everything is read once, when the report is made, and never again while it is laid out. The
// image named "result:chart" is painted when its page is, so that it is as sharp as the device: its
// width and height count 96 to the inch, and without a chart the place stays empty.
class ReportDocument : public QTextDocument {
    Q_OBJECT

public:
    // Relative names in the HTML count from `folder`.
    explicit ReportDocument(std::filesystem::path folder, PaintChart chart = {});

    // Takes over the text. Returns what keeps the report from being printed, as the end of a sentence
    // that begins with the template's name, or nothing.
    std::optional<std::string> read(const QString& html);

    QString whose{};         // "Ann Miller, 5% a year, figures of 01/15/2020", at the head of its pages
    PaintChart chart_below;  // takes the room that the text leaves on its last page; may be empty

protected:
    QVariant loadResource(int type, const QUrl& name) override;

private:
    QByteArray read_file(const QUrl& name);
    void refuse(const QString& name, const std::string& why);

    std::filesystem::path folder_;
    QHash<QUrl, QVariant> files_;
    std::optional<std::string> refused_;
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
