#pragma once

#include "output/result/schedule_result_screen.h"

namespace kelvar {

// Periodic payments: value at the first payment and the schedule from there on.
class frmperio : public ScheduleScreen {
    Q_OBJECT

public:
    explicit frmperio(Module1& module);
    void load() override;

protected:
    PaymentTerms payment_terms() override;
    void show_values(bool visible) override;
    Heading heading() const override;

private:
    FirstPayment first_payment_;
    QLabel* lblcurvalue = nullptr;
    QLabel* lblfrstdate = nullptr;
    QLabel* lblstartvalue = nullptr;
};

}  // namespace kelvar
