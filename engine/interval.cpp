#include "engine/interval.h"

namespace kelvar {

std::optional<Interval> interval_after(const PaymentSchedule& schedule, std::size_t index,
                                       Accrual& accrual) {
    const PaymentRow& row = schedule.rows[index];
    if (index + 1 == schedule.rows.size() || row.remainbalance == 0.0) {
        return std::nullopt;
    }
    const int days = days_between(row.date, schedule.rows[index + 1].date);
    const Accrual::Period& period = accrual.over(days);
    return Interval{
        .days = days,
        .growth = round_to_cents(row.remainbalance * period.growth_factor - row.remainbalance),
        .fee = period.fee,
        .fee_charged = accrual.covers_fee(row.remainbalance, days)};
}

bool begins_year(const PaymentSchedule& schedule, std::size_t index) {
    return index > 0 && ends_year(schedule, index - 1);
}

bool ends_year(const PaymentSchedule& schedule, std::size_t index) {
    const bool last = index + 1 == schedule.rows.size();
    return last || schedule.rows[index].date.year() != schedule.rows[index + 1].date.year();
}

}  // namespace kelvar
