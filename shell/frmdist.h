#pragma once

#include "shell/screen.h"

namespace kelvar {

// Menu: what the plan allows, what there is to decide, and notes on each decision. Each time it is
// created a fresh scenario begins.
class frmdist : public Screen {
    Q_OBJECT

public:
    explicit frmdist(Module1& module);
    void load() override;

protected:
    void go_next() override;

private:
    void build_rules();
    void build_options();
};

}  // namespace kelvar
