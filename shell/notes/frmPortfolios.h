#pragma once

#include <QDialog>

#include "core/module1.h"

namespace kelvar {

// One portfolio, where the user pointed on the rates screen.
class frmPortfolios : public QDialog {
    Q_OBJECT

public:
    frmPortfolios(const Module1& module, QWidget* parent);
};

}  // namespace kelvar
