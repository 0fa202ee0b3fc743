#include "engine/explanation.h"

#include <fmt/format.h>

#include <cmath>

#include "engine/result_texts.h"
#include "engine/schedule.h"

namespace kelvar {

namespace {

// "grows by $5.00", or "loses $5.00" for an amount below 0.
std::string growth_text(double dollars) {
    if (dollars == 0.0) {
        return "does not grow";
    }
    return (dollars < 0.0 ? "loses " : "grows by ") + money_text(std::abs(dollars));
}

// " + $5.00 earned", or " - $5.00 lost" for an amount below 0.
std::string term(double dollars, std::string_view gain, std::string_view loss) {
    return dollars < 0.0 ? fmt::format(" - {} {}", money_text(-dollars), loss)
                         : fmt::format(" + {} {}", money_text(dollars), gain);
}

// The first payment of the calendar year that the payment lies in.
const PaymentRow& first_of_year(const PaymentSchedule& schedule, std::size_t index) {
    while (index > 0 && !begins_year(schedule, index)) {
        --index;
    }
    return schedule.rows[index];
}

std::string why_this_amount(const Scenario& scenario, const PaymentSchedule& schedule,
                            std::size_t index) {
    const PaymentRow& row = schedule.rows[index];
    const std::string amount = money_text(row.payment);
    if (round_to_cents(row.startbalance) == 0.0) {
        return "nothing is left to be paid.";
    }
    if (row.remaining == 0) {
        const bool less = scenario.length_option == by_dollar_amount &&
                          row.payment < round_to_cents(scenario.fixed_amount);
        return fmt::format("{}, all that is left{}; the account ends with this payment.", amount,
                           less ? " and less than the other payments" : "");
    }
    if (scenario.length_option == by_dollar_amount) {
        // An amount above the balance has become the balance.
        return fmt::format("{}, {}.", amount,
                           scenario.fixed_amount < scenario.present_value ? "the amount you chose"
                                                                          : "the balance you entered");
    }
    if (index == 0) {
        return fmt::format("{} divided by {} = {}.", money_text(row.startbalance),
                           count_text(row.remaining + 1, "payment"), amount);
    }
    if (begins_year(schedule, index)) {
        return fmt::format("{} divided by {} payments ({} to come and this one) = {}.",
                           money_text(row.startbalance), row.remaining + 1, row.remaining, amount);
    }
    const bool last_year = schedule.rows.back().date.year() == row.date.year();
    return fmt::format("{}, as in {}; {}.", amount,
                       month_year_text(first_of_year(schedule, index).date),
                       last_year ? "only the last payment differs" : "it changes only with the year");
}

std::string until_next_payment(const PaymentRow& row, const PaymentRow& next,
                               const Interval& interval) {
    const double fee = round_to_cents(interval.fee);
    const double charged = interval.fee_charged ? fee : 0.0;
    const double growth =
        round_to_cents(round_to_cents(next.startbalance) - row.remainbalance + charged);
    std::string text = fmt::format(" The {} left {} in {} days", money_text(row.remainbalance),
                                   growth_text(growth), interval.days);
    if (charged > 0.0) {
        text += fmt::format(", less {} fee", money_text(charged));
    }
    text += fmt::format(": {}.", money_text(next.startbalance));
    if (charged < fee) {
        text += fmt::format(" No fee this time: the growth does not cover {}.", money_text(fee));
    }
    return text;
}

}  // namespace

bool amount_changes(const PaymentSchedule& schedule, std::size_t index) {
    const auto cents = [&](std::size_t at) { return round_to_cents(schedule.rows[at].payment); };
    return index > 0 && cents(index) != cents(index - 1);
}

std::string amount_explanation(const Scenario& scenario, const PaymentSchedule& schedule,
                               std::size_t index) {
    const PaymentRow& row = schedule.rows.at(index);
    return fmt::format("Payment {}, {}: {}", row.number, month_year_text(row.date),
                       why_this_amount(scenario, schedule, index));
}

std::string explanation(const Scenario& scenario, const Projection& projection, std::size_t index) {
    const PaymentSchedule& schedule = projection.schedule;
    std::string text = amount_explanation(scenario, schedule, index);
    Accrual accrual(projection.rate, scenario.fee_amount);
    if (const auto interval = interval_after(schedule, index, accrual)) {
        text += until_next_payment(schedule.rows[index], schedule.rows[index + 1], *interval);
    }
    return text;
}

std::string ledger_text(const Projection& projection) {
    const Ledger& ledger = projection.ledger;
    std::string text = fmt::format("{} today{} - {} fees - {} paid to you", money_text(ledger.opening),
                                   term(ledger.earnings, "earned", "lost"), money_text(ledger.fees),
                                   money_text(ledger.payments));
    if (ledger.rounding != 0.0) {
        text += term(ledger.rounding, "rounding", "rounding");
    }
    text += fmt::format(" = {} left.", money_text(ledger.closing));
    if (ledger.periods_without_fee > 0) {
        text += fmt::format(" No fee was charged {}, where the growth did not cover it.",
                            count_text(ledger.periods_without_fee, "time"));
    }
    const bool in_the_years = projection.dates.second_date != no_date;
    return in_the_years ? text : text + before_payments_text(ledger, " Of this, before");
}

std::string before_payments_text(const Ledger& ledger, std::string_view before) {
    if (ledger.earnings_before == 0.0 && ledger.fees_before == 0.0) {
        return {};
    }
    return fmt::format(
        "{} the first payment: {} {}, {} fees.", before, money_text(std::abs(ledger.earnings_before)),
        ledger.earnings_before < 0.0 ? "lost" : "earned", money_text(ledger.fees_before));
}

}  // namespace kelvar
