#include <filesystem>
#include <string_view>

#include "main/only_program.h"
#include "main/program.h"
#include "output/report/printers.h"
#include "shell/application.h"
#include "widgets/theme.h"

namespace {

// The folder that the first argument names, where each user has one; otherwise the program's own. One
// that is not there is known by the slash at its end. The argument behind it, or the only one, is a
// participant's file. Names may be any bytes.
struct Arguments {
    std::filesystem::path folder{QCoreApplication::applicationDirPath().toStdString()};
    std::filesystem::path participant{};
};

Arguments arguments_of(int argc, char** argv) {
    Arguments arguments;
    int next = 1;
    if (argc > 1 &&
        (std::filesystem::is_directory(argv[1]) || std::string_view(argv[1]).ends_with('/'))) {
        arguments.folder = std::filesystem::weakly_canonical(argv[next++]);
    }
    if (argc > next) {
        arguments.participant = std::filesystem::absolute(argv[next]);
    }
    return arguments;
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
        const auto [program_folder, participant] = arguments_of(argc, argv);
        const OnlyProgram only_one(program_folder);
        if (only_one.is_second()) {
            return Application::report_already_open();
        }
        Program program(program_folder);
        program.open(participant);
        return Application::exec();
    } catch (const std::exception& error) {
        return Application::report_run_time_error(error);
    }
}
