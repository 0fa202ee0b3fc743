#include "output/report/report_document.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QRegularExpression>
#include <QTextFormat>
#include <QUrl>

#include "output/report/page_painter.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr qint64 largest_file = 10'000'000;  // bytes
constexpr int most_tables = 8;               // inside each other; each one doubles the work or more
constexpr int most_open = 100;               // elements inside each other; the work is their square
constexpr int most_elements = 50'000;        // 6,000 payments are laid out in two seconds
constexpr const char* elsewhere = "it is not in the program folder";

// Why this text would take too long to lay out. What is never closed stays open.
std::optional<std::string> excess(const QString& html) {
    static const QRegularExpression tag(
        u"<!--(?:.*?-->|.*)|<(/?)([a-z][a-z0-9]*)"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    static const QStringList never_inside_their_like{
        u"br"_s, u"hr"_s, u"img"_s, u"link"_s, u"meta"_s,  u"p"_s,     u"li"_s,   u"dt"_s,
        u"dd"_s, u"tr"_s, u"td"_s,  u"th"_s,   u"thead"_s, u"tbody"_s, u"tfoot"_s};
    QHash<QString, int> open;
    int all_open = 0;
    int elements = 0;
    for (auto tags = tag.globalMatch(html); tags.hasNext();) {
        const QRegularExpressionMatch found = tags.next();
        if (!found.hasCaptured(2)) {
            continue;  // a comment
        }
        const QString name = found.captured(2).toLower();
        const bool closes = found.capturedLength(1) > 0;
        if (!closes && ++elements > most_elements) {
            return "has more than 50,000 elements.";
        }
        if (never_inside_their_like.contains(name) || (closes && open[name] == 0)) {
            continue;
        }
        open[name] += closes ? -1 : 1;
        all_open += closes ? -1 : 1;
        if (open[u"table"_s] > most_tables) {
            return "has more than 8 tables inside each other.";
        }
        if (all_open > most_open) {
            return "has more than 100 elements inside each other.";
        }
    }
    return {};
}

// Null when the bytes are no such image. Others, such as SVG, can name further files.
QImage decoded(QByteArray& bytes) {
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QByteArray format = reader.format();
    const bool pixels = format == "png" || format == "jpeg" || format == "gif" || format == "bmp";
    return pixels ? reader.read() : QImage();
}

const QString chart_name = u"result:chart"_s;
constexpr double units_per_inch = 96.0;

bool is_chart(const QTextFormat& format) {
    return format.toImageFormat().name() == chart_name;
}

}  // namespace

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

ReportDocument::ReportDocument(std::filesystem::path folder, PaintChart chart)
    : folder_(std::move(folder)) {
    set_style(*this);
    new ChartPlace(*this, std::move(chart));
}

std::optional<std::string> ReportDocument::read(const QString& html) {
    if (auto why = excess(html)) {
        return why;
    }
    setHtml(html);  // reads style sheets and backgrounds
    for (const QTextFormat& format : allFormats()) {
        const QString image = format.toImageFormat().name();
        if (format.isImageFormat() && !QUrl(image).isValid()) {
            refuse(image, elsewhere);
        } else if (format.isImageFormat()) {
            resource(ImageResource, QUrl(image));
        }
    }
    return refused_;
}

// Always gives something: for an image without contents the toolkit would look for a file by itself.
QVariant ReportDocument::loadResource(int type, const QUrl& name) {
    if (type == ImageResource && name == QUrl(chart_name)) {
        QImage nothing(1, 1, QImage::Format_ARGB32);
        nothing.fill(Qt::transparent);
        return nothing;
    }
    if (const auto known = files_.constFind(name); known != files_.constEnd()) {
        return *known;
    }
    QByteArray bytes = read_file(name);
    QVariant contents = bytes;
    if (type == ImageResource) {
        QImage image = decoded(bytes);
        if (image.isNull()) {
            refuse(name.toString(), "it is no PNG, JPEG, GIF or BMP image");
            image = QImage(1, 1, QImage::Format_ARGB32);
        }
        contents = image;
    }
    addResource(type, name, contents);
    files_.insert(name, contents);
    return contents;
}

QByteArray ReportDocument::read_file(const QUrl& name) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path folder = fs::canonical(folder_, error);
    const fs::path file = fs::weakly_canonical(folder / to_utf8(name.path(QUrl::FullyDecoded)), error);
    const bool inside = std::ranges::mismatch(folder, file).in1 == folder.end();
    if (error || !name.scheme().isEmpty() || !inside) {
        refuse(name.toString(), elsewhere);
        return {};
    }
    if (!fs::exists(file, error)) {
        refuse(name.toString(), "it is missing");
        return {};
    }
    if (!fs::is_regular_file(file, error)) {
        refuse(name.toString(), "it is not a file");
        return {};
    }
    QFile input(QString::fromStdString(file.string()));
    if (!input.open(QIODevice::ReadOnly)) {
        refuse(name.toString(), "it cannot be read: " + to_utf8(input.errorString()));
        return {};
    }
    QByteArray bytes = input.read(largest_file + 1);
    if (bytes.size() > largest_file) {
        refuse(name.toString(), "it is larger than 10 MB");
        return {};
    }
    return bytes;
}

// The first one counts.
void ReportDocument::refuse(const QString& name, const std::string& why) {
    if (!refused_) {
        refused_ = "cannot use \"" + to_utf8(name.left(200)) + "\": " + why + ".";
    }
}

}  // namespace kelvar
