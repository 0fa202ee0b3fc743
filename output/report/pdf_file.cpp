#include "output/report/pdf_file.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSaveFile>
#include <algorithm>
#include <filesystem>

#include "output/report/page_painter.h"
#include "output/report/report_templates.h"
#include "widgets/hourglass.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr qsizetype longest_title = 150;  // bytes; a file name takes 255

std::vector<std::filesystem::path> own_files(const Module1& module) {
    std::vector<std::filesystem::path> files{QCoreApplication::applicationFilePath().toStdString(),
                                             module.scenario.help_file};
    for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
        files.push_back(module.program_file(std::string(Module1::database_name) + suffix));
    }
    for (const char* name : all_report_templates) {
        files.push_back(module.program_file(name));
    }
    return files;
}

// True also for one that is not there: a file under the name of a journal would be taken for one.
bool belongs_to_program(const Module1& module, const QString& name) {
    const QFileInfo info(name);
    const std::filesystem::path file = (info.isSymLink() ? info.symLinkTarget() : name).toStdString();
    return std::ranges::any_of(own_files(module), [&](const std::filesystem::path& own) {
        std::error_code none;
        return std::filesystem::equivalent(own, file, none) ||
               std::filesystem::weakly_canonical(own, none) ==
                   std::filesystem::weakly_canonical(file, none);
    });
}

}  // namespace

QString pdf_name(const QString& title, const QString& rate, Date day) {
    static const QRegularExpression never(uR"([/\\:*?"<>|]|\p{C})"_s);
    static const QRegularExpression hidden(u"^[. ]+"_s);
    QString name = title.left(longest_title).replace(never, u"-"_s).simplified().remove(hidden);
    while (name.toUtf8().size() > longest_title) {
        name.chop(1);
    }
    const QString date = QDate(year_of(day), month_of(day), day_of(day)).toString(Qt::ISODate);
    return (name.isEmpty() ? u"Report"_s : name) + u' ' + rate.trimmed() + u' ' + date;
}

void write_pdf(const Module1& module, const QString& name, const PrintJob& job) {
    const Hourglass hourglass;
    if (belongs_to_program(module, name)) {
        throw PrintError("The file " + to_utf8(QDir::toNativeSeparators(name)) +
                         " belongs to the program and stays as it is.");
    }
    QSaveFile file(name);
    const auto refuse = [&] {
        throw PrintError("The file " + to_utf8(QDir::toNativeSeparators(name)) +
                         " cannot be written: " + to_utf8(file.errorString()) + ".");
    };
    const QFileInfo there(name);
    if (there.exists() && !there.isFile()) {
        throw PrintError("The file " + to_utf8(QDir::toNativeSeparators(name)) +
                         " cannot be written: it is a device or a folder.");
    }
    if (!file.open(QIODevice::WriteOnly)) {
        refuse();
    }
    {
        QPdfWriter writer(&file);
        writer.setTitle(job.title);
        writer.setCreator(u"Kelvar"_s);
        writer.setPageSize(QPageSize(QPageSize::Letter));
        writer.setPageOrientation(job.orientation);
        writer.setPageMargins(page_margins, QPageLayout::Point);
        job.draw(writer);
    }
    if (!file.commit()) {
        refuse();
    }
}

}  // namespace kelvar
