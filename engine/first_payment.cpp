#include "engine/first_payment.h"

#include "core/numbers.h"
#include "engine/accrual.h"

namespace kelvar {

FirstPayment first_payment(Date today, int month, int year) {
    if (month == month_of(today) && year == year_of(today)) {
        return {today, true};
    }
    const Date that_year = add_years(today, year - year_of(today));
    return {add_months(that_year, month - month_of(today)), false};
}

double value_at_first_payment(double present_value, double rate, double fee, Date today,
                              const FirstPayment& first) {
    if (first.starts_this_month) {
        return round_to_cents(present_value);
    }
    return Accrual(rate, fee).grown_less_fee(present_value, days_between(today, first.date));
}

}  // namespace kelvar
