#pragma once

#include "shell/screen.h"

namespace kelvar {

// How to make payments last longer: the explanation with a chart.
class frmvang : public Screen {
    Q_OBJECT

public:
    explicit frmvang(Module1& module);

protected:
    void go_next() override;
};

}  // namespace kelvar
