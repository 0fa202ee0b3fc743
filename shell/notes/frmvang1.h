#pragma once

#include "shell/screen.h"

namespace kelvar {

// How to make payments last longer: the table of durations.
class frmvang1 : public Screen {
    Q_OBJECT

public:
    explicit frmvang1(Module1& module);

protected:
    void go_next() override;

private:
    QWidget* build_table();
};

}  // namespace kelvar
