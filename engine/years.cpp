#include "engine/years.h"

#include "core/ages.h"
#include "engine/interval.h"

namespace kelvar {

namespace {

// What the fees of all periods so far make in whole cents, so that the years add up to the ledger.
class FeeCents {
public:
    explicit FeeCents(double before) : charged_(before), counted_(round_to_cents(before)) {}

    void charge(double fee) { charged_ += fee; }
    double since_last_year() {
        const double before = counted_;
        counted_ = round_to_cents(charged_);
        return round_to_cents(counted_ - before);
    }

private:
    double charged_;
    double counted_;
};

}  // namespace

std::vector<YearRow> years_of(const Projection& projection, Date birth, double fee) {
    std::vector<YearRow> years;
    const PaymentSchedule& schedule = projection.schedule;
    Accrual accrual(projection.rate, fee);
    FeeCents fees(projection.ledger.fees_before);
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
        const bool last_of_year =
            i + 1 == schedule.rows.size() || year_of(schedule.rows[i + 1].date) != year.year;
        if (last_of_year) {
            year.fees = fees.since_last_year();
            year.earnings = round_to_cents(year.ending - year.beginning + year.fees + year.paid);
        }
        if (const auto interval = interval_after(schedule, i, accrual);
            interval && interval->fee_charged) {
            fees.charge(interval->fee);
        }
    }
    return years;
}

}  // namespace kelvar
