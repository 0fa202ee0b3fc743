// Cells of a table of participants, read as people and spreadsheets write them. Amounts, percentages
// and numbers are read as on the screens, by input/rules.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/entry_words.h"

namespace kelvar {

// Without what people write differently: "Spouse's birth_date" gives "spousesbirthdate".
std::string plain_words(std::string_view text);

// Without those before and after it.
std::string_view without_blanks(std::string_view cell);

// The value of the word that the cell has; nothing for any other text.
std::optional<int> read_word(std::string_view cell, std::span<const Word> words);

struct MonthAndYear {
    int month = 0;  // 1..12
    int year = 0;
};

// "7/2020", "2020-07", "July 2020", "July, 2020", "Jul-20", or a day in that month such as "7/1/2020",
// "2020-07-01", "July 1, 2020". A year of two digits is in the 2000s. Nothing for any other text.
std::optional<MonthAndYear> read_month(std::string_view cell);

// "5%; 6%", "5 6", "all" or nothing, which means all. Each rate on offer once, in the order in which
// they are offered; none when anything else stands there, or one twice.
std::vector<double> read_rates(std::string_view cell, const std::vector<double>& offered);

// A name as its box takes it: without control characters, in one line, of at most 60 characters.
std::string one_line(std::string_view cell);

bool is_utf8(std::string_view text);

}  // namespace kelvar
