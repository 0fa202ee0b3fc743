#pragma once

#include "output/result/schedule_result_screen.h"

namespace kelvar {

// Partial lump sum: paid at the first date; the rest in periodic payments from the second date on.
class frmparti : public ScheduleScreen {
    Q_OBJECT

public:
    explicit frmparti(Module1& module);
    void load() override;

protected:
    void show_values(bool visible) override;

private:
    QLabel* lblcurvalue = nullptr;
    QLabel* lblpartial = nullptr;
    QLabel* lblfrstdate = nullptr;
    QLabel* lblstartvalue = nullptr;
    QLabel* lblscnddate = nullptr;
    QLabel* lblscndvalue = nullptr;
};

}  // namespace kelvar
