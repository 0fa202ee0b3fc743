// Projections of the account: growth, fee and the schedule of payments with its yearly recalculation.
//
// Money is in dollars, rates are percent per year, fees dollars per year. Growth is compounded daily
// on a 365-day year, also in leap years. Nothing here throws on valid terms, and nothing is shown.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "core/dates.h"
#include "core/life_tables.h"
#include "engine/accrual.h"

namespace kelvar {

// One payment.
struct PaymentRow {
    std::int16_t number = 0;     // 1 for the first payment
    std::int16_t remaining = 0;  // payments still to come after this one
    double startbalance = 0.0;
    double payment = 0.0;
    double remainbalance = 0.0;
    Date date{no_date};
};

struct PaymentSchedule {
    std::vector<PaymentRow> rows;
    double total_paid = 0.0;
    std::int16_t number_of_payments = 0;
    // The payments of a fixed amount outlast the life expectancy; the rows stop where that was found.
    bool limit_exceeded = false;
};

// What both kinds of schedule start from.
struct PaymentTerms {
    double start_value = 0.0;  // value of the account at the first payment
    Date first_payment_date{no_date};
    int frequency = 0;  // payments per year: 1, 2, 4 or 12
    double rate = 0.0;
    double fee = 0.0;
};

// Equal payments over a given number of payments. At the first payment of each calendar year the
// amount is recalculated from the balance and the payments left; the last payment empties the
// account. A balance that reaches 0 earlier stays 0. No rows for a start value or number of payments
// of 0 or less.
PaymentSchedule LevelPaymentSchedule(const PaymentTerms& terms, int number_of_payments);

// Payments of a fixed amount until the account is empty; the last one takes what is left. Stops with
// limit_exceeded when a payment would come after the life expectancy. No rows for a start value of 0
// or less. Throws std::overflow_error beyond 32,767 payments, which no real limit allows.
PaymentSchedule FixedAmountSchedule(const PaymentTerms& terms, double fixed_amount,
                                    const LifeLimit& limit);

// The rate in the text of a rate list, such as " 6%": the number before the last character; 0 when
// there is none.
double parse_rate(std::string_view text);

struct Interval {
    int days = 0;
    double growth = 0.0;  // dollars, rounded to cents; negative at a rate below 0
    double fee = 0.0;     // dollars, not rounded
    bool fee_charged = false;
};

// After the payment with this index; nothing after the last one, and nothing once the account is empty.
// `accrual` has the rate and the fee of the schedule.
std::optional<Interval> interval_after(const PaymentSchedule& schedule, std::size_t index,
                                       Accrual& accrual);

// True for the first payment of a calendar year after the first one, and for the last payment of a
// year.
bool begins_year(const PaymentSchedule& schedule, std::size_t index);
bool ends_year(const PaymentSchedule& schedule, std::size_t index);

// The first payment of the last calendar year that has all of its payments; null when there is none.
const PaymentRow* last_full_year(const PaymentSchedule& schedule, int frequency);

}  // namespace kelvar
