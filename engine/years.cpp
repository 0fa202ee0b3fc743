#include "engine/years.h"

#include "core/ages.h"
#include "engine/interval.h"

namespace kelvar {

std::vector<YearRow> years_of(const Projection& projection, Date birth, double fee) {
    std::vector<YearRow> years;
    const PaymentSchedule& schedule = projection.schedule;
    Accrual accrual(projection.rate, fee);
    double fees = 0.0;     // of all periods so far
    double counted = 0.0;  // of these, what the years before have in whole cents
    for (std::size_t i = 0; i < schedule.rows.size(); ++i) {
        const PaymentRow& row = schedule.rows[i];
        if (years.empty() || years.back().year != year_of(row.date)) {
            years.push_back(
                {.year = year_of(row.date),
                 .beginning = years.empty() ? round_to_cents(row.startbalance) : years.back().ending});
        }
        YearRow& year = years.back();
        ++year.payments;
        year.paid = round_to_cents(year.paid + row.payment);
        year.ending = round_to_cents(row.remainbalance);
        year.age = age_in_month(birth, month_of(row.date), year.year);
        if (ends_year(schedule, i)) {
            year.fees = round_to_cents(round_to_cents(fees) - counted);
            counted = round_to_cents(fees);
            year.earnings = round_to_cents(year.ending - year.beginning + year.fees + year.paid);
        }
        if (const auto interval = interval_after(schedule, i, accrual);
            interval && interval->fee_charged) {
            fees += interval->fee;
        }
    }
    return years;
}

YearRow total_of(const std::vector<YearRow>& years) {
    YearRow total;
    for (const YearRow& year : years) {
        total.payments += year.payments;
        total.earnings = round_to_cents(total.earnings + year.earnings);
        total.fees = round_to_cents(total.fees + year.fees);
        total.paid = round_to_cents(total.paid + year.paid);
    }
    return total;
}

}  // namespace kelvar
