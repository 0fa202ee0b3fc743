// Every screen of the program, with a way to it, for tests that hold for all of them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/support/ui_harness.h"

namespace kelvar::test {

struct Station {
    const char* name;                 // of the screen
    std::function<void(UiTest&)> go;  // from the title screen
};

const std::vector<Station>& stations();

inline std::string station_name(const ::testing::TestParamInfo<Station>& station) {
    return station.param.name;
}

// Shows the test's parameter in its messages.
inline void PrintTo(const Station& station, std::ostream* out) {
    *out << station.name;
}

}  // namespace kelvar::test
