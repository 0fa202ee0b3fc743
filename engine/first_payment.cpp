#include "engine/first_payment.h"

#include <cmath>

#include "core/numbers.h"
#include "core/plan.h"
#include "engine/accrual.h"

namespace kelvar {

FirstPayment first_payment(Date today, int month, int year) {
    if (month == month_of(today) && year == year_of(today)) {
        return {today, true};
    }
    const Date that_year = add_years(today, year - year_of(today));
    return {add_months(that_year, month - month_of(today)), false};
}

bool month_has_passed(int month, int year, Date today) {
    return year < year_of(today) || (year == year_of(today) && month < month_of(today));
}

double value_at_first_payment(double present_value, double rate, double fee, Date today,
                              const FirstPayment& first) {
    if (first.starts_this_month) {
        return round_to_cents(present_value);
    }
    return Accrual(rate, fee).grown_less_fee(present_value, days_between(today, first.date));
}

double get_startvalue(double present_value, double rate, int days) {
    const double fee = days * (plan::lump_sum_fee / plan::days_per_year);
    const double growth = std::pow(1.0 + rate * 0.01 / plan::days_per_year, days);
    return round_to_cents(growth * present_value - fee);
}

}  // namespace kelvar
