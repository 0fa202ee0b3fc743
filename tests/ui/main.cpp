#include <gtest/gtest.h>

#include "shell/application.h"
#include "widgets/theme.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" KELVAR_DISPLAYS);
    qputenv("CUPS_SERVER", "/nowhere");  // or the tests would print where a printer is set up
    kelvar::Application application(argc, argv);
    kelvar::theme::apply(application);
    return RUN_ALL_TESTS();
}
