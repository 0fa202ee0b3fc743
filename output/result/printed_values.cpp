#include "output/result/printed_values.h"

#include <fmt/format.h>

#include <QPaintDevice>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <memory>

#include "core/ages.h"
#include "core/disclaimer.h"
#include "core/numbers.h"
#include "core/plan.h"
#include "engine/chart_rules.h"
#include "engine/explanation.h"
#include "engine/federal_minimum.h"
#include "engine/headline.h"
#include "engine/result_texts.h"
#include "engine/schedule.h"
#include "engine/years.h"
#include "output/result/summary_texts.h"
#include "widgets/bar_chart.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

std::string age_text(const Scenario& scenario, Date date) {
    return std::to_string(age_in_month(scenario.birth_date, date));
}

ReportValues heading_values(const Scenario& scenario, Date today) {
    ReportValues values;
    values.participant = scenario.name;
    values.title = scenario.method == lump_sum ? std::string(method_title(scenario.method))
                                               : title_with_frequency(scenario);
    values.date = date_text(today);
    values.balance = money_text(scenario.present_value);
    if (scenario.method == partial_lump_sum) {
        values.lump_sum = money_text(scenario.partial_amount);
    }
    return values;
}

void add_payments(ReportValues& values, const Scenario& scenario, const PaymentSchedule& schedule) {
    const std::vector<PaymentRow>& rows = schedule.rows;
    const PaymentRow& first = rows.front();
    const PaymentRow& last = rows.back();
    values.first_amount = money_text(first.payment);
    values.first_month = month_year_text(first.date);
    values.first_age = age_text(scenario, first.date);
    values.last_amount = money_text(last.payment);
    values.last_month = month_year_text(last.date);
    values.last_age = age_text(scenario, last.date);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        if (begins_year(schedule, i)) {
            values.next_amount = money_text(rows[i].payment);
            values.next_month = month_year_text(rows[i].date);
            return;
        }
    }
}

// Of payments over life expectancy it says nothing when the look-up failed, and did not give their
// number.
void add_life(ReportValues& values, const Scenario& scenario) {
    const double divisor = scenario.life_expectancy_age - scenario.lookup_age;
    const bool over_life = scenario.length_option == by_life_expectancy;
    if (divisor <= 0.0 ||
        (over_life && std::floor(divisor * scenario.frequency) != scenario.number_of_payments)) {
        return;
    }
    values.life = table_name(scenario);
    values.life.front() = static_cast<char>(std::toupper(values.life.front()));
    values.life_age = std::to_string(scenario.lookup_age);
    values.spouse_age = over_joint_life(scenario) ? std::to_string(scenario.spouse_lookup_age) : "";
    values.divisor = number_text(round_to_cents(divisor));
    values.table = table_source(scenario);
}

// What concerns this result; on paper there is no next screen.
void add_notes(ReportValues& values, const Scenario& scenario) {
    constexpr std::size_t on_recalculation = 4;
    constexpr std::size_t on_life_expectancy = 5;
    for (std::size_t i = 0; i < std::size(disclaimer); ++i) {
        const bool concerns_it =
            i == on_recalculation
                ? scenario.method != lump_sum && scenario.length_option != by_dollar_amount
                : i != on_life_expectancy || scenario.method != lump_sum;
        if (concerns_it) {
            std::string note = disclaimer[i];
            constexpr std::string_view elsewhere = "on the next screen";
            if (const std::size_t at = note.find(elsewhere); at != std::string::npos) {
                note.replace(at, elsewhere.size(), "in this report");
            }
            values.notes.push_back({{"note", note}});
        }
    }
}

bool has_long_amount(const std::vector<NamedTexts>& list) {
    constexpr std::string_view longest = "$9,999,999.99";
    return std::ranges::any_of(list, [&](const NamedTexts& texts) {
        return std::ranges::any_of(texts, [&](const auto& named) {
            return named.second.starts_with('$') && named.second.size() > longest.size() &&
                   named.second.find(' ') == std::string::npos;  // "$12,000.00 a half-year" is none
        });
    });
}

void add_ledger(ReportValues& values, const Scenario& scenario, const Ledger& ledger) {
    const auto add = [&](const std::string& entry, double dollars) {
        values.ledger.push_back({{"entry", entry}, {"amount", money_text(dollars)}});
    };
    add("Balance today", ledger.opening);
    add(ledger.earnings < 0.0 ? "- Loss" : "+ Earnings", std::abs(ledger.earnings));
    const std::string not_charged =
        ledger.periods_without_fee == 0
            ? ""
            : fmt::format(" (not charged {})", count_text(ledger.periods_without_fee, "time"));
    const std::string of_its_own =
        scenario.method == lump_sum ? fmt::format(" (at ${:.0f} a year)", plan::lump_sum_fee) : "";
    add("- Fees" + of_its_own + not_charged, ledger.fees);
    add("- Paid to you", ledger.payments);
    if (ledger.rounding != 0.0) {
        add(ledger.rounding < 0.0 ? "- Rounding" : "+ Rounding", std::abs(ledger.rounding));
    }
    add("= Left", ledger.closing);
}

template <std::size_t size>
NamedTexts named(const char* const (&names)[size], const std::array<std::string, size>& texts) {
    NamedTexts all;
    for (std::size_t i = 0; i < size; ++i) {
        all.emplace_back(names[i], texts[i]);
    }
    return all;
}

constexpr const char* rate_columns[] = {"rate",     "first_value", "first_amount", "full_year_amount",
                                        "payments", "last_month",  "last_age",     "earnings",
                                        "fees",     "paid"};
constexpr const char* choice_columns[] = {
    "name",     "rate",     "lump_sum", "first_amount", "full_year_amount", "payments", "last_month",
    "last_age", "earnings", "fees",     "paid"};
constexpr const char* year_columns[] = {"year",     "age",  "payments", "beginning",
                                        "earnings", "fees", "paid",     "ending"};

// Without the rows that are something else.
int count_of_years(const std::vector<YearRow>& years) {
    return static_cast<int>(std::ranges::count(years, std::string_view(), &YearRow::label));
}

// What lies before the years has a row as well, so that they add up to the ledger.
void add_years(ReportValues& values, const Scenario& scenario, const Projection& projection,
               const std::vector<YearRow>& years) {
    const Ledger& ledger = projection.ledger;
    const std::string first_month = month_year_text(projection.dates.first.date);
    YearRow total = total_of(years);
    if (scenario.method == periodic_payments &&
        (ledger.earnings_before != 0.0 || ledger.fees_before != 0.0)) {
        YearRow before;
        before.beginning = ledger.opening;
        before.earnings = ledger.earnings_before;
        before.fees = ledger.fees_before;
        before.ending = round_to_cents(projection.start_value);
        values.years.push_back(named(year_columns, year_texts(before)));
        values.years.back().emplace_back("before", "Before " + first_month);
        total.earnings += before.earnings;
        total.fees += before.fees;
    }
    for (const YearRow& year : years) {
        values.years.push_back(named(year_columns, year_texts(year)));
        values.years.back().emplace_back(
            "before", year.label == lump_sum_label ? first_month + ", lump sum" : "");
    }
    values.total_years = time_text(projection.schedule.number_of_payments * 12 / scenario.frequency);
    values.total_payments = std::to_string(total.payments);
    values.payment_count = count_text(total.payments, "payment");
    values.total_earnings = money_text(total.earnings);
    values.total_fees = money_text(total.fees);
    values.total_paid = money_text(total.paid);
}

// A lump sum stands ahead of the years and is not part of the year in which it is paid.
BarData yearly_bars(const std::vector<YearRow>& years) {
    BarData bars{.labels = {},
                 .sets = {{.name = u"Total paid"_s, .values = {}}},
                 .value_title = u"Paid in each year, and your age at its last payment"_s,
                 .notes = {},
                 .notes_title = u"Age"_s};
    for (const YearRow& year : years) {
        if (year.label == rounding_label) {
            continue;
        }
        const bool lump = year.label == lump_sum_label;
        bars.labels << (lump ? u"Lump Sum"_s : QString::number(year.year));
        bars.notes << (lump ? QString() : QString::number(year.age));
        bars.sets.front().values.push_back(year.paid);
    }
    bars.upper = y_max(std::ranges::max(bars.sets.front().values));
    return bars;
}

// In texts of about 8 points, whatever the place's size.
void paint_bars(QPainter& painter, const QRectF& area, const BarData& bars) {
    constexpr double units_per_inch = 96.0 * 11.0 / 8.0;
    BarChart chart("", {});
    chart.show_bars(bars);
    chart.paint_on_paper(painter, area,
                         area.width() / painter.device()->logicalDpiX() * units_per_inch);
}

}  // namespace

ReportValues printed_values(const Scenario& scenario, const Projection& projection,
                            Database& database) {
    ReportValues values = heading_values(scenario, projection.today);
    values.headline = headline(scenario, projection);
    values.rate = rate_text(projection.rate, lump_sum);
    add_notes(values, scenario);
    add_ledger(values, scenario, projection.ledger);
    if (scenario.method == lump_sum) {
        const Date date = projection.dates.first.date;
        values.first_amount = money_text(projection.lump_sum);
        values.first_month = month_year_text(date);
        values.first_age = age_text(scenario, date);
        values.fee_note = lump_sum_fee_text();
        values.wide = has_long_amount(values.ledger);
        add_summary(values, scenario, projection, database);
        return values;
    }
    std::vector<YearRow> years = years_of(projection, scenario.birth_date, scenario.fee_amount);
    mark_below_federal_minimum(years, scenario, projection, database);
    add_payments(values, scenario, projection.schedule);
    add_life(values, scenario);
    add_years(values, scenario, projection, years);
    values.federal_minimum = federal_minimum_text(years);
    values.below_minimum =
        values.federal_minimum.substr(std::min<std::size_t>(2, values.federal_minimum.size()));
    values.before = before_payments_text(projection.ledger);
    values.wide = has_long_amount(values.ledger) || has_long_amount(values.years);
    add_summary(values, scenario, projection, database);
    if (count_of_years(years) > 1) {
        values.chart = [bars = yearly_bars(years)](QPainter& painter, const QRectF& area) {
            paint_bars(painter, area, bars);
        };
    }
    return values;
}

ReportValues printed_comparison(const Scenario& scenario, const Comparison& comparison) {
    ReportValues values = heading_values(scenario, comparison.today);
    values.spread = spread_text(scenario, comparison);
    for (const ComparedRate& at_rate : comparison.rates) {
        const RateTexts texts = rate_texts(at_rate);
        const bool complete = at_rate.outcome == Outcome::complete;
        values.rates.push_back(complete ? named(rate_columns, texts) : NamedTexts{{"rate", texts[0]}});
        values.rates.back().emplace_back("reason", complete ? "" : texts[1]);
    }
    values.wide = has_long_amount(values.rates);
    return values;
}

ReportValues printed_choices(const Scenario& scenario, Date today,
                             const std::vector<ChosenResult>& rows,
                             const std::vector<std::string>& sentences) {
    ReportValues values;
    values.participant = scenario.name;
    values.date = date_text(today);
    int number = 0;
    for (const ChosenResult& row : rows) {
        NamedTexts texts = named(choice_columns, choice_texts(row));
        texts.emplace_back("number", row.choice.fallen ? "" : std::to_string(++number));
        texts.emplace_back("reason", row.reason);
        values.choices.push_back(std::move(texts));
    }
    for (const std::string& sentence : sentences) {
        values.even.push_back({{"sentence", sentence}});
    }
    values.wide = has_long_amount(values.choices);
    return values;
}

}  // namespace kelvar
