#include "input/rules/first_payment.h"

#include "core/ages.h"
#include "core/plan.h"
#include "input/rules/birth_date.h"

namespace kelvar {

namespace {

constexpr Refusal refused{invalid_month, "Cmbfrstmonth"};

}  // namespace

int deadline_year(Date birth, Date today) {
    const Date reached = cmp_birth(birth, today) ? today : age_seventy_and_a_half(birth);
    return year_of(reached) + 1;
}

std::vector<int> first_payment_years(Date birth, Date today) {
    if (!birth_date_known(birth)) {
        return {};
    }
    return all_from(year_of(today), deadline_year(birth, today));
}

std::vector<int> first_payment_months(bool latest_year) {
    return all_from(1, latest_year ? plan::last_month_of_deadline : 12);
}

Check check_month_to_come(int month, int year, Date today) {
    const bool past_year = year != 0 && year < year_of(today);
    const bool past_month = year <= year_of(today) && month < month_of(today);
    return past_year || past_month ? Check{refused} : std::nullopt;
}

Check check_first_payment(const Scenario& scenario, Date today) {
    const int month = scenario.first_pay_month;
    const int year = scenario.first_pay_year;
    const std::vector<int> years = first_payment_years(scenario.birth_date, today);
    const bool offered =
        is_offered(years, year) && is_offered(first_payment_months(year == years.back()), month);
    const bool set_back = today < scenario.entry_date;
    return offered && !set_back ? check_month_to_come(month, year, today) : refused;
}

}  // namespace kelvar
