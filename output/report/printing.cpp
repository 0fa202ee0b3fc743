#include "output/report/printing.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>

#include "output/report/page_painter.h"
#include "output/report/report_templates.h"
#include "widgets/controls.h"
#include "widgets/hourglass.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// Three quarters of an inch.
const QMarginsF margins(54.0, 54.0, 54.0, 54.0);

constexpr qsizetype longest_title = 150;  // bytes; a file name takes 255

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

PrintButtons::PrintButtons(QHBoxLayout* navigation) : QObject(navigation) {
    cmdprint = control::button(u"Prin&t"_s, "cmdprint");
    connect(cmdprint, &QPushButton::clicked, this, [this] { start(Destination::printer); });

    auto* menu = new QMenu(cmdprint);
    menu->addAction(u"&Print"_s, this, [this] { start(Destination::printer); });
    menu->addAction(u"&Save as PDF..."_s, this, [this] { start(Destination::pdf_file); });
    cmdprintmenu = control::picture(u"down"_s, u"Print or save as PDF"_s, "cmdprintmenu");
    cmdprintmenu->setPopupMode(QToolButton::InstantPopup);
    cmdprintmenu->setMenu(menu);
    QWidget* row = navigation->parentWidget();
    control::press_with(Qt::CTRL | Qt::Key_P, cmdprint, row->parentWidget());
    navigation->insertWidget(1, cmdprint);
    navigation->insertWidget(2, cmdprintmenu);

    lblsaved = theme::label({}, theme::Role::body, "lblsaved");
    lblsaved->setContentsMargins(3 * theme::grid, 0, 3 * theme::grid, theme::grid);
    lblsaved->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // a long one widens no window
    lblsaved->installEventFilter(this);
    lblsaved->hide();
    auto* column = static_cast<QVBoxLayout*>(row->parentWidget()->layout());
    column->insertWidget(column->indexOf(row), lblsaved);
}

void PrintButtons::start(Destination destination) {
    show_saved({});
    emit chosen(destination);
}

void PrintButtons::show_saved(const QString& file) {
    const QString text = file.isEmpty() ? QString() : u"Saved to "_s + QDir::toNativeSeparators(file);
    lblsaved->setAccessibleName(text);
    lblsaved->setToolTip(text);
    lblsaved->setVisible(!text.isEmpty());
    fit_saved();
    if (!text.isEmpty()) {
        QAccessibleEvent said(lblsaved, QAccessible::Alert);
        QAccessible::updateAccessibility(&said);
    }
}

// Folders in the middle go first: the beginning says that it is saved, the end under which name.
void PrintButtons::fit_saved() {
    lblsaved->setText(lblsaved->fontMetrics().elidedText(lblsaved->accessibleName(), Qt::ElideMiddle,
                                                         lblsaved->contentsRect().width()));
}

bool PrintButtons::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblsaved && event->type() == QEvent::Resize) {
        fit_saved();
    }
    return QObject::eventFilter(watched, event);
}

void PrintButtons::setEnabled(bool enabled) {
    cmdprint->setEnabled(enabled);
    cmdprintmenu->setEnabled(enabled);
}

}  // namespace kelvar
