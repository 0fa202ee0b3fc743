// What is printed, and where it goes: a printer or a PDF file.
#pragma once

#include <QByteArray>
#include <QPageLayout>
#include <QString>
#include <filesystem>
#include <string>
#include <vector>

#include "core/module1.h"
#include "output/report/report.h"

class QWidget;

namespace kelvar {

// print_dialog asks for the printer, the pages and the copies; preview shows the pages before it does.
enum class Destination { printer, print_dialog, preview, pdf_file };

struct PrintJob {
    QString title;
    QString file_name;  // proposed for a PDF file, without its suffix
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    std::vector<Report> reports = {};
    std::string missing = {};  // why a part of it, or all, is not there; empty when all is
};

// Adds the reports of the templates with these names, with the office's own words where there are any,
// or says why one is missing.
void add_reports(PrintJob& job, const std::filesystem::path& program_folder, Database& database,
                 const std::vector<std::string>& templates, ReportValues result);

// Letter, in its orientation.
QPageLayout paper_of(const PrintJob& job);
// A finished PDF in memory. The counter may be null. Throws PrintError, also when it does not go on.
QByteArray pdf_of(const PrintJob& job, const QPageLayout& paper, PageCounter* counter = nullptr);

// Prints at once on the default printer, or as the user says in the system's dialog or after a preview;
// where there is no printer, its server does not answer within 3 seconds, or a file is asked for, into
// a PDF file that the user names over `window`. What takes half a second shows how far it is and can be
// cancelled, which leaves no file and sends nothing to the printer. Whatever goes wrong is one message
// and leaves everything as it was: an existing file is only replaced by a complete one. A missing part
// is one message after the rest was printed. Returns what to say of where it went, or nothing.
QString print(Module1& module, QWidget* window, Destination destination, const PrintJob& job);

}  // namespace kelvar
