#pragma once

#include "shell/screen.h"

class QLineEdit;

namespace kelvar {

class MaskedDateEdit;

// Participant data: date of birth, account value, first payment month.
class frmdist1 : public Screen {
    Q_OBJECT

public:
    explicit frmdist1(Module1& module);
    void load() override;
    void activate() override;

protected:
    void go_next() override { go_dnxt2(); }
    void go_previous() override { get_back(); }

private:
    void build_birth();
    void build_value();
    void build_month();

    bool chk_birth();
    void chk_curvalue();
    void value_left();

    void get_month();
    void get_year();
    void chk_year();
    void chk_frstmon();
    bool over_72() const;
    void less_month_now();
    void show_age();
    void show_changed();

    void err_box(std::string_view text, QWidget* field) { report_once(text, field); }
    void edit_date();
    void go_dnxt2();
    void get_back();

    int chosen_month() const;  // 1..12
    int chosen_year() const;   // 0 while no year is offered

    MaskedDateEdit* mskbirth = nullptr;
    QLineEdit* txtcurvalue = nullptr;
    QComboBox* Cmbfrstmonth = nullptr;
    QComboBox* Cmbfrstyear = nullptr;
    QLabel* lblage = nullptr;
    QLabel* lblchanged = nullptr;
    int wished_month_ = 1;  // what the user last chose, also while the lists do not offer it
    int wished_year_ = 0;   // 0 while none was chosen
};

}  // namespace kelvar
