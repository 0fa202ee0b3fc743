#pragma once

#include "output/chart/chart_screen.h"

namespace kelvar {

// Chart of periodic payments.
class frmcperi : public ChartScreen {
    Q_OBJECT

public:
    explicit frmcperi(Module1& module1) : ChartScreen(module1, ScreenId::frmcperi, "frmcperi") {}
};

}  // namespace kelvar
