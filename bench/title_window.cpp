// The program up to its shown title screen, ended after its first paint. Its folder is the argument.
#include <QTimer>

#include "main/program.h"
#include "shell/application.h"
#include "widgets/theme.h"

int main(int argc, char** argv) {
    using namespace kelvar;
    Application application(argc, argv);
    theme::apply(application);
    Program program(argv[1]);
    program.open();
    QTimer::singleShot(0, &application, &QCoreApplication::quit);
    return Application::exec();
}
