#include "output/report/print_job.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

#include "output/report/page_painter.h"
#include "output/report/pdf_file.h"
#include "widgets/hourglass.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

const QString save_as_pdf = u"Save as PDF"_s;
const QString no_printer = u"No printer is set up - save as PDF"_s;

constexpr const char* last_folder = "last_pdf_folder";  // a property of the main window

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

// Where the user saved last, or keeps documents.
QDir folder_to_offer(const QWidget* main_window) {
    const QDir last(main_window->property(last_folder).toString());
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    if (!main_window->property(last_folder).isNull() && last.exists()) {
        return last;
    }
    return documents.exists() ? documents : QDir::home();
}

// Empty when the user cancels.
QString ask_for_pdf_file(QWidget* main_window, const QString& title, const QString& name) {
    QFileDialog dialog(main_window, title);
    dialog.setObjectName(u"savepdf"_s);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(u"PDF files (*.pdf)"_s);
    dialog.setDefaultSuffix(u"pdf"_s);
    dialog.setDirectory(folder_to_offer(main_window));
    dialog.selectFile(name + u".pdf"_s);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    main_window->activateWindow();  // some window managers lose it when a file is replaced
    if (!accepted) {
        return {};
    }
    return dialog.selectedFiles().value(0);
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
            file = ask_for_pdf_file(window->window(), title, job.file_name);
            if (file.isEmpty()) {
                return {};
            }
            write_pdf(module, file, job);
            window->window()->setProperty(last_folder, QFileInfo(file).absolutePath());
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
