#pragma once

#include <QWidget>

#include "core/module1.h"

class QComboBox;
class QLabel;

namespace kelvar {

struct Entries;

// Month and year of the first payment with the age that is reached then. What the user chose comes back
// as soon as it is offered again. Writes `over_72_flag`.
class FirstPaymentLists : public QWidget {
    Q_OBJECT

public:
    explicit FirstPaymentLists(Module1& module);

    // Chooses a month, 1..12, as the user would, before anything is offered.
    void start_with(int month) { wished_month_ = month; }
    // Offers what may be chosen today, and shows the age.
    void offer();
    // The day can have changed, and with it the years on offer and the age. What the lists show stays,
    // also a month that has passed since it was chosen: Next says so.
    void follow_day();
    // Lists and age follow a new date of birth.
    void follow_birth(Date birth);
    // The date of birth is refused or taken away: neither the age nor the latest month is known. What
    // was offered for the last one stays.
    void clear_age();

    // Chooses month and year of entries, as soon as they are offered.
    void choose(const Entries& entries);
    // The lists show what was chosen.
    bool shows_choice() const;
    void put_into(Entries& entries) const;

    int month() const;      // 1..12
    int year() const;       // 0 while no year is offered
    int age_shown() const;  // 0 while none is
    void focus_month();

private:
    void build();
    void get_month();
    void get_year();
    void chk_year();
    void chk_frstmon();
    bool over_72() const;
    void less_month_now();
    void show_age();
    void show_latest(Date birth);
    void show_changed();

    Module1& module;
    Scenario& scenario;
    QComboBox* Cmbfrstmonth = nullptr;
    QComboBox* Cmbfrstyear = nullptr;
    QLabel* lblage = nullptr;
    QLabel* lbllatest = nullptr;
    QLabel* lblchanged = nullptr;
    int wished_month_ = 1;  // what the user last chose, also while the lists do not offer it
    int wished_year_ = 0;   // 0 while none was chosen
    Date birth_ = no_date;  // the last one accepted on this screen
    bool birth_known_ = false;
};

}  // namespace kelvar
