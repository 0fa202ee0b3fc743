#include <filesystem>

#include "main/only_program.h"
#include "main/program.h"
#include "shell/application.h"
#include "widgets/theme.h"

namespace {

// The folder that the first argument names, where each user has one; otherwise the program's own.
std::filesystem::path folder_of_program() {
    const QStringList arguments = QCoreApplication::arguments();
    return arguments.size() > 1
               ? std::filesystem::weakly_canonical(arguments[1].toStdString())
               : std::filesystem::path(QCoreApplication::applicationDirPath().toStdString());
}

}  // namespace

int main(int argc, char** argv) {
    using namespace kelvar;
    Application application(argc, argv);
    Application::setApplicationName(QStringLiteral("Kelvar"));
    Application::setDesktopFileName(QStringLiteral("io.github.kelvar.Kelvar"));
    theme::apply(application);
    try {
        const std::filesystem::path program_folder = folder_of_program();
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
