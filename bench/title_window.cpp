// The program up to its title screen, ended after its first paint. Its folder is the argument.
#include "bench/first_paint.h"
#include "main/program.h"
#include "shell/application.h"
#include "widgets/theme.h"

int main(int argc, char** argv) {
    using namespace kelvar;
    Application application(argc, argv);
    theme::apply(application);
    Program program(argv[1]);
    const EndAfterFirstPaint end(program.window());
    program.open();
    return Application::exec();
}
