#include "engine/schedule.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "core/numbers.h"
#include "engine/accrual.h"

namespace kelvar {

namespace {

constexpr std::size_t usual_payments = 1020;  // room for monthly payments over a whole life, 85 years

// Walks from payment to payment, each month reckoned from the date before it: once clamped to the
// 28th, the dates stay on the 28th.
class PaymentDates {
public:
    PaymentDates(Date first, int frequency)
        : month_(first.year() / first.month()), day_(first.day()), months_between_(12 / frequency) {}

    Date date() const { return month_ / day_; }
    int days_passed() const { return days_passed_; }
    bool new_calendar_year() const { return new_calendar_year_; }

    void advance() {
        const std::chrono::year year = month_.year();
        days_passed_ = -static_cast<int>(static_cast<unsigned>(day_));
        for (int passed = 0; passed < months_between_; ++passed) {
            days_passed_ += static_cast<int>(static_cast<unsigned>(last_day()));
            month_ = month_.month() == std::chrono::December
                         ? (month_.year() + std::chrono::years{1}) / std::chrono::January
                         : month_.year() / (month_.month() + std::chrono::months{1});
        }
        day_ = std::min(day_, last_day());
        days_passed_ += static_cast<int>(static_cast<unsigned>(day_));
        new_calendar_year_ = month_.year() != year;
    }

private:
    std::chrono::day last_day() const { return (month_ / std::chrono::last).day(); }

    std::chrono::year_month month_;
    std::chrono::day day_;
    int months_between_;
    int days_passed_ = 0;
    bool new_calendar_year_ = false;
};

}  // namespace

PaymentSchedule LevelPaymentSchedule(const PaymentTerms& terms, int number_of_payments) {
    PaymentSchedule schedule;
    Cents balance = whole_cents(terms.start_value);
    if (number_of_payments < 1 || balance.dollars <= 0.0) {
        return schedule;
    }
    schedule.number_of_payments = static_cast<std::int16_t>(number_of_payments);
    schedule.rows.reserve(static_cast<std::size_t>(number_of_payments));
    Cents amount = whole_cents(balance.dollars / number_of_payments);
    Accrual accrual(terms.rate, terms.fee);
    PaymentDates dates(terms.first_payment_date, terms.frequency);
    const auto pay = [&](int remaining, double payment, double balance_after) {
        schedule.rows.push_back({static_cast<std::int16_t>(number_of_payments - remaining),
                                 static_cast<std::int16_t>(remaining), balance.dollars, payment,
                                 balance_after, dates.date()});
        schedule.total_paid += payment;
    };
    for (int remaining = number_of_payments - 1; remaining > 0; --remaining) {
        const Cents after = rounded_difference(balance, amount);
        const double balance_after = std::max(0.0, after.dollars);
        pay(remaining, amount.dollars, balance_after);
        dates.advance();
        balance = Cents{};
        if (balance_after > 0.0) {
            balance = accrual.before_next_payment(balance_after, dates.days_passed());
        }
        if (balance.dollars == 0.0) {
            amount = Cents{};
        } else if (dates.new_calendar_year()) {
            amount = whole_cents(balance.dollars / remaining);
        }
    }
    pay(0, balance.dollars, 0.0);
    return schedule;
}

PaymentSchedule FixedAmountSchedule(const PaymentTerms& terms, double fixed_amount,
                                    const LifeLimit& limit) {
    PaymentSchedule schedule;
    Cents balance = whole_cents(terms.start_value);
    Cents balance_after = balance;
    Cents amount = whole_cents(fixed_amount);
    schedule.rows.reserve(usual_payments);
    Accrual accrual(terms.rate, terms.fee);
    PaymentDates dates(terms.first_payment_date, terms.frequency);
    while (balance_after.dollars > 0.0) {
        if (payments_exceed_life(schedule.number_of_payments, terms.frequency, limit)) {
            schedule.limit_exceeded = true;
            return schedule;
        }
        if (schedule.number_of_payments == std::numeric_limits<std::int16_t>::max()) {
            throw std::overflow_error("a schedule cannot hold more than 32,767 payments");
        }
        ++schedule.number_of_payments;
        if (balance.dollars <= amount.dollars) {
            amount = whole_cents(balance.dollars);
        }
        balance_after = rounded_difference(balance, amount);
        schedule.rows.push_back({schedule.number_of_payments, 0, balance.dollars, amount.dollars,
                                 balance_after.dollars, dates.date()});
        schedule.total_paid += amount.dollars;
        if (balance_after.dollars > 0.0) {
            dates.advance();
            balance = accrual.before_next_payment(balance_after.dollars, dates.days_passed());
        }
    }
    for (PaymentRow& row : schedule.rows) {
        row.remaining = static_cast<std::int16_t>(schedule.number_of_payments - row.number);
    }
    return schedule;
}

double parse_rate(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? 0.0 : read_number(text.substr(0, last));
}

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

const PaymentRow* last_full_year(const PaymentSchedule& schedule, int frequency) {
    int payments = 0;  // from this one to the end of its year
    for (std::size_t i = schedule.rows.size(); i-- > 0;) {
        payments = ends_year(schedule, i) ? 1 : payments + 1;
        if (payments == frequency) {
            return &schedule.rows[i];
        }
    }
    return nullptr;
}

}  // namespace kelvar
