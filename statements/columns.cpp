#include "statements/columns.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include "core/entries.h"
#include "core/numbers.h"
#include "core/plan.h"
#include "input/rules/account_value.h"
#include "input/rules/birth_date.h"
#include "input/rules/entries.h"
#include "input/rules/partial_amount.h"
#include "input/rules/rates.h"
#include "input/rules/typed_numbers.h"
#include "statements/cells.h"

namespace kelvar {

namespace {

// In the order of the steps.
enum Place : std::size_t {
    name,
    birth_date,
    balance,
    first_payment,
    method,
    frequency,
    sum_before,
    payments_from,
    length,
    number,
    amount,
    joint,
    spouse,
    rates,
    count
};

struct Column {
    std::string_view name;
    std::array<std::string_view, 2> also{};    // what it may be called besides
    std::array<std::string_view, 2> fields{};  // of the screens, as refusals name them
    bool needed = false;
};

constexpr std::array<Column, count> all_columns{
    {{"name", {"participant"}},
     {"birth date", {"date of birth"}, {"mskbirth"}, true},
     {"balance", {"account balance", "current account balance"}, {"txtcurvalue"}, true},
     {"first payment", {"first payment month"}, {"Cmbfrstmonth"}, true},
     {"method", {"method of distribution"}, {"optmethod_0"}, true},
     {"frequency", {}, {"chkperiod_0", "chkpartial_0"}},
     {"lump sum", {"amount certain", "partial lump sum"}, {"txtpartial", "cmbPercent"}},
     {"payments from", {"second payment"}, {"cmbscnyear"}},
     {"length", {"length of payments"}, {"optlength_0"}},
     {"number", {"number of payments"}, {"txtnumber"}},
     {"amount", {"dollar amount"}, {"txtfixamount"}},
     {"joint", {"joint life"}, {"oplifeexp_0"}},
     {"spouse's birth date", {"spouse birth date"}, {"mskbenebirth"}},
     {"rates", {"rate"}, {"chkrate_0"}}}};

using Cells = std::array<std::string_view, count>;

constexpr Word short_methods[] = {{lump_sum, "all at once"},
                                  {periodic_payments, "periodic"},
                                  {periodic_payments, "payments"},
                                  {partial_lump_sum, "partial lump sum"},
                                  {partial_lump_sum, "partial"}};
constexpr Word short_lengths[] = {
    {by_number_of_payments, "number"}, {by_dollar_amount, "amount"}, {by_life_expectancy, "life"}};
constexpr Word yes_or_no[] = {{1, "yes"}, {1, "y"}, {1, "true"},  {1, "1"}, {1, "joint"},
                              {0, "no"},  {0, "n"}, {0, "false"}, {0, "0"}, {0, "single"}};
constexpr std::string_view not_utf8 =
    "This is not in UTF-8. Save the table as CSV in UTF-8, which spreadsheets offer beside plain CSV.";

bool has_text(const std::string& cell) {
    return !cell.empty();
}

std::size_t place_of(std::string_view title) {
    const std::string plain = plain_words(title);
    const auto is_called = [&](std::string_view called) { return plain_words(called) == plain; };
    const auto found = std::ranges::find_if(all_columns, [&](const Column& column) {
        return !plain.empty() &&
               (is_called(column.name) || std::ranges::any_of(column.also, is_called));
    });
    return static_cast<std::size_t>(found - all_columns.begin());
}

std::string_view column_of(std::string_view field) {
    const auto found = std::ranges::find_if(all_columns, [&](const Column& column) {
        return std::ranges::find(column.fields, field) != column.fields.end();
    });
    if (field.empty() || found == all_columns.end()) {
        throw std::logic_error(fmt::format("no column for {}", field));
    }
    return found->name;
}

std::optional<int> word(std::string_view cell, std::span<const Word> words,
                        std::span<const Word> short_words) {
    const auto found = read_word(cell, words);
    return found ? found : read_word(cell, short_words);
}

std::optional<int> frequency_of(std::string_view cell) {
    for (const plan::Frequency& known : plan::frequencies) {
        const Word words[] = {{known.payments_per_year, known.name},
                              {known.payments_per_year, known.heading}};
        if (const auto found = read_word(cell, words)) {
            return found;
        }
    }
    return std::nullopt;
}

template <class T>
std::optional<T> as(std::optional<int> value) {
    return value ? std::optional{static_cast<T>(*value)} : std::nullopt;
}

std::optional<Date> date_of(std::string_view cell) {
    const auto in_box = date_in_box(cell);
    return in_box ? read_masked_date(*in_box) : std::nullopt;
}

std::optional<int> number_of(std::string_view cell) {
    constexpr double most = 99'999'999;  // that the box takes
    constexpr double unread = 1e60;      // left, the box holds more digits than are read again
    const auto typed = read_unsigned(cell);
    return typed && *typed < unread
               ? std::optional{static_cast<int>(std::round(std::min(*typed, most)))}
               : std::nullopt;
}

Entries entries_of(const Cells& cells, Database& database) {
    Entries entries;
    entries.birth_date = date_of(cells[birth_date]);
    entries.present_value = get_num(cells[balance]);
    if (const auto first = read_month(cells[first_payment])) {
        entries.first_pay_month = first->month;
        entries.first_pay_year = first->year;
    }
    entries.method = as<Method>(word(cells[method], methods, short_methods));
    entries.frequency = frequency_of(cells[frequency]);
    // 0 is refused in the words that the screen has for what cannot be read.
    if (cells[sum_before].ends_with('%')) {
        const std::string_view percentage = cells[sum_before].substr(0, cells[sum_before].size() - 1);
        entries.partial_percent = read_percentage(percentage).value_or(0.0);
    } else if (!cells[sum_before].empty()) {
        entries.partial_amount = read_partial_amount(cells[sum_before]).value_or(0.0);
    }
    if (const auto later = read_month(cells[payments_from])) {
        entries.scenario_month = later->month;
        entries.scenario_year = later->year;
    }
    entries.length_option = as<LengthOption>(word(cells[length], lengths, short_lengths));
    entries.number_of_payments = number_of(cells[number]);
    entries.fixed_amount = get_num(cells[amount]);
    entries.spouse_birth_date = date_of(cells[spouse]);
    entries.joint_life =
        cells[joint].empty() ? !cells[spouse].empty() : read_word(cells[joint], yes_or_no) == 1;
    entries.selected_rates = read_rates(cells[rates], rate_list(database.rate(), {true}));
    return entries;
}

// What typing the cells would be refused for before Next is pressed on the first step.
Check check_typed(const Cells& cells, Date today) {
    if (!cells[birth_date].empty()) {
        const auto in_box = date_in_box(cells[birth_date]);
        if (const Check check = check_birth(in_box.value_or(""), today).wrong) {
            return check;
        }
    }
    return check_typing(cells[balance]);
}

}  // namespace

Columns::Columns(const CsvRecord& header, const std::string& file) {
    const auto refuse = [&](const std::string& why) {
        throw InputError(fmt::format("{}, line {}: {}", file, header.line, why));
    };
    std::array<std::string_view, count> names;
    std::ranges::transform(all_columns, names.begin(), &Column::name);
    for (const std::string& title : header.cells) {
        if (!is_utf8(title) || title.find('\0') != title.npos) {
            refuse("the names of the columns are not in UTF-8.");
        }
        const std::size_t place = place_of(title);
        if (title.empty() && &title == &header.cells.back()) {
            continue;  // a comma at the end of every line
        }
        if (place == count) {
            refuse(fmt::format("there is no column \"{}\". Columns are {}.", title,
                               fmt::join(names, ", ")));
        }
        if (std::ranges::find(columns_, place) != columns_.end()) {
            refuse(fmt::format("the column \"{}\" is there twice.", all_columns[place].name));
        }
        columns_.push_back(place);
    }
    for (std::size_t place = 0; place < count; ++place) {
        if (all_columns[place].needed && std::ranges::find(columns_, place) == columns_.end()) {
            refuse(fmt::format("the column \"{}\" is missing.", all_columns[place].name));
        }
    }
}

Participant Columns::read(const CsvRecord& record, Database& database, Date today) const {
    Cells cells;
    Participant participant{.line = record.line};
    const auto refuse = [&](std::string_view why, std::string_view column) {
        participant.refusal = why;
        participant.column = column;
        return participant;
    };
    const std::size_t known = std::min(columns_.size(), record.cells.size());
    for (std::size_t i = 0; i < known; ++i) {
        cells[columns_[i]] = without_blanks(record.cells[i]);
    }
    if (is_utf8(cells[name])) {
        participant.name = one_line(cells[name]);
    }
    if (record.unclosed) {
        return refuse("A quotation mark in this line is never closed.", "");
    }
    if (std::any_of(record.cells.begin() + static_cast<std::ptrdiff_t>(known), record.cells.end(),
                    has_text)) {
        return refuse("This line has more cells than there are columns.", "");
    }
    const auto bad = std::ranges::find_if_not(cells, is_utf8);
    if (bad != cells.end()) {
        return refuse(not_utf8, all_columns[static_cast<std::size_t>(bad - cells.begin())].name);
    }
    if (!cells[joint].empty() && !read_word(cells[joint], yes_or_no)) {
        return refuse("This must be \"yes\" or \"no\".", all_columns[joint].name);
    }
    Check check = check_typed(cells, today);
    if (!check) {
        Entered entered = enter(entries_of(cells, database), database, today);
        check = entered.refused;
        participant.scenario = std::move(entered.scenario);
        participant.scenario.name = participant.name;
    }
    if (check) {
        const std::string_view column = column_of(check->field);
        const bool by_spouse = column == all_columns[joint].name && cells[joint].empty();
        return refuse(check->text, by_spouse ? all_columns[spouse].name : column);
    }
    return participant;
}

}  // namespace kelvar
