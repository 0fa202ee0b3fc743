// What a number of days does to an account: growth compounded daily on a 365-day year, also in leap
// years, and a yearly fee charged by the day.
#pragma once

#include <array>
#include <cmath>
#include <limits>

#include "core/numbers.h"
#include "core/plan.h"

namespace kelvar {

// Growth and fee at one rate. Balances are in dollars.
class Accrual {
public:
    // `rate` in percent per year, `fee` in dollars per year.
    Accrual(double rate, double fee)
        : daily_factor_(1.0 + rate * 0.01 / plan::days_per_year), fee_(fee) {}

    // What `days` days do, not rounded.
    struct Period {
        int days = 0;
        double growth_factor = 1.0;
        double fee = 0.0;
    };
    // Payments lie four different numbers of days apart at most, and no two of these share a place: a
    // schedule takes each of its powers once.
    const Period& over(int days) {
        Period& period = known_[static_cast<unsigned>(days) % known_.size()];
        if (period.days != days) {
            period = {days, std::pow(daily_factor_, days), days * fee_ / plan::days_per_year};
        }
        return period;
    }

    // Balance after `days` days of growth, less the fee day by day; rounded to cents. No floor: the
    // fee can take the value below 0.
    double grown_less_fee(double balance, int days) { return grown(balance, over(days)).dollars; }

    // True when the growth covers the fee, so that it is charged between two payments.
    bool covers_fee(double balance, int days) { return grown_less_fee(balance, days) >= balance; }

    // Balance before the next payment. The fee is charged only when the growth covers it; otherwise the
    // balance keeps its whole growth, and with it fractions of a cent.
    Cents before_next_payment(double balance, int days) {
        const Period& period = over(days);
        const Cents next = grown(balance, period);
        return next.dollars < balance ? Cents{next.dollars + period.fee, no_whole_cents} : next;
    }

private:
    static constexpr double no_whole_cents = std::numeric_limits<double>::quiet_NaN();

    static Cents grown(double balance, const Period& period) {
        return whole_cents(balance * period.growth_factor - period.fee);
    }

    double daily_factor_;
    double fee_;
    std::array<Period, 8> known_{};
};

}  // namespace kelvar
