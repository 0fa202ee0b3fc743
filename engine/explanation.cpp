#include "engine/explanation.h"

#include <fmt/format.h>

#include <cmath>

#include "engine/heading.h"
#include "engine/interval.h"

namespace kelvar {

namespace {

// " + $5.00 growth", or " - $5.00 loss" for an amount below 0.
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
    if (row.payment == 0.0) {
        return "nothing is left to be paid.";
    }
    if (row.remaining == 0) {
        return fmt::format("the last payment takes the rest, {}.", amount);
    }
    if (scenario.length_option == by_dollar_amount) {
        return fmt::format("{}, the amount you chose.", amount);
    }
    if (index == 0 || begins_year(schedule, index)) {
        return fmt::format("{} / {} payments left = {}.", money_text(row.startbalance),
                           row.remaining + 1, amount);
    }
    return fmt::format("{} as in {}, the same within a year.", amount,
                       month_year_text(first_of_year(schedule, index).date));
}

std::string until_next_payment(const PaymentRow& row, const PaymentRow& next,
                               const Interval& interval) {
    const double fee = interval.fee_charged ? round_to_cents(interval.fee) : 0.0;
    const double growth = round_to_cents(round_to_cents(next.startbalance) - row.remainbalance + fee);
    const std::string charged =
        interval.fee_charged ? fmt::format(" - {} fee", money_text(fee)) : std::string();
    const std::string not_charged =
        interval.fee_charged
            ? "."
            : fmt::format("; the fee of {} is not charged, the growth does not cover it.",
                          money_text(round_to_cents(interval.fee)));
    return fmt::format(" Then {}{} in {} days{} = {}{}", money_text(row.remainbalance),
                       term(growth, "growth", "loss"), interval.days, charged,
                       money_text(next.startbalance), not_charged);
}

}  // namespace

bool amount_changes(const PaymentSchedule& schedule, std::size_t index) {
    return index > 0 && schedule.rows[index].payment != schedule.rows[index - 1].payment;
}

std::string explanation(const Scenario& scenario, const Projection& projection, std::size_t index) {
    const PaymentSchedule& schedule = projection.schedule;
    const PaymentRow& row = schedule.rows.at(index);
    std::string text = fmt::format("Payment {}, {}: {}", row.number, month_year_text(row.date),
                                   why_this_amount(scenario, schedule, index));
    Accrual accrual(projection.rate, scenario.fee_amount);
    if (const auto interval = interval_after(schedule, index, accrual)) {
        text += until_next_payment(row, schedule.rows[index + 1], *interval);
    }
    return text;
}

std::string ledger_text(const Scenario& scenario, const Ledger& ledger) {
    std::string text =
        fmt::format("{} opening{} - {} fees - {} {}", money_text(ledger.opening),
                    term(ledger.earnings, "earnings", "losses"), money_text(ledger.fees),
                    money_text(ledger.payments),
                    scenario.method == partial_lump_sum ? "lump sum and payments" : "payments");
    if (ledger.rounding != 0.0) {
        text += term(ledger.rounding, "rounding", "rounding") + " (earnings in the years)";
    }
    text += fmt::format(" = {}.", money_text(ledger.closing));
    if (ledger.periods_without_fee > 0) {
        text += fmt::format(" No fee was charged {}, where the growth did not cover it.",
                            count_text(ledger.periods_without_fee, "time"));
    }
    const std::string before = before_payments_text(ledger);
    return before.empty() ? text : text + " " + before;
}

std::string before_payments_text(const Ledger& ledger) {
    if (ledger.earnings_before == 0.0 && ledger.fees_before == 0.0) {
        return {};
    }
    return fmt::format(
        "Before the first payment: {} {}, {} fees.", money_text(std::abs(ledger.earnings_before)),
        ledger.earnings_before < 0.0 ? "losses" : "earnings", money_text(ledger.fees_before));
}

}  // namespace kelvar
