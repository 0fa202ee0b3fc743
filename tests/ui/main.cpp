#include <gtest/gtest.h>

#include <string_view>

#include "output/report/printers.h"
#include "shell/application.h"
#include "widgets/theme.h"

int main(int argc, char** argv) {
    if (argc > 1 && argv[1] == std::string_view(kelvar::looks_for_printers)) {
        return kelvar::look_for_printers(argc, argv);
    }
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" KELVAR_DISPLAYS);
    qputenv("CUPS_SERVER", "/nowhere");  // or the tests would print where a printer is set up
    kelvar::Application application(argc, argv);
    kelvar::theme::apply(application);
    return RUN_ALL_TESTS();
}
