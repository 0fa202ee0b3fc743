// The program up to its shown title screen, ended after its first paint. Its folder is the argument.
#include <QTimer>

#include "main/all_screens.h"
#include "shell/application.h"
#include "shell/main_window.h"
#include "widgets/theme.h"

int main(int argc, char** argv) {
    using namespace kelvar;
    Application application(argc, argv);
    theme::apply(application);
    MainWindow window;
    Module1 module(window, argv[1]);
    add_all_screens(window, module);
    window.load(module);
    window.show();
    QTimer::singleShot(0, &application, &QCoreApplication::quit);
    return Application::exec();
}
