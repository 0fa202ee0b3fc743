#pragma once

#include "shell/screen.h"

namespace kelvar {

class Grid;

// The whole single life expectancy and minimum distribution table, in the table's own order.
class frmlife : public Screen {
    Q_OBJECT

public:
    explicit frmlife(Module1& module);
    void load() override;
    void activate() override;

private:
    void add_grid();

    Grid* grdlife = nullptr;
};

}  // namespace kelvar
