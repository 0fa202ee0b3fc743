#pragma once

#include "shell/screen.h"

namespace kelvar {

// All four portfolios.
class frmdnote : public Screen {
    Q_OBJECT

public:
    explicit frmdnote(Module1& module);
};

}  // namespace kelvar
