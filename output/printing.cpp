#include "output/printing.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenu>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSaveFile>
#include <QStandardPaths>
#include <QToolButton>
#include <algorithm>
#include <filesystem>

#include "output/page_painter.h"
#include "output/report_templates.h"
#include "shell/hourglass.h"
#include "shell/screen.h"
#include "shell/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// Three quarters of an inch.
const QMarginsF margins(54.0, 54.0, 54.0, 54.0);

constexpr const char* last_folder = "last_pdf_folder";  // a property of the main window

void print_on(const QPrinterInfo& where, const PrintJob& job) {
    const Hourglass hourglass;
    QPrinter printer(where, QPrinter::HighResolution);
    printer.setDocName(job.title);
    printer.setPageOrientation(job.orientation);
    printer.setPageMargins(margins, QPageLayout::Point);
    job.draw(printer);
    if (printer.printerState() == QPrinter::Error) {
        throw PrintError("The printer " + to_utf8(where.printerName()) + " reports an error.");
    }
}

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

// Where the name is a link to another file, that file is replaced and the link stays.
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
        writer.setPageMargins(margins, QPageLayout::Point);
        job.draw(writer);
    }
    if (!file.commit()) {
        refuse();
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
QString ask_for_pdf_file(QWidget* main_window, const QString& title) {
    QFileDialog dialog(main_window, u"Save as PDF"_s);
    dialog.setObjectName(u"savepdf"_s);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(u"PDF files (*.pdf)"_s);
    dialog.setDefaultSuffix(u"pdf"_s);
    dialog.setDirectory(folder_to_offer(main_window));
    dialog.selectFile(title + u".pdf"_s);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    main_window->activateWindow();  // some window managers lose it when a file is replaced
    if (!accepted) {
        return {};
    }
    return dialog.selectedFiles().value(0);
}

}  // namespace

void print(Module1& module, QWidget* window, Destination destination,
           const std::function<PrintJob()>& prepare) {
    try {
        PrintJob job;
        QPrinterInfo printer;
        {
            const Hourglass hourglass;
            job = prepare();
            if (destination == Destination::printer) {
                printer = QPrinterInfo::defaultPrinter();
            }
        }
        if (!printer.isNull()) {
            print_on(printer, job);
        } else if (const QString file = ask_for_pdf_file(window->window(), job.title);
                   !file.isEmpty()) {
            write_pdf(module, file, job);
            window->window()->setProperty(last_folder, QFileInfo(file).absolutePath());
        } else {
            return;
        }
        if (!job.missing.empty()) {
            module.screens.show_message("Not everything was printed.\n\n" + job.missing);
        }
    } catch (const std::exception& error) {
        module.screens.show_message(std::string("Nothing was printed.\n\n") + error.what());
    }
}

PrintButtons::PrintButtons(QHBoxLayout* navigation) : QObject(navigation) {
    cmdprint = control::button(u"Prin&t"_s, "cmdprint");
    connect(cmdprint, &QPushButton::clicked, this, [this] { emit chosen(Destination::printer); });

    auto* menu = new QMenu(cmdprint);
    menu->addAction(u"&Print"_s, this, [this] { emit chosen(Destination::printer); });
    menu->addAction(u"&Save as PDF..."_s, this, [this] { emit chosen(Destination::pdf_file); });
    cmdprintmenu = control::picture(u"down"_s, u"Print or save as PDF"_s, "cmdprintmenu");
    cmdprintmenu->setPopupMode(QToolButton::InstantPopup);
    cmdprintmenu->setMenu(menu);
    navigation->insertWidget(1, cmdprint);
    navigation->insertWidget(2, cmdprintmenu);
}

void PrintButtons::setEnabled(bool enabled) {
    cmdprint->setEnabled(enabled);
    cmdprintmenu->setEnabled(enabled);
}

}  // namespace kelvar
