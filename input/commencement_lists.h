#pragma once

#include <QWidget>

#include "core/module1.h"

class QComboBox;
class QLabel;

namespace kelvar {

// Month and year in which the payments after an amount certain commence. Until the user has chosen one
// of them, they follow the first payment.
class CommencementLists : public QWidget {
    Q_OBJECT

public:
    explicit CommencementLists(Module1& module);

    // Offers what may be chosen today.
    void get_year();
    // Stores what is chosen, 0 where nothing can be, while the method has a commencement.
    void take();

signals:
    void taken();

private:
    void build();
    void get_month2();

    Module1& module;
    Scenario& scenario;
    QComboBox* cmbscnmonth = nullptr;
    QComboBox* cmbscnyear = nullptr;
    QLabel* lblnomonth = nullptr;
    bool chosen_ = false;  // by the user, who then keeps month and year where offered
};

}  // namespace kelvar
