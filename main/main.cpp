#include <filesystem>

#include "main/only_program.h"
#include "main/program.h"
#include "shell/application.h"
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
        const OnlyProgram only_one(program_folder);
        if (only_one.is_second()) {
            return Application::report_already_open();
        }
        Program program(program_folder);
        program.open();
        return Application::exec();
    } catch (const std::exception& error) {
        return Application::report_run_time_error(error);
    }
}
