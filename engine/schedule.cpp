#include "engine/schedule.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "core/numbers.h"
#include "core/plan.h"

namespace kelvar {

namespace {

constexpr std::size_t usual_payments = 1020;  // room for monthly payments over a whole life, 85 years

// Growth and fee of an account at one rate.
class Accrual {
public:
    Accrual(double rate, double fee)
        : daily_factor_(1.0 + rate * 0.01 / plan::days_per_year), fee_(fee) {}

    double charge(int days) const { return days * fee_ / plan::days_per_year; }

    double grown_less_fee(double value, int days) const {
        return round_to_cents(value * std::pow(daily_factor_, days) - charge(days));
    }

    double before_next_payment(double balance_after, int days) const {
        const double grown = grown_less_fee(balance_after, days);
        return grown < balance_after ? grown + charge(days) : grown;
    }

private:
    double daily_factor_;
    double fee_;
};

// Walks from payment to payment, each month reckoned from the date before it: once clamped to the
// 28th, the dates stay on the 28th.
class PaymentDates {
public:
    PaymentDates(Date first, int frequency)
        : date_(first), day_number_(first), months_between_(12 / frequency) {}

    Date date() const { return date_; }
    int days_passed() const { return days_passed_; }
    bool new_calendar_year() const { return new_calendar_year_; }

    void advance() {
        const Date next = add_months(date_, months_between_);
        const std::chrono::sys_days next_number{next};
        days_passed_ = static_cast<int>((next_number - day_number_).count());
        new_calendar_year_ = next.year() != date_.year();
        date_ = next;
        day_number_ = next_number;
    }

private:
    Date date_;
    std::chrono::sys_days day_number_;
    int months_between_;
    int days_passed_ = 0;
    bool new_calendar_year_ = false;
};

}  // namespace

FirstPayment first_payment(Date today, int month, int year) {
    if (month == month_of(today) && year == year_of(today)) {
        return {today, true};
    }
    const Date that_year = add_years(today, year - year_of(today));
    return {add_months(that_year, month - month_of(today)), false};
}

double grown_less_fee(double value, double rate, int days, double fee) {
    return Accrual(rate, fee).grown_less_fee(value, days);
}

double value_at_first_payment(double present_value, double rate, double fee, Date today,
                              const FirstPayment& first) {
    if (first.starts_this_month) {
        return round_to_cents(present_value);
    }
    return grown_less_fee(present_value, rate, days_between(today, first.date), fee);
}

double balance_before_next_payment(double balance_after, double rate, int days, double fee) {
    return Accrual(rate, fee).before_next_payment(balance_after, days);
}

PaymentSchedule LevelPaymentSchedule(const PaymentTerms& terms, int number_of_payments) {
    PaymentSchedule schedule;
    double balance = round_to_cents(terms.start_value);
    if (number_of_payments < 1 || balance <= 0.0) {
        return schedule;
    }
    schedule.number_of_payments = static_cast<std::int16_t>(number_of_payments);
    schedule.rows.reserve(static_cast<std::size_t>(number_of_payments));
    double amount = round_to_cents(balance / number_of_payments);
    const Accrual accrual(terms.rate, terms.fee);
    PaymentDates dates(terms.first_payment_date, terms.frequency);
    for (int i = 1; i <= number_of_payments; ++i) {
        const int remaining = number_of_payments - i;
        if (remaining == 0 || balance == 0.0) {
            amount = balance;
        }
        const double balance_after =
            remaining == 0 ? 0.0 : std::max(0.0, round_to_cents(balance - amount));
        schedule.rows.push_back({static_cast<std::int16_t>(i), static_cast<std::int16_t>(remaining),
                                 balance, amount, balance_after, dates.date()});
        schedule.total_paid += amount;
        if (remaining == 0) {
            break;
        }
        dates.advance();
        balance = balance_after == 0.0
                      ? 0.0
                      : accrual.before_next_payment(balance_after, dates.days_passed());
        if (dates.new_calendar_year()) {
            amount = round_to_cents(balance / remaining);
        }
    }
    return schedule;
}

PaymentSchedule FixedAmountSchedule(const PaymentTerms& terms, double fixed_amount,
                                    const LifeLimit& limit) {
    PaymentSchedule schedule;
    double balance = round_to_cents(terms.start_value);
    double balance_after = balance;
    double amount = round_to_cents(fixed_amount);
    schedule.rows.reserve(usual_payments);
    const Accrual accrual(terms.rate, terms.fee);
    PaymentDates dates(terms.first_payment_date, terms.frequency);
    while (balance_after > 0.0) {
        if (payments_exceed_life(schedule.number_of_payments, terms.frequency, limit)) {
            schedule.limit_exceeded = true;
            return schedule;
        }
        if (schedule.number_of_payments == std::numeric_limits<std::int16_t>::max()) {
            throw std::overflow_error("a schedule cannot hold more than 32,767 payments");
        }
        ++schedule.number_of_payments;
        if (balance <= amount) {
            amount = round_to_cents(balance);
        }
        balance_after = round_to_cents(balance - amount);
        schedule.rows.push_back(
            {schedule.number_of_payments, 0, balance, amount, balance_after, dates.date()});
        schedule.total_paid += amount;
        if (balance_after > 0.0) {
            dates.advance();
            balance = accrual.before_next_payment(balance_after, dates.days_passed());
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

}  // namespace kelvar
