// The engine alone against the bare powers it cannot do without. Each pair takes the same arguments,
// so the quotient of its two times is what dates, rounding and rows cost.
#include <benchmark/benchmark.h>

#include <cmath>

#include "engine/choices.h"
#include "engine/least_amount.h"
#include "engine/schedule.h"

namespace kelvar {

namespace {

using namespace std::chrono_literals;

const PaymentTerms terms{250000.0, 2026y / 7 / 15, 12, 6.0, 80.0};

PaymentSchedule level() {
    return LevelPaymentSchedule(terms, 828);
}

// An amount that lasts 828 payments too.
PaymentSchedule fixed() {
    return FixedAmountSchedule(terms, 1261.30, {16, 120.0});
}

template <PaymentSchedule compute()>
void schedule(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(compute());
    }
    state.counters["payments"] = static_cast<double>(compute().rows.size());
}

template <PaymentSchedule compute()>
void bare_powers(benchmark::State& state) {
    const PaymentSchedule sample = compute();
    std::vector<int> days;
    for (std::size_t i = 1; i < sample.rows.size(); ++i) {
        days.push_back(days_between(sample.rows[i - 1].date, sample.rows[i].date));
    }
    double base = 1.0 + terms.rate * 0.01 / 365.0;
    for (auto _ : state) {
        for (const int d : days) {
            benchmark::DoNotOptimize(base);
            benchmark::DoNotOptimize(std::pow(base, d));
        }
    }
    state.counters["powers"] = static_cast<double>(days.size());
}

// Monthly payments that run 828 times at most, or just so often.
Scenario over_69_years(LengthOption length) {
    Scenario scenario;
    scenario.method = periodic_payments;
    scenario.present_value = terms.start_value;
    scenario.first_pay_month = 7;
    scenario.first_pay_year = 2026;
    scenario.frequency = 12;
    scenario.length_option = length;
    scenario.number_of_payments = 828;
    scenario.fee_amount = 80;
    scenario.lookup_age = 31;
    scenario.life_expectancy_age = 100.0;
    return scenario;
}

void least_amount_at_two_rates(benchmark::State& state) {
    const Scenario scenario = over_69_years(by_dollar_amount);
    for (auto _ : state) {
        benchmark::DoNotOptimize(least_amount_text(scenario, {5.0, 8.0}, terms.first_payment_date));
    }
}

void six_choices_compared(benchmark::State& state) {
    const std::vector<Choice> kept(6, {over_69_years(by_life_expectancy), terms.rate});
    for (auto _ : state) {
        const Choices choices = compare_choices(kept, terms.first_payment_date);
        benchmark::DoNotOptimize(even_texts(choices));
        benchmark::DoNotOptimize(paid_so_far(choices));
        benchmark::DoNotOptimize(balances_left(choices));
    }
}

BENCHMARK(schedule<level>)->Unit(benchmark::kMicrosecond);
BENCHMARK(bare_powers<level>)->Unit(benchmark::kMicrosecond);
BENCHMARK(schedule<fixed>)->Unit(benchmark::kMicrosecond);
BENCHMARK(bare_powers<fixed>)->Unit(benchmark::kMicrosecond);
BENCHMARK(least_amount_at_two_rates)->Unit(benchmark::kMillisecond);
BENCHMARK(six_choices_compared)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace kelvar
