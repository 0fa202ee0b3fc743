// The engine's front door: what becomes of an account at one rate.
#pragma once

#include "core/scenario.h"
#include "engine/first_payment.h"
#include "engine/ledger.h"
#include "engine/schedule.h"

namespace kelvar {

enum class Outcome {
    complete,        // everything is paid out
    limit_exceeded,  // payments of a fixed amount outlast the life expectancy; rows as far as they came
    nothing_left,    // the account is empty when the payments would begin
    no_payments      // the scenario says of no payments how long they run
};

// The months that the scenario names as dates: each keeps the day of today.
struct Commencement {
    FirstPayment first;         // the lump sum, or the first payment
    Date second_date{no_date};  // the first payment after a partial lump sum
};

Commencement commencement(const Scenario& scenario, Date today);

struct Projection {
    Date today{no_date};
    double rate = 0.0;  // percent per year
    Commencement dates;
    double start_value = 0.0;   // value of the account at the first date
    double second_value = 0.0;  // at the second date, after a partial lump sum
    double lump_sum = 0.0;      // paid at the first date
    PaymentSchedule schedule;
    double total_paid = 0.0;  // the lump sum only in a complete projection
    Outcome outcome = Outcome::no_payments;
    Ledger ledger;
};

// Reads of the scenario its method, value, months, frequency, length and fee, and for a fixed amount
// the life expectancy. `rate` is in percent per year. Unless a lump sum is all, the frequency must be
// 1, 2, 4 or 12. Throws std::overflow_error for a fixed amount beyond 32,767 payments.
Projection project(const Scenario& scenario, double rate, Date today);

// Stores the results where the screens, the charts and the message of the limit look for them.
void take_over(Scenario& scenario, const Projection& projection);

}  // namespace kelvar
