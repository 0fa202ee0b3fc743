// The engine alone against the bare powers it cannot do without. Each pair takes the same arguments,
// so the quotient of its two times is what dates, rounding and rows cost.
#include <benchmark/benchmark.h>

#include <cmath>

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

BENCHMARK(schedule<level>)->Unit(benchmark::kMicrosecond);
BENCHMARK(bare_powers<level>)->Unit(benchmark::kMicrosecond);
BENCHMARK(schedule<fixed>)->Unit(benchmark::kMicrosecond);
BENCHMARK(bare_powers<fixed>)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace kelvar
