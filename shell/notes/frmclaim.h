#pragma once

#include <QDialog>

namespace kelvar {

// The disclaimer, shown over a result. Enter, Escape or its button close it.
class frmclaim : public QDialog {
    Q_OBJECT

public:
    explicit frmclaim(QWidget* parent);
};

}  // namespace kelvar
