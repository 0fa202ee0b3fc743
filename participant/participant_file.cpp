#include "participant/participant_file.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <span>
#include <sstream>
#include <system_error>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "core/entry_words.h"
#include "core/numbers.h"
#include "core/operating_system.h"
#include "core/plan.h"
#include "core/visit.h"
#include "input/rules/birth_date.h"
#include "input/rules/partial_amount.h"

namespace kelvar {

namespace {

constexpr std::size_t most_bytes = 64 * 1024;
constexpr std::size_t most_shown = 60;  // bytes of a name that nobody knows

// What stands behind the name of an entry; nothing for what is of no use anywhere.
using Value = std::variant<std::monostate, bool, double, std::string, std::vector<double>>;

constexpr auto frequencies = [] {
    std::array<Word, std::size(plan::frequencies)> words;
    std::ranges::transform(plan::frequencies, words.begin(), [](const plan::Frequency& frequency) {
        return Word{frequency.payments_per_year, frequency.name};
    });
    return words;
}();

template <int least, int most>
bool is_whole(double number) {
    return number >= least && number <= most && number == std::floor(number);
}

bool is_amount(double number) {
    return std::abs(number) <= largest_amount && round_to_cents(number) == number;
}

bool is_rate(double number) {
    return number > -100.0 && number < 100.0;
}

// An entry under its name in Scenario, and what is said of anything else in its place. Numbers have to
// fit; those that stand for a choice are written as words.
struct Field {
    std::string_view name;
    std::variant<std::monostate,  // the format
                 std::optional<bool> Entries::*, std::optional<int> Entries::*,
                 std::optional<double> Entries::*, std::optional<std::string> Entries::*,
                 std::optional<Date> Entries::*, std::optional<Method> Entries::*,
                 std::optional<LengthOption> Entries::*, std::optional<std::vector<double>> Entries::*,
                 std::vector<Entries> Entries::*>
        member;
    std::string_view must_be;
    bool (*fits)(double) = nullptr;
    std::span<const Word> words{};
};

constexpr std::string_view a_date = "must be a date such as \"04/15/1955\"";
constexpr std::string_view an_amount = "must be an amount in dollars and cents such as 318440.17";
constexpr std::string_view a_month = "must be a whole number from 1 to 12";
constexpr std::string_view a_year = "must be a whole number from 1 to 9999";
constexpr std::string_view a_count = "must be a whole number from 0 to 99999999";
constexpr std::string_view yes_or_no = "must be true or false";
constexpr std::string_view one_of = "must be one of ";  // its words

constexpr Field fields[] = {
    {"format", {}, "must be 1, the only format that this version of Kelvar reads", is_whole<1, 1>},
    {"name", &Entries::name, "must be one line of at most 60 characters, without tabs"},
    {"birth_date", &Entries::birth_date, a_date},
    {"present_value", &Entries::present_value, an_amount, is_amount},
    {"first_pay_month", &Entries::first_pay_month, a_month, is_whole<1, 12>},
    {"first_pay_year", &Entries::first_pay_year, a_year, is_whole<1, 9999>},
    {"method", &Entries::method, one_of, nullptr, methods},
    {"frequency", &Entries::frequency, one_of, nullptr, frequencies},
    {"partial_amount", &Entries::partial_amount, an_amount, is_amount},
    {"partial_percent", &Entries::partial_percent, "must be a percentage above 0 and below 100",
     is_percentage},
    {"scenario_month", &Entries::scenario_month, a_month, is_whole<1, 12>},
    {"scenario_year", &Entries::scenario_year, a_year, is_whole<1, 9999>},
    {"length_option", &Entries::length_option, one_of, nullptr, lengths},
    {"joint_life", &Entries::joint_life, yes_or_no},
    {"number_of_payments", &Entries::number_of_payments, a_count, is_whole<0, 99'999'999>},
    {"fixed_amount", &Entries::fixed_amount, an_amount, is_amount},
    {"spouse_birth_date", &Entries::spouse_birth_date, a_date},
    {"selected_rates", &Entries::selected_rates,
     "must be a list of percentages such as [5, 6.5], the lowest first", is_rate},
    {"all_rates", &Entries::all_rates, yes_or_no},
    {"shown_rate", &Entries::shown_rate, "must be a percentage such as 6.5", is_rate},
    {"choices", &Entries::choices, "must be a list of at most six results in braces"}};
// These are the participant's, not those of one result.
constexpr std::string_view once_only[] = {"format", "name", "choices"};

std::string json_text(std::string_view text) {
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

// As short as it can be read back, without an exponent; the smallest double has 326 characters.
std::string plain(double value) {
    std::array<char, 400> digits;
    const auto written =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
    return {digits.data(), written.ptr};
}

template <class T>
std::string text_of(const T& entry, std::span<const Word> words) {
    if constexpr (std::is_same_v<T, bool>) {
        return entry ? "true" : "false";
    } else if constexpr (std::is_same_v<T, std::string>) {
        return json_text(entry);
    } else if constexpr (std::is_same_v<T, Date>) {
        return json_text(date_text(entry));
    } else if constexpr (std::is_same_v<T, std::vector<double>>) {
        std::vector<std::string> texts(entry.size());
        std::ranges::transform(entry, texts.begin(), plain);
        return fmt::format("[{}]", fmt::join(texts, ", "));
    } else {
        const auto word = std::ranges::find(words, static_cast<int>(entry), &Word::value);
        return word != words.end() ? json_text(word->text) : plain(static_cast<double>(entry));
    }
}

// Control characters are those below the blank, 0x7F and U+0080 to U+009F.
bool is_name(const std::string& text) {
    const auto code = [](char byte) { return static_cast<unsigned char>(byte); };
    const auto begins = [&](char byte) { return (code(byte) & 0xC0) != 0x80; };
    const auto controls = [&](char byte) { return code(byte) < ' ' || code(byte) == 0x7F; };
    const auto control_in_two = [&](char first, char second) {
        return code(first) == 0xC2 && code(second) < 0xA0;
    };
    return std::ranges::count_if(text, begins) <= longest_name &&
           std::ranges::none_of(text, controls) &&
           std::ranges::adjacent_find(text, control_in_two) == text.end();
}

bool is_ascending_list(const std::vector<double>& numbers, bool (*fits)(double)) {
    return std::ranges::all_of(numbers, fits) &&
           std::ranges::adjacent_find(numbers, std::greater_equal{}) == numbers.end();
}

// The value as this entry, if it can be one.
template <class T>
std::optional<T> entry_of(const Value& value, const Field& field) {
    const auto* const text = std::get_if<std::string>(&value);
    if constexpr (std::is_same_v<T, Date>) {
        const auto day = text != nullptr ? read_masked_date(*text) : std::nullopt;
        return day && date_text(*day) == *text ? day : std::nullopt;
    } else if constexpr (std::is_enum_v<T> || std::is_same_v<T, int> || std::is_same_v<T, double>) {
        const auto* const number = std::get_if<double>(&value);
        if (number != nullptr && field.words.empty() && field.fits(*number)) {
            return static_cast<T>(*number);
        }
        const auto word =
            text != nullptr ? std::ranges::find(field.words, *text, &Word::text) : field.words.end();
        return word != field.words.end() ? std::optional{static_cast<T>(word->value)} : std::nullopt;
    } else if constexpr (std::is_same_v<T, std::string>) {
        return text != nullptr && is_name(*text) ? std::optional{*text} : std::nullopt;
    } else if constexpr (std::is_same_v<T, bool>) {
        const bool* const yes = std::get_if<bool>(&value);
        return yes != nullptr ? std::optional{*yes} : std::nullopt;
    } else {
        const T* const numbers = std::get_if<T>(&value);
        const bool fits = numbers != nullptr && is_ascending_list(*numbers, field.fits);
        return fits ? std::optional{*numbers} : std::nullopt;
    }
}

struct KeptResult {
    Entries entries{};
    std::set<std::string, std::less<>> found{};  // names
};

// Takes the text as the parser comes to its parts; the first fault ends it with a ParticipantFileError.
class Reader : public nlohmann::json::json_sax_t {
public:
    Reader(std::string_view text, std::string_view file) : input_(std::string(text)), file_(file) {}

    Entries read() {
        nlohmann::json::sax_parse(input_, this);
        if (!input_.eof()) {  // the parser takes a NUL for the end
            refuse_text();
        }
        return entries_;
    }

    bool null() override { return take({}); }
    bool boolean(bool value) override { return take(value); }
    bool number_integer(std::int64_t value) override { return take(static_cast<double>(value)); }
    bool number_unsigned(std::uint64_t value) override { return take(static_cast<double>(value)); }
    bool number_float(double value, const std::string& digits) override {
        return digits.find_first_of("eE") == std::string::npos ? take(value) : take({});
    }
    bool string(std::string& value) override { return take(value); }
    bool binary(nlohmann::json::binary_t&) override { return take({}); }

    bool start_object(std::size_t) override {
        if (!std::exchange(begun_, true)) {
            return true;
        }
        if (!in_choices_ || choice_ || entries_.choices.size() == most_choices) {
            refuse_value();
        }
        choice_.emplace();
        return true;
    }

    bool key(std::string& name) override {
        line_ = line();
        field_ = std::ranges::find(fields, name, &Field::name);
        if (field_ == std::end(fields) ||
            (choice_ && std::ranges::find(once_only, name) != std::end(once_only))) {
            refuse(
                fmt::format("{} in line {} is unknown", json_text(name.substr(0, most_shown)), line_));
        }
        if (!(choice_ ? choice_->found : found_).insert(name).second) {
            refuse(fmt::format("\"{}\" in line {} is there twice", name, line_));
        }
        return true;
    }

    bool end_object() override {
        if (choice_) {
            refuse_both(choice_->entries);
            entries_.choices.push_back(choice_->entries);
            choice_.reset();
            return true;
        }
        if (!found_.contains("format")) {
            refuse("\"format\" is missing");
        }
        refuse_both(entries_);
        return true;
    }

    bool start_array(std::size_t) override {
        if (list_ || (in_choices_ && !choice_)) {
            refuse_value();
        }
        if (field_ != nullptr && field_->name == "choices") {
            in_choices_ = true;
        } else {
            list_.emplace();
        }
        return true;
    }

    bool end_array() override {
        if (!list_) {
            in_choices_ = false;
            return true;
        }
        return take(*std::exchange(list_, std::nullopt));
    }

    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override {
        refuse_text();
    }

private:
    bool take(const Value& value) {
        const auto* const number = std::get_if<double>(&value);
        if (list_ && number != nullptr) {
            list_->push_back(*number);
            return true;
        }
        if (!begun_ || list_ || (in_choices_ && !choice_) ||
            !std::visit([&](auto member) { return take(value, member); }, field_->member)) {
            refuse_value();
        }
        return true;
    }

    bool take(const Value& value, std::monostate) { return entry_of<int>(value, *field_).has_value(); }
    template <class T>
    bool take(const Value& value, std::optional<T> Entries::*member) {
        Entries& entries = choice_ ? choice_->entries : entries_;
        entries.*member = entry_of<T>(value, *field_);
        return (entries.*member).has_value();
    }
    bool take(const Value&, std::vector<Entries> Entries::*) { return false; }

    void refuse_both(const Entries& entries) const {
        if (entries.partial_amount && entries.partial_percent) {
            refuse("\"partial_amount\" and \"partial_percent\" cannot both be there");
        }
    }

    // The parser is one character ahead at most.
    std::ptrdiff_t line() {
        const std::streamoff read = input_.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in);
        const auto seen =
            input_.view().substr(0, static_cast<std::size_t>(std::max<std::streamoff>(read, 1) - 1));
        return 1 + std::ranges::count(seen, '\n');
    }

    [[noreturn]] void refuse(std::string_view why) const {
        throw ParticipantFileError(fmt::format("{} is not a participant's file: {}.", file_, why));
    }
    [[noreturn]] void refuse_text() { refuse(fmt::format("line {} cannot be read as JSON", line())); }
    [[noreturn]] void refuse_value() const {
        if (!begun_) {
            refuse("it must begin with \"{\"");
        }
        std::vector<std::string> words(field_->words.size());
        std::ranges::transform(field_->words, words.begin(), json_text, &Word::text);
        refuse(fmt::format("\"{}\" in line {} {}{}", field_->name, line_, field_->must_be,
                           fmt::join(words, ", ")));
    }

    std::istringstream input_;
    std::string_view file_;
    Entries entries_;
    const Field* field_ = nullptr;  // that is being read
    std::ptrdiff_t line_ = 0;       // in which its name stands
    std::set<std::string, std::less<>> found_;
    std::optional<std::vector<double>> list_;  // that is being read
    bool begun_ = false;
    std::optional<KeptResult> choice_;  // that is being read
    bool in_choices_ = false;
};

// One entry a line behind what the line begins with.
std::string lines_of(const Entries& entries, std::string_view indent) {
    std::string text;
    for (const Field& field : fields) {
        const auto add = [&](const auto& member) {
            using Member = std::remove_cvref_t<decltype(member)>;
            if constexpr (!std::is_same_v<Member, std::monostate> &&
                          !std::is_same_v<Member, std::vector<Entries> Entries::*>) {
                if (const auto& entry = entries.*member) {
                    text += fmt::format("{}{}\"{}\": {}", text.empty() ? "" : ",\n", indent, field.name,
                                        text_of(*entry, field.words));
                }
            }
        };
        std::visit(add, field.member);
    }
    return text;
}

}  // namespace

std::string participant_text(const Entries& entries) {
    std::string text = "{\n    \"format\": 1";
    if (const std::string lines = lines_of(entries, "    "); !lines.empty()) {
        text += ",\n" + lines;
    }
    std::vector<std::string> choices;
    for (const Entries& choice : entries.choices) {
        choices.push_back("\n        {\n" + lines_of(choice, "            ") + "\n        }");
    }
    if (!choices.empty()) {
        text += fmt::format(",\n    \"choices\": [{}\n    ]", fmt::join(choices, ","));
    }
    return text + "\n}\n";
}

Entries participant_of(std::string_view text, std::string_view file) {
    return Reader(text, file).read();
}

Entries read_participant(const std::filesystem::path& file) try {
    const auto text = read_ordinary_file(file, most_bytes);
    if (!text) {
        throw ParticipantFileError(fmt::format(
            "{} is not a participant's file: it is no ordinary file of at most 64 KB.", file.string()));
    }
    return participant_of(*text, file.string());
} catch (const std::system_error& error) {
    throw ParticipantFileError(
        fmt::format("{} cannot be read: {}.", file.string(), error.code().message()));
}

}  // namespace kelvar
