// What is printed, and where it goes: a printer or a PDF file.
#pragma once

#include <QPageLayout>
#include <QString>
#include <functional>
#include <string>

#include "core/module1.h"

class QPagedPaintDevice;
class QWidget;

namespace kelvar {

// print_dialog asks for the printer, the pages and the copies; preview shows the pages before it does.
enum class Destination { printer, print_dialog, preview, pdf_file };

struct PrintJob {
    QString title;
    QString file_name;  // proposed for a PDF file, without its suffix
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    std::string missing = {};  // why a part of it is not there; empty when all is
    std::function<void(QPagedPaintDevice&)> draw;
};

// Prints at once on the default printer, or as the user says in the system's dialog or after a preview;
// where there is no printer, its server does not answer within 3 seconds, or a file is asked for, into
// a PDF file that the user names over `window`. What takes half a second shows how far it is and can be
// cancelled, which leaves no file and sends nothing to the printer. Whatever goes wrong, also in
// preparing the job, is one message and leaves everything as it was: an existing file is only replaced
// by a complete one. A missing part is one message after the rest was printed. Returns what to say of
// where it went, or nothing.
QString print(Module1& module, QWidget* window, Destination destination,
              const std::function<PrintJob()>& prepare);

}  // namespace kelvar
