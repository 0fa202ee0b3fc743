#include "output/report/print_job.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

#include "output/report/page_painter.h"
#include "output/report/saved_file.h"
#include "widgets/hourglass.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

const QString save_as_pdf = u"Save as PDF"_s;
const QString no_printer = u"No printer is set up - save as PDF"_s;

// Without any font the toolkit draws boxes, or nothing.
void require_font() {
    if (!QFontMetrics(QGuiApplication::font()).inFont(u'0')) {
        throw PrintError("No font is installed on this computer, so there is nothing to print with.");
    }
}

void print_on(const QPrinterInfo& where, const PrintJob& job) {
    const Hourglass hourglass;
    QPrinter printer(where, QPrinter::HighResolution);
    printer.setDocName(job.title);
    printer.setPageOrientation(job.orientation);
    printer.setPageMargins(page_margins, QPageLayout::Point);
    job.draw(printer);
    if (printer.printerState() == QPrinter::Error) {
        throw PrintError("The printer " + to_utf8(where.printerName()) + " reports an error.");
    }
}

void write_pdf(const Module1& module, const QString& path, const PrintJob& job) {
    const Hourglass hourglass;
    write_whole(module, path, [&](QIODevice& file) {
        QPdfWriter writer(&file);
        writer.setTitle(job.title);
        writer.setCreator(u"Kelvar"_s);
        writer.setPageSize(QPageSize(QPageSize::Letter));
        writer.setPageOrientation(job.orientation);
        writer.setPageMargins(page_margins, QPageLayout::Point);
        job.draw(writer);
    });
}

}  // namespace

QString print(Module1& module, QWidget* window, Destination destination,
              const std::function<PrintJob()>& prepare) {
    QString file;
    try {
        PrintJob job;
        QPrinterInfo printer;
        {
            const Hourglass hourglass;
            require_font();
            job = prepare();
            if (destination == Destination::printer) {
                printer = QPrinterInfo::defaultPrinter();
            }
        }
        if (!printer.isNull()) {
            print_on(printer, job);
        } else {
            const bool asked_for = destination == Destination::pdf_file;
            const QString title = asked_for ? save_as_pdf : no_printer;
            file = ask_where_to_save(
                window, title, job.file_name,
                {.dialog = "savepdf", .names = u"PDF files (*.pdf)"_s, .suffix = u"pdf"_s});
            if (file.isEmpty()) {
                return {};
            }
            write_pdf(module, file, job);
            remember_folder(window, file);
        }
        if (!job.missing.empty()) {
            module.screens.show_message("Not everything was printed.\n\n" + job.missing);
        }
    } catch (const std::exception& error) {
        module.screens.show_message(std::string("Nothing was printed.\n\n") + error.what());
        return {};
    }
    return file;
}

}  // namespace kelvar
