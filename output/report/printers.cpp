#include "output/report/printers.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QPrinterInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace kelvar {

int look_for_printers(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QPrinterInfo::defaultPrinter();
    return 0;
}

void start_looking(QProcess& search) {
    search.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(looks_for_printers)});
}

// The toolkit asks for a printer whatever is to be made, unless its library knows of no server.
std::unique_ptr<QPrinter> paper() {
    const auto set_server =
        reinterpret_cast<void (*)(const char*)>(QLibrary::resolve(u"cups"_s, 2, "cupsSetServer"));
    if (set_server != nullptr) {
        set_server("/");
    }
    auto paper = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (set_server != nullptr) {
        set_server(nullptr);  // as the system says
    }
    paper->setOutputFormat(QPrinter::PdfFormat);
    paper->setPageSize(QPageSize(QPageSize::Letter));
    return paper;
}

}  // namespace kelvar
