// A finished report with the files that it names: images, and style sheets if its template links any.
#pragma once

#include <QHash>
#include <QTextDocument>
#include <QUrl>
#include <QVariant>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "output/report/report_rows.h"

namespace kelvar {

// Only what lies in one folder is read: regular files of at most 10 MB each, images as PNG, JPEG, GIF
// or BMP. Everything is read once, when the report is made, and never again while it is laid out.
class ReportDocument : public QTextDocument {
    Q_OBJECT

public:
    // Relative names in the HTML count from `folder`.
    explicit ReportDocument(std::filesystem::path folder);

    // Takes over the text, of a long list only a row of each kind. Returns what keeps the report from
    // being printed, as the end of a sentence that begins with the template's name, or nothing.
    std::optional<std::string> read(const QString& html);

    // What was taken over.
    const QString& html() const { return html_; }
    // All rows of the list that the document has one of each kind of; null when it has all there is.
    const ReportRows* rows() const { return rows_ ? &*rows_ : nullptr; }
    // Other text with the same files, which are not read again.
    std::unique_ptr<ReportDocument> with(const QString& html) const;

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    // A new one of the same kind, without text.
    virtual std::unique_ptr<ReportDocument> blank() const = 0;
    const std::filesystem::path& folder() const { return folder_; }

private:
    QByteArray read_file(const QUrl& name);
    void refuse(const QString& name, const std::string& why);

    std::filesystem::path folder_;
    QString html_;
    std::optional<ReportRows> rows_;
    QHash<QUrl, QVariant> files_;
    std::optional<std::string> refused_;
};

}  // namespace kelvar
