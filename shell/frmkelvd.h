#pragma once

#include "shell/screen.h"

namespace kelvar {

// Title screen: opens the database, leads to the menu.
class frmkelvd : public Screen {
    Q_OBJECT

public:
    explicit frmkelvd(Module1& module);
    void load() override;

protected:
    void go_next() override;
    void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace kelvar
