// A bench for figures: reads scenarios as CSV from standard input and writes as CSV what becomes of
// each, to be compared with figures from elsewhere.
//
//     scenario,today,rate,method,present_value,first_pay_month,first_pay_year
//     a,2020-01-15,5,1,250000,7,2020
//
// The first line names the columns, in any order: `scenario`, any text without a comma, `today`
// (yyyy-mm-dd), `rate` (percent per year) and the fields of Scenario in the table below. What has no
// column is 0, the fee 80. For each scenario a line with its results and its ledger is written, then a
// line for each payment as the work table holds it; the first two lines name their columns. Numbers
// have 17 significant digits, so that they are read back exactly. A line that is no scenario, or grows
// beyond any number, ends the program with exit code 2; standard error names the line and the column.
// When the output cannot be written, the exit code is 1.
#include <fmt/compile.h>
#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <iterator>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <variant>
#include <vector>

#include "core/numbers.h"
#include "core/plan.h"
#include "engine/projection.h"

namespace {

using namespace kelvar;

struct Input {
    std::string id;
    Date today{no_date};
    double rate = 0.0;
    Scenario scenario;
};

// A column of numbers, where they go and what they may be.
struct Column {
    std::string_view name;
    std::variant<std::int16_t Scenario::*, double Scenario::*, double Input::*> field;
    double least;
    double most;
};

constexpr int last_year = 9999;
constexpr double largest_count = std::numeric_limits<std::int16_t>::max();
constexpr Column columns[] = {
    {"rate", &Input::rate, -100.0, 100.0},
    {"method", &Scenario::method, lump_sum, partial_lump_sum},
    {"present_value", &Scenario::present_value, 0.0, largest_amount},
    {"first_pay_month", &Scenario::first_pay_month, 1.0, 12.0},
    {"first_pay_year", &Scenario::first_pay_year, 1900.0, 9000.0},
    {"scenario_month", &Scenario::scenario_month, 0.0, 12.0},
    {"scenario_year", &Scenario::scenario_year, 0.0, 9000.0},
    {"frequency", &Scenario::frequency, 0.0, 12.0},
    {"length_option", &Scenario::length_option, no_length, by_life_expectancy},
    {"number_of_payments", &Scenario::number_of_payments, 0.0, largest_count},
    {"fixed_amount", &Scenario::fixed_amount, 0.0, largest_amount},
    {"partial_amount", &Scenario::partial_amount, 0.0, largest_amount},
    {"fee_amount", &Scenario::fee_amount, 0.0, largest_count},
    {"lookup_age", &Scenario::lookup_age, 0.0, 200.0},
    {"life_expectancy_age", &Scenario::life_expectancy_age, 0.0, 400.0}};
constexpr std::string_view required[] = {"scenario",      "today",           "rate",          "method",
                                         "present_value", "first_pay_month", "first_pay_year"};

class Refused : public std::runtime_error {
public:
    Refused(std::string_view column, std::string_view why)
        : std::runtime_error(fmt::format("column {}: {}", column, why)) {}
};

std::vector<std::string> split(const std::string& line) {
    std::vector<std::string> fields;
    const bool carriage_return = line.ends_with('\r');  // as spreadsheets end a line
    std::istringstream rest(line.substr(0, line.size() - (carriage_return ? 1 : 0)) + ',');
    for (std::string field; std::getline(rest, field, ',');) {
        fields.push_back(field);
    }
    return fields;
}

Date read_date(const std::string& text) {
    int year = 0;
    int month = 0;
    int day = 0;
    std::sscanf(text.c_str(), "%4d-%2d-%2d", &year, &month, &day);
    const auto date = real_date(year, month, day);
    if (!date || text != fmt::format("{:04}-{:02}-{:02}", year, month, day)) {
        throw Refused("today", fmt::format("'{}' is no date like 2020-01-15", text));
    }
    return *date;
}

void take_number(Input& input, const Column& column, std::string_view text) {
    double value = 0.0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || stop != text.data() + text.size() || std::isnan(value)) {
        throw Refused(column.name, fmt::format("'{}' is not a number", text));
    }
    const auto* count = std::get_if<std::int16_t Scenario::*>(&column.field);
    if (value < column.least || value > column.most ||
        (count != nullptr && value != std::floor(value))) {
        throw Refused(column.name, fmt::format("'{}' is not {} from {} to {}", text,
                                               count != nullptr ? "a whole number" : "a number",
                                               column.least, column.most));
    }
    if (count != nullptr) {
        input.scenario.** count = static_cast<std::int16_t>(value);
    } else if (const auto* amount = std::get_if<double Scenario::*>(&column.field)) {
        input.scenario.** amount = value;
    } else {
        input.*std::get<double Input::*>(column.field) = value;
    }
}

// What one column alone does not show.
void check(const Input& input) {
    const Scenario& scenario = input.scenario;
    const Commencement dates = commencement(scenario, input.today);
    if (dates.first.date < input.today) {
        throw Refused("first_pay_year", "the first payment lies before today");
    }
    if (scenario.method != lump_sum && plan::frequency(scenario.frequency).name.empty()) {
        throw Refused("frequency", "must be 1, 2, 4 or 12 for this method");
    }
    if (scenario.method == partial_lump_sum &&
        (scenario.scenario_month == 0 || dates.second_date < dates.first.date)) {
        throw Refused("scenario_year", "the remaining payments lie before the first payment");
    }
    const Date begin = scenario.method == partial_lump_sum ? dates.second_date : dates.first.date;
    if (scenario.method != lump_sum && scenario.length_option != by_dollar_amount &&
        year_of(begin) + scenario.number_of_payments / scenario.frequency > last_year) {
        throw Refused("number_of_payments",
                      fmt::format("the payments go beyond the year {}", last_year));
    }
}

void check_header(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        if (name != "scenario" && name != "today" &&
            !std::ranges::count(columns, name, &Column::name)) {
            throw Refused(name, "there is no such column");
        }
        if (std::ranges::count(names, name) > 1) {
            throw Refused(name, "is there twice");
        }
    }
    for (const std::string_view name : required) {
        if (!std::ranges::count(names, name)) {
            throw Refused(name, "is missing");
        }
    }
}

Input read_input(const std::vector<std::string>& names, const std::vector<std::string>& fields) {
    if (fields.size() != names.size()) {
        throw Refused(fields.size() < names.size() ? names[fields.size()] : names.back(),
                      fmt::format("{} fields, not {}", fields.size(), names.size()));
    }
    Input input;
    input.scenario.fee_amount = plan::yearly_fee;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i] == "scenario") {
            input.id = fields[i];
        } else if (names[i] == "today") {
            input.today = read_date(fields[i]);
        } else {
            take_number(input, *std::ranges::find(columns, names[i], &Column::name), fields[i]);
        }
    }
    check(input);
    return input;
}

// In the order of Outcome.
constexpr std::string_view outcomes[] = {"complete", "limit exceeded", "nothing left", "no payments"};
constexpr std::string_view headings =
    "scenario,start_value,second_value,number_of_payments,total_paid,outcome,opening,earnings,fees,"
    "periods_without_fee,payments,rounding,closing\n"
    "scenario,number,remaining,startbalance,payment,remainbalance,Month,Year\n";

void write(fmt::memory_buffer& out, const std::string& id, const Projection& p) {
    const Ledger& l = p.ledger;
    if (!std::isfinite(p.start_value + p.second_value + p.total_paid + l.earnings + l.rounding)) {
        throw Refused("rate", "the account grows beyond any number");
    }
    fmt::format_to(std::back_inserter(out),
                   FMT_COMPILE("{},{:.17g},{:.17g},{},{:.17g},{},{:.17g},{:.17g},{:.17g},{},{:.17g},"
                               "{:.17g},{:.17g}\n"),
                   id, p.start_value, p.second_value, p.schedule.number_of_payments, p.total_paid,
                   outcomes[static_cast<int>(p.outcome)], l.opening, l.earnings, l.fees,
                   l.periods_without_fee, l.payments, l.rounding, l.closing);
    for (const PaymentRow& row : p.schedule.rows) {
        fmt::format_to(std::back_inserter(out),
                       FMT_COMPILE("{},{},{},{:.17g},{:.17g},{:.17g},{},{:04}\n"), id, row.number,
                       row.remaining, row.startbalance, row.payment, row.remainbalance,
                       month_name(month_of(row.date)), year_of(row.date));
    }
}

void flush(fmt::memory_buffer& out) {
    if (std::fwrite(out.data(), 1, out.size(), stdout) != out.size() || std::fflush(stdout) != 0) {
        throw std::system_error(errno, std::generic_category(), "standard output");
    }
    out.clear();
}

int run() {
    std::ios::sync_with_stdio(false);  // standard input alone goes through streams
    constexpr std::size_t enough = 1U << 16U;
    fmt::memory_buffer out;
    int number = 1;
    try {
        std::string line;
        std::getline(std::cin, line);
        const bool marked = line.starts_with("\xEF\xBB\xBF");  // as UTF-8, by spreadsheets
        const std::vector<std::string> names = split(line.substr(marked ? 3 : 0));
        check_header(names);
        out.append(headings);
        while (std::getline(std::cin, line)) {
            ++number;
            const Input input = read_input(names, split(line));
            write(out, input.id, project(input.scenario, input.rate, input.today));
            if (out.size() > enough) {
                flush(out);
            }
        }
        flush(out);
    } catch (const Refused& refused) {
        flush(out);
        fmt::print(stderr, "line {}, {}\n", number, refused.what());
        return 2;
    }
    return 0;
}

}  // namespace

int main() {
    try {
        return run();
    } catch (const std::exception& error) {
        fmt::print(stderr, "{}\n", error.what());
        return 1;
    }
}
