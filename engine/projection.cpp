#include "engine/projection.h"

namespace kelvar {

namespace {

PaymentSchedule calcu_yr_value(const Scenario& scenario, const PaymentTerms& terms) {
    return LevelPaymentSchedule(terms, scenario.number_of_payments);
}

PaymentSchedule calcu_fix(const Scenario& scenario, const PaymentTerms& terms) {
    return FixedAmountSchedule(terms, scenario.fixed_amount,
                               {scenario.lookup_age, scenario.life_expectancy_age});
}

// The payments over the chosen length; none when no length is chosen.
PaymentSchedule payments(const Scenario& scenario, const PaymentTerms& terms) {
    switch (scenario.length_option) {
        case by_dollar_amount:
            return calcu_fix(scenario, terms);
        case by_number_of_payments:
        case by_life_expectancy:
            return calcu_yr_value(scenario, terms);
        default:
            return {};
    }
}

Outcome outcome_of(const PaymentSchedule& schedule, double value_before) {
    if (schedule.limit_exceeded) {
        return Outcome::limit_exceeded;
    }
    if (schedule.rows.empty()) {
        return value_before <= 0.0 ? Outcome::nothing_left : Outcome::no_payments;
    }
    return Outcome::complete;
}

void project_lump_sum(Projection& p, const Scenario& scenario, Date today) {
    const int days = days_between(today, p.dates.first.date);
    p.start_value = get_startvalue(scenario.present_value, p.rate, days);
    const bool paid = p.start_value > 0.0;
    p.outcome = paid ? Outcome::complete : Outcome::nothing_left;
    p.lump_sum = paid ? p.start_value : 0.0;
    p.total_paid = p.lump_sum;
    LedgerEntries ledger(scenario.present_value);
    ledger.pass(scenario.present_value, Accrual(p.rate, plan::lump_sum_fee).over(days));
    ledger.pay(p.lump_sum);
    p.ledger = ledger.close(p.start_value - p.lump_sum);
}

void project_payments(Projection& p, const Scenario& scenario, Date today) {
    const bool partial = scenario.method == partial_lump_sum;
    const double fee = scenario.fee_amount;
    const Date first_date = p.dates.first.date;
    Accrual accrual(p.rate, fee);
    LedgerEntries ledger(scenario.present_value);

    p.start_value = value_at_first_payment(scenario.present_value, p.rate, fee, today, p.dates.first);
    if (!p.dates.first.starts_this_month) {
        ledger.pass(scenario.present_value, accrual.over(days_between(today, first_date)));
    }
    if (partial) {
        // The fee is taken here even when the growth does not cover it.
        const int days = days_between(first_date, p.dates.second_date);
        p.lump_sum = scenario.partial_amount;
        const double left = p.start_value - p.lump_sum;
        p.second_value = accrual.grown_less_fee(left, days);
        ledger.pay(p.lump_sum);
        ledger.pass(left, accrual.over(days));
    }
    const double value = partial ? p.second_value : p.start_value;
    p.schedule = payments(scenario, {.start_value = value,
                                     .first_payment_date = partial ? p.dates.second_date : first_date,
                                     .frequency = scenario.frequency,
                                     .rate = p.rate,
                                     .fee = fee});
    p.outcome = outcome_of(p.schedule, value);
    p.total_paid = p.schedule.total_paid + (p.outcome == Outcome::complete ? p.lump_sum : 0.0);
    ledger.pay(p.schedule, accrual);
    p.ledger = ledger.close(p.schedule.rows.empty() ? value : p.schedule.rows.back().remainbalance);
}

}  // namespace

Commencement commencement(const Scenario& scenario, Date today) {
    Commencement dates{first_payment(today, scenario.first_pay_month, scenario.first_pay_year),
                       no_date};
    if (scenario.method == partial_lump_sum) {
        dates.second_date = first_payment(today, scenario.scenario_month, scenario.scenario_year).date;
    }
    return dates;
}

Projection project(const Scenario& scenario, double rate, Date today) {
    Projection projection;
    projection.today = today;
    projection.rate = rate;
    projection.dates = commencement(scenario, today);
    if (scenario.method == lump_sum) {
        project_lump_sum(projection, scenario, today);
    } else {
        project_payments(projection, scenario, today);
    }
    return projection;
}

void take_over(Scenario& scenario, const Projection& projection) {
    if (scenario.method == lump_sum) {
        scenario.lump_start_value = projection.start_value;
        return;
    }
    scenario.start_value = projection.start_value;
    if (scenario.method == partial_lump_sum) {
        scenario.second_value = projection.second_value;
    }
    if (scenario.length_option == by_dollar_amount) {
        scenario.number_of_payments = projection.schedule.number_of_payments;
    }
    if (projection.outcome == Outcome::complete) {
        scenario.total_paid = projection.total_paid;
    }
}

}  // namespace kelvar
