#include <filesystem>
#include <string_view>

#include "main/only_program.h"
#include "main/program.h"
#include "output/report/printers.h"
#include "shell/application.h"
#include "widgets/theme.h"

namespace {

// The folder that the first argument names, where each user has one; otherwise the program's own. Its
// name may be any bytes.
std::filesystem::path folder_of_program(int argc, char** argv) {
    return argc > 1 ? std::filesystem::weakly_canonical(argv[1])
                    : std::filesystem::path(QCoreApplication::applicationDirPath().toStdString());
}

}  // namespace

int main(int argc, char** argv) {
    using namespace kelvar;
    if (argc > 1 && argv[1] == std::string_view(looks_for_printers)) {
        return look_for_printers(argc, argv);
    }
    Application application(argc, argv);
    Application::setApplicationName(QStringLiteral("Kelvar"));
    Application::setDesktopFileName(QStringLiteral("io.github.kelvar.Kelvar"));
    theme::apply(application);
    try {
        const std::filesystem::path program_folder = folder_of_program(argc, argv);
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
