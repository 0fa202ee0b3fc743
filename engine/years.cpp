#include "engine/years.h"

#include "core/ages.h"
#include "core/numbers.h"
#include "engine/schedule.h"

namespace kelvar {

std::vector<YearRow> years_of(const Projection& projection, Date birth, double fee) {
    std::vector<YearRow> years;
    const PaymentSchedule& schedule = projection.schedule;
    const Ledger& ledger = projection.ledger;
    if (projection.dates.second_date != no_date && !schedule.rows.empty()) {
        const Date date = projection.dates.first.date;
        years.push_back({.year = year_of(date),
                         .age = age_in_month(birth, date),
                         .beginning = ledger.opening,
                         .earnings = ledger.earnings_before,
                         .fees = ledger.fees_before,
                         .paid = projection.lump_sum,
                         .ending = round_to_cents(schedule.rows.front().startbalance),
                         .label = lump_sum_label});
    }
    Accrual accrual(projection.rate, fee);
    double fees = ledger.exact_fees_before;  // of all periods so far
    double counted = ledger.fees_before;     // of these, what is before this year in whole cents
    for (std::size_t i = 0; i < schedule.rows.size(); ++i) {
        const PaymentRow& row = schedule.rows[i];
        if (i == 0 || begins_year(schedule, i)) {
            years.push_back(
                {.year = year_of(row.date),
                 .beginning = years.empty() ? round_to_cents(row.startbalance) : years.back().ending});
        }
        YearRow& year = years.back();
        ++year.payments;
        year.paid = round_to_cents(year.paid + row.payment);
        year.ending = round_to_cents(row.remainbalance);
        year.age = age_in_month(birth, row.date);
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
    if (!years.empty() && ledger.rounding != 0.0) {
        years.push_back({.earnings = -ledger.rounding, .label = rounding_label});
    }
    return years;
}

YearTexts year_texts(const YearRow& row, bool plain) {
    const auto money = [&](double dollars) {
        return format_number(dollars, plain ? pattern::plain_amount : pattern::dollars);
    };
    if (row.label == rounding_label) {
        return {"", "", std::string(row.label), "", money(row.earnings), "", "", ""};
    }
    return {std::to_string(row.year) + (row.federal_minimum > 0.0 && !plain ? "*" : ""),
            std::to_string(row.age),
            row.label.empty() ? std::to_string(row.payments) : std::string(row.label),
            money(row.beginning),
            money(row.earnings),
            money(row.fees),
            money(row.paid),
            money(row.ending)};
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
