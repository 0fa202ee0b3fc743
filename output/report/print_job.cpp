#include "output/report/print_job.h"

#include <QAction>
#include <QBuffer>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRadioButton>
#include <QScreen>
#include <QToolBar>
#include <exception>
#include <memory>
#include <optional>

#include "output/report/finished_pdf.h"
#include "output/report/page_painter.h"
#include "output/report/print_progress.h"
#include "output/report/printers.h"
#include "shell/saved_file.h"
#include "widgets/hourglass.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

const QString save_as_pdf = u"Save as PDF"_s;
const QString no_printer = u"No printer is set up - save as PDF"_s;
const QString no_answer = u"The print server does not answer - save as PDF"_s;

// Without any font the toolkit draws boxes, or nothing.
void require_font() {
    if (!QFontMetrics(QGuiApplication::font()).inFont(u'0')) {
        throw PrintError("No font is installed on this computer, so there is nothing to print with.");
    }
}

// Null when there is none.
QPrinterInfo printer_for(Destination destination) {
    const QPrinterInfo usual = QPrinterInfo::defaultPrinter();
    const bool may_be_chosen = destination != Destination::printer;
    return usual.isNull() && may_be_chosen ? QPrinterInfo::availablePrinters().value(0) : usual;
}

void set_up(QPrinter& printer, const PrintJob& job) {
    printer.setDocName(job.title);
    printer.setCreator(u"Kelvar"_s);
    printer.setPageOrientation(job.orientation);
    printer.setPageMargins(page_margins, QPageLayout::Point);
}

void draw_on(QPrinter& printer, const PrintJob& job) {
    const Hourglass hourglass;
    draw_reports(job.reports, printer);
    if (printer.printerState() == QPrinter::Error) {
        throw PrintError("The printer " + to_utf8(printer.printerName()) + " reports an error.");
    }
}

// Draws all of it where it can be thrown away.
void rehearse(const QPrinter& printer, const PrintJob& job, PrintProgress& progress) {
    const Hourglass hourglass;
    QBuffer thrown_away;
    thrown_away.open(QIODevice::WriteOnly);
    QPdfWriter rehearsal(&thrown_away);
    rehearsal.setPageLayout(printer.pageLayout());
    rehearsal.setResolution(printer.resolution());
    rehearsal.setPageRanges(printer.pageRanges());
    draw_reports(job.reports, rehearsal, &progress);
}

// A printing system takes what was drawn so far also of a job that is given up: only a job that the
// user did not cancel goes to the printer.
void print_on(QPrinter& printer, const PrintJob& job, PrintProgress& progress) {
    rehearse(printer, job, progress);
    progress.send();
    draw_on(printer, job);
}

// Which pages and how many copies. False when the user does not print.
bool ask_how(QPrinter& printer, QWidget* window, int pages) {
    QPrintDialog dialog(&printer, window->window());
    dialog.setObjectName(u"printdialog"_s);
    dialog.setOption(QAbstractPrintDialog::PrintToFile, false);  // Save as PDF keeps its rules
    dialog.setMinMax(1, pages);
    dialog.setFromTo(1, pages);
    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }
    // A list of pages goes to the printing system, which picks them out of all that it is given.
    // Neither dialog nor printer tells such a list from a range: both say PageRange.
    const auto* list = dialog.findChild<QRadioButton*>(u"pagesRadioButton"_s);
    if (list != nullptr && list->isChecked()) {
        printer.setPageRanges({});
    }
    return true;
}

// The user looks at the pages. True to print them, in the same way as without a look.
bool preview(QPrinter& printer, QWidget* window, const PrintJob& job) {
    QPrintPreviewDialog dialog(&printer, window->window());
    dialog.setObjectName(u"printpreview"_s);
    std::exception_ptr error;  // none may pass through the event loop
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* pages) {
        try {
            draw_on(*pages, job);
        } catch (const std::exception&) {
            error = std::current_exception();
            QMetaObject::invokeMethod(&dialog, &QDialog::reject, Qt::QueuedConnection);
        }
    });
    // As large as it may be, at the width of a page, and the button that prints first, where a narrow
    // window shows it.
    dialog.resize(window->screen()->size());
    auto* tools = dialog.findChild<QToolBar*>();
    // The dialog would ask and print by itself, and offers nothing of its Print but the action's text.
    for (QAction* action : dialog.findChildren<QAction*>()) {
        if (action->text() == u"Fit width") {
            action->trigger();
        } else if (action->text() == u"Print") {
            QObject::disconnect(action, &QAction::triggered, &dialog, nullptr);
            QObject::connect(action, &QAction::triggered, &dialog, &QDialog::accept);
            tools->insertAction(tools->actions().constFirst(), action);
        }
    }
    const bool wants_print = dialog.exec() == QDialog::Accepted;
    if (error) {
        std::rethrow_exception(error);
    }
    return wants_print;
}

// What readers of PDF files show of one, and read aloud in its language.
QByteArray description(const PrintJob& job) {
    return uR"(<?xpacket begin="" id="W5M0MpCehiHzreSzNTczkc9d"?>
<x:xmpmeta xmlns:x="adobe:ns:meta/">
<rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
<rdf:Description rdf:about="" xmlns:dc="http://purl.org/dc/elements/1.1/"
 xmlns:xmp="http://ns.adobe.com/xap/1.0/">
<dc:title><rdf:Alt><rdf:li xml:lang="x-default">%1</rdf:li></rdf:Alt></dc:title>
<dc:description><rdf:Alt><rdf:li xml:lang="x-default">%2</rdf:li></rdf:Alt></dc:description>
<dc:language><rdf:Bag><rdf:li>en-US</rdf:li></rdf:Bag></dc:language>
<xmp:CreatorTool>Kelvar</xmp:CreatorTool>
</rdf:Description>
</rdf:RDF>
</x:xmpmeta>
<?xpacket end="r"?>)"_s.arg(job.title.toHtmlEscaped(), job.file_name.toHtmlEscaped())
        .toUtf8();
}

// Empty when the user names no file.
QString save_pdf(const Module1& module, QWidget* window, const QString& title, const PrintJob& job,
                 const QPageLayout& paper, PrintProgress& progress) {
    QString file =
        ask_where_to_save(window, title, job.file_name,
                          {.dialog = "savepdf", .names = u"PDF files (*.pdf)"_s, .suffix = u"pdf"_s});
    if (file.isEmpty()) {
        return {};
    }
    {
        const Hourglass hourglass;
        write_whole(module, file, pdf_of(job, paper, &progress));
    }
    remember_folder(window, file);
    return saved_to(file);
}

// Where it went; empty when the user does not print after all.
QString print_prepared(const Module1& module, QWidget* window, Destination destination,
                       const PrintJob& job, PrintProgress& progress) {
    if (destination == Destination::pdf_file) {
        return save_pdf(module, window, save_as_pdf, job, paper_of(job), progress);
    }
    std::optional<QPageLayout> wanted;  // what the user has made of it in the preview
    if (destination == Destination::preview) {
        const std::unique_ptr<QPrinter> pages = paper();
        set_up(*pages, job);
        const QPageLayout offered = pages->pageLayout();
        if (!preview(*pages, window, job)) {
            return {};
        }
        if (pages->pageLayout() != offered) {
            wanted = pages->pageLayout();
        }
    }
    const bool answered = progress.find_printers();
    if (progress.cancelled()) {
        return {};
    }
    const QPrinterInfo where = answered ? printer_for(destination) : QPrinterInfo();
    if (where.isNull()) {
        return save_pdf(module, window, answered ? no_printer : no_answer, job,
                        wanted.value_or(paper_of(job)), progress);
    }
    QPrinter printer(where, QPrinter::HighResolution);
    set_up(printer, job);
    if (wanted) {
        printer.setPageLayout(*wanted);
    }
    if (destination != Destination::printer) {
        rehearse(printer, job, progress);
        progress.end();
        if (!ask_how(printer, window, progress.pages())) {
            return {};
        }
    }
    print_on(printer, job, progress);
    return u"Sent to the printer "_s + printer.printerName();
}

}  // namespace

QPageLayout paper_of(const PrintJob& job) {
    return {QPageSize(QPageSize::Letter), job.orientation, page_margins, QPageLayout::Point};
}

QByteArray pdf_of(const PrintJob& job, const QPageLayout& paper, PageCounter* counter) {
    require_font();
    QBuffer pages;
    pages.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pages);
    writer.setTitle(job.title);
    writer.setCreator(u"Kelvar"_s);
    writer.setDocumentXmpMetadata(description(job));
    writer.setPageLayout(paper);
    const std::vector<OutlineEntry> outline = draw_reports(job.reports, writer, counter);
    return finished_pdf(pages.data(), outline);
}

void add_reports(PrintJob& job, const std::filesystem::path& program_folder, Database& database,
                 const std::vector<std::string>& templates, ReportValues result) {
    const auto note_missing = [&](const PrintError& error) {
        job.missing += (job.missing.empty() ? "" : "\n\n") + std::string(error.what());
    };
    try {
        add_office_words(result, program_folder / "office.html", database);
    } catch (const PrintError& error) {
        note_missing(error);
    }
    for (const std::string& name : templates) {
        try {
            job.reports.push_back(fill_template(program_folder / name, database, result));
        } catch (const PrintError& error) {
            note_missing(error);
        }
    }
}

QString print(Module1& module, QWidget* window, Destination destination, const PrintJob& job) {
    PrintProgress progress(window);
    try {
        require_font();
        if (job.reports.empty()) {
            throw PrintError(job.missing);
        }
        QString printed = print_prepared(module, window, destination, job, progress);
        progress.end();
        if (!printed.isEmpty() && !job.missing.empty()) {
            module.screens.show_message("Not everything was printed.\n\n" + job.missing);
        }
        return printed;
    } catch (const std::exception& error) {
        progress.end();
        if (!progress.cancelled()) {
            module.screens.show_message(std::string("Nothing was printed.\n\n") + error.what());
        }
        return {};
    }
}

}  // namespace kelvar
