#include "engine/choices.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "core/ages.h"
#include "core/names.h"
#include "core/numbers.h"
#include "core/plan.h"
#include "engine/comparison.h"
#include "engine/least_amount.h"
#include "engine/result_texts.h"

namespace kelvar {

namespace {

// What the remaining payments, or all, are.
std::string payments_name(const Scenario& scenario) {
    const plan::Frequency frequency = plan::frequency(scenario.frequency);
    std::string name(frequency.name);
    std::ranges::transform(name, name.begin(), lower_case);
    const int number = scenario.number_of_payments;
    switch (scenario.length_option) {
        case by_dollar_amount:
            return fmt::format("{} a {}", money_text(scenario.fixed_amount), frequency.period);
        case by_life_expectancy: {
            const std::string_view table = table_name(scenario);
            const std::size_t counted = table.find(" expectancy");
            return fmt::format("{} over {}", name,
                               counted == table.npos ? "life" : table.substr(0, counted));
        }
        case by_number_of_payments:
            return scenario.method == partial_lump_sum && number % scenario.frequency == 0
                       ? fmt::format("{} for {}", name, time_text(number * 12 / scenario.frequency))
                       : count_text(number, fmt::format("{} payment", frequency.adjective));
        default:
            return name;
    }
}

ChosenResult result_of(const Choice& choice, Date today) {
    const Scenario& scenario = choice.scenario;
    ChosenResult result{choice, choice_name(scenario), {}, {}};
    if (month_has_passed(scenario.first_pay_month, scenario.first_pay_year, today)) {
        result.reason = fmt::format("The first payment month, {}, {}, has passed.",
                                    month_name(scenario.first_pay_month), scenario.first_pay_year);
        return result;
    }
    result.projection = project(scenario, choice.rate, today);
    result.reason = no_result_text(scenario, result.projection.outcome, choice.rate, today);
    return result;
}

// What is paid on a day, the lump sum or a payment, and what is left then; dollars in whole cents.
struct Paid {
    Date date;
    double dollars = 0.0;
    double left = 0.0;
};

std::vector<Paid> all_paid(const ChosenResult& result) {
    const Projection& p = result.projection;
    std::vector<Paid> all;
    if (!result.reason.empty()) {
        return all;
    }
    if (result.choice.scenario.method != periodic_payments) {
        all.push_back({p.dates.first.date, p.lump_sum, round_to_cents(p.start_value - p.lump_sum)});
    }
    for (const PaymentRow& row : p.schedule.rows) {
        all.push_back({row.date, round_to_cents(row.payment), round_to_cents(row.remainbalance)});
    }
    return all;
}

// For each result what `value` makes of each payment in turn, as it stands at each year's end; it
// begins with `before`.
template <class Before, class Value>
YearlyLines yearly_lines(const Choices& choices, Before before, Value value) {
    YearlyLines lines;
    int first_year = std::numeric_limits<int>::max();
    int last_year = std::numeric_limits<int>::min();
    Date birth = no_date;
    std::vector<std::vector<Paid>> paid;
    for (const ChosenResult& result : choices.results) {
        paid.push_back(all_paid(result));
        if (!paid.back().empty()) {
            first_year = std::min(first_year, year_of(paid.back().front().date));
            last_year = std::max(last_year, year_of(paid.back().back().date));
            birth = result.choice.scenario.birth_date;
        }
    }
    lines.values.resize(paid.size());
    for (int year = first_year; year <= last_year; ++year) {
        lines.first_year = first_year;
        lines.ages.push_back(age_in_month(birth, 12, year));
    }
    for (std::size_t i = 0; i < paid.size(); ++i) {
        double at_end = before(choices.results[i]);
        auto next = paid[i].begin();
        for (int year = first_year; year <= last_year && !paid[i].empty(); ++year) {
            for (; next != paid[i].end() && year_of(next->date) == year; ++next) {
                at_end = value(at_end, *next);
            }
            lines.values[i].push_back(at_end);
        }
    }
    return lines;
}

// Months counted through the years.
int month_index(Date date) {
    return year_of(date) * 12 + month_of(date) - 1;
}

// A time in which one has paid more (or none), from a month on until the next one begins.
struct Lead {
    int from = 0;
    int leader = 0;  // 0 or 1, which of the two; -1 for none
};
constexpr int none = -1;

std::vector<Lead> leads(const std::vector<Paid>& one, const std::vector<Paid>& other) {
    std::vector<Lead> all;
    double ahead = 0.0;  // how much more the one has paid
    auto a = one.begin();
    auto b = other.begin();
    while (a != one.end() || b != other.end()) {
        const int month = b == other.end() || (a != one.end() && a->date < b->date)
                              ? month_index(a->date)
                              : month_index(b->date);
        for (; a != one.end() && month_index(a->date) == month; ++a) {
            ahead = round_to_cents(ahead + a->dollars);
        }
        for (; b != other.end() && month_index(b->date) == month; ++b) {
            ahead = round_to_cents(ahead - b->dollars);
        }
        const int leader = ahead > 0.0 ? 0 : ahead < 0.0 ? 1 : none;
        if (all.empty() || all.back().leader != leader) {
            all.push_back({month, leader});
        }
    }
    return all;
}

// Says of two results when which has paid more.
class EvenText {
public:
    EvenText(const Choices& choices, std::size_t one, std::size_t other)
        : choices_(choices),
          number_{one, other},
          leads_(leads(all_paid(choices.results[one]), all_paid(choices.results[other]))) {}

    std::string text() {
        if (leads_.size() == 1) {
            return "Paid so far, " + all_along(leads_.front().leader);
        }
        constexpr std::size_t most_told = 3;
        const Lead& last = leads_.back();
        std::string text = "Paid so far, ";
        if (leads_.size() > most_told) {
            text += many_changes() + until(last);
        }
        for (std::size_t i = 0; leads_.size() <= most_told && i + 1 < leads_.size(); ++i) {
            text += (i > 0 ? "; then " : "") + clause(leads_[i].leader) + until(leads_[i + 1]);
        }
        const int before = leads_[leads_.size() - 2].leader;
        text += fmt::format("; from {} on ", month_year_text(first_day(last.from)));
        return text + (last.leader == none ? named(1 - before) + " has paid as much."
                                           : named(last.leader) + " has paid more.");
    }

private:
    static Date first_day(int month) { return std::chrono::year{month / 12} / (month % 12 + 1) / 1; }

    // "choice 2 (monthly over single life at 5%)", the second time only "choice 2".
    std::string named(int which) {
        const std::size_t number = number_[which];
        std::string text = fmt::format("choice {}", number + 1);
        if (std::exchange(is_named_[which], true)) {
            return text;
        }
        const ChosenResult& result = choices_.results[number];
        const Projection& p = result.projection;
        const std::string fall = result.choice.fallen ? " after a fall" : "";
        return result.choice.scenario.method == lump_sum
                   ? fmt::format("{} ({}{} {} in {})", text, result.name, fall, money_text(p.lump_sum),
                                 month_year_text(p.dates.first.date))
                   : fmt::format("{} ({} at {}{})", text, result.name, rate_text(p.rate, lump_sum),
                                 fall);
    }

    std::string both(std::string_view what) {
        const std::string first = named(0);
        return fmt::format("{} and {} {}", first, named(1), what);
    }

    std::string all_along(int leader) {
        if (leader == none) {
            return both("are even all along.");
        }
        const std::string ahead = named(leader);
        return fmt::format("{} is ahead of {} all along: they never meet.", ahead, named(1 - leader));
    }

    std::string clause(int leader) {
        return leader == none ? both("are even") : named(leader) + " is ahead";
    }

    // Before the last of many leads.
    std::string many_changes() {
        const auto leads_once = [&](int which) {
            return std::ranges::count(leads_.begin(), leads_.end() - 1, which, &Lead::leader) > 0;
        };
        if (leads_once(0) && leads_once(1)) {
            return both("take turns in being ahead");
        }
        const int leader = leads_once(0) ? 0 : 1;
        const std::string ahead = named(leader);
        return fmt::format("{} is ahead of {} or even with it", ahead, named(1 - leader));
    }

    // Up to the month before the next lead.
    std::string until(const Lead& next) const {
        const Date month = first_day(next.from - 1);
        const Date birth = choices_.results[number_[0]].choice.scenario.birth_date;
        return fmt::format(" until {}, age {}", month_year_text(month), age_in_month(birth, month));
    }

    const Choices& choices_;
    std::array<std::size_t, 2> number_;
    std::array<bool, 2> is_named_{};
    std::vector<Lead> leads_;
};

}  // namespace

std::string choice_name(const Scenario& scenario) {
    switch (scenario.method) {
        case lump_sum:
            return "lump sum";
        case partial_lump_sum:
            return fmt::format("{}, then {}", money_text(scenario.partial_amount),
                               payments_name(scenario));
        default:
            return payments_name(scenario);
    }
}

Choices compare_choices(const std::vector<Choice>& choices, Date today) {
    Choices compared{today, {}};
    for (const Choice& choice : choices) {
        compared.results.push_back(result_of(choice, today));
    }
    return compared;
}

ChoiceTexts choice_texts(const ChosenResult& result, bool plain) {
    const Scenario& scenario = result.choice.scenario;
    ChoiceTexts texts{result.name + (result.choice.fallen ? " after a fall" : ""),
                      rate_text(result.choice.rate, lump_sum), result.reason};
    if (!result.reason.empty()) {
        return texts;
    }
    const auto money = [&](double dollars) {
        return format_number(dollars, plain ? pattern::plain_amount : pattern::dollars);
    };
    const Projection& p = result.projection;
    const std::vector<PaymentRow>& rows = p.schedule.rows;
    if (scenario.method != periodic_payments) {
        texts[2] = money(p.lump_sum);
    }
    if (!rows.empty()) {
        const PaymentRow* full_year = last_full_year(p.schedule, scenario.frequency);
        texts[3] = money(rows.front().payment);
        texts[4] = full_year != nullptr ? money(full_year->payment) : "";
        texts[5] = std::to_string(p.schedule.number_of_payments);
    }
    const Date last = rows.empty() ? p.dates.first.date : rows.back().date;
    texts[6] = fmt::format("{}/{}", month_of(last), year_of(last));
    texts[7] = std::to_string(age_in_month(scenario.birth_date, last));
    texts[8] = money(p.ledger.earnings);
    texts[9] = money(p.ledger.fees);
    texts[10] = money(p.total_paid);
    return texts;
}

Choice after_fall(const Choice& choice) {
    return {after_fall(choice.scenario), choice.rate, true};
}

YearlyLines paid_so_far(const Choices& choices) {
    return yearly_lines(
        choices, [](const ChosenResult&) { return 0.0; },
        [](double so_far, const Paid& paid) { return round_to_cents(so_far + paid.dollars); });
}

YearlyLines balances_left(const Choices& choices) {
    return yearly_lines(
        choices, [](const ChosenResult& result) { return result.projection.ledger.opening; },
        [](double, const Paid& paid) { return paid.left; });
}

std::vector<std::string> even_texts(const Choices& choices, std::optional<std::size_t> marked) {
    std::vector<std::string> texts;
    std::optional<std::size_t> one = marked;
    if (marked && !choices.results[*marked].reason.empty()) {
        return texts;
    }
    for (std::size_t other = 0; other < choices.results.size(); ++other) {
        if (other == marked || !choices.results[other].reason.empty()) {
            continue;
        }
        if (one) {
            texts.push_back(EvenText(choices, *one, other).text());
        }
        one = marked ? marked : other;
    }
    return texts;
}

}  // namespace kelvar
