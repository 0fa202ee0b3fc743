#include <filesystem>

#include "main/all_screens.h"
#include "main/only_program.h"
#include "shell/application.h"
#include "shell/main_window.h"
#include "widgets/theme.h"

int main(int argc, char** argv) {
    using namespace kelvar;
    Application application(argc, argv);
    Application::setApplicationName(QStringLiteral("Kelvar"));
    Application::setDesktopFileName(QStringLiteral("io.github.kelvar.Kelvar"));
    theme::apply(application);
    try {
        const std::filesystem::path program_folder =
            std::filesystem::path(Application::applicationDirPath().toStdString());
        const OnlyProgram program(program_folder);
        if (program.is_second()) {
            return Application::report_already_open();
        }
        MainWindow window;
        Module1 module(window, program_folder);
        add_all_screens(window, module);
        window.load(module);
        window.show();
        return Application::exec();
    } catch (const std::exception& error) {
        return Application::report_run_time_error(error);
    }
}
