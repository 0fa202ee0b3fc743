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
    void show_values(bool visible) override;

private:
    QLabel* lblcurvalue = nullptr;
    QLabel* lblfrstdate = nullptr;
    QLabel* lblstartvalue = nullptr;
};

}  // namespace kelvar
