#include "core/reference_data.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace kelvar {

namespace {

constexpr double rates = 4.0;
constexpr double rate_above = -100.0;
constexpr double rate_below = 100.0;
constexpr std::ptrdiff_t longest_mark = 60;
constexpr int oldest = 200;
constexpr double divisor_below = 200.0;

// One table with the place of what is wrong in it.
class Table {
public:
    struct Field {
        const char* name;
        std::size_t column;
    };

    Table(const std::filesystem::path& file, const char* name, const Recordset& rows)
        : file_(file), name_(name), rows_(rows) {}

    std::size_t size() const { return rows_.RecordCount(); }

    Field field(const char* name) const { return {name, rows_.column(name)}; }

    const FieldValue& value(std::size_t row, const Field& field) const {
        return rows_.cell(row, field.column);
    }

    std::optional<double> number(std::size_t row, const Field& field) const {
        const FieldValue& stored = value(row, field);
        const bool is_number =
            std::holds_alternative<std::int64_t>(stored) || std::holds_alternative<double>(stored);
        return is_number ? std::optional{as_number(stored)} : std::nullopt;
    }

    std::size_t age(std::size_t row, const Field& field) const {
        const auto age = number(row, field);
        if (!age || !(*age >= 0.0 && *age <= oldest) || *age != std::floor(*age)) {
            refuse(row, fmt::format("{} must be a whole number from 0 to {}", field.name, oldest));
        }
        return static_cast<std::size_t>(*age);
    }

    void check_divisor(std::size_t row, const Field& field) const {
        const auto divisor = number(row, field);
        if (!divisor || !(*divisor > 0.0 && *divisor < divisor_below)) {
            refuse(row,
                   fmt::format("{} must be a number above 0 and below {}", field.name, divisor_below));
        }
    }

    [[noreturn]] void refuse(std::size_t row, const std::string& why) const {
        throw DatabaseError(file_, fmt::format("table {}, row {}: {}", name_, row + 1, why));
    }

private:
    const std::filesystem::path& file_;
    const char* name_;
    const Recordset& rows_;
};

bool is_mark(const FieldValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    if (text == nullptr) {
        return false;
    }
    const auto is_control = [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; };
    const auto begins_character = [](unsigned char byte) { return (byte & 0xC0U) != 0x80U; };  // UTF-8
    const std::ptrdiff_t characters = std::ranges::count_if(*text, begins_character);
    return characters >= 1 && characters <= longest_mark && std::ranges::none_of(*text, is_control);
}

void check_rates(const Table& table) {
    const Table::Field rateid = table.field("rateid");
    const Table::Field ratemark = table.field("ratemark");
    const Table::Field percent = table.field("rate");
    double last = 0.0;
    for (std::size_t row = 0; row < table.size(); ++row) {
        const auto id = table.number(row, rateid);
        if (!id || !(*id > last && *id <= rates) || *id != std::floor(*id)) {
            table.refuse(row,
                         fmt::format("rateid must be 1 to {}, each once and in this order", rates));
        }
        last = *id;
        const auto rate = table.number(row, percent);
        if (!rate || !(*rate > rate_above && *rate < rate_below)) {
            table.refuse(row, fmt::format("rate must be a number above {} and below {}", rate_above,
                                          rate_below));
        }
        if (!is_mark(table.value(row, ratemark))) {
            table.refuse(row,
                         fmt::format("ratemark must be a text of 1 to {} characters", longest_mark));
        }
    }
}

void check_lifexp(const Table& table) {
    const Table::Field participant = table.field("age");
    const Table::Field multiple = table.field("multiple");
    std::vector<bool> met(oldest + 1);
    for (std::size_t row = 0; row < table.size(); ++row) {
        const std::size_t age = table.age(row, participant);
        if (met[age]) {
            table.refuse(row, fmt::format("age {} stands there twice", age));
        }
        met[age] = true;
        table.check_divisor(row, multiple);
    }
}

void check_joinlife(const Table& table) {
    const Table::Field participant = table.field("PartAge");
    const Table::Field spouse = table.field("BeneAge");
    const Table::Field divisor = table.field("LifeAge");
    std::vector<bool> met((oldest + 1) * (oldest + 1));
    for (std::size_t row = 0; row < table.size(); ++row) {
        const std::size_t age = table.age(row, participant);
        const std::size_t spouse_age = table.age(row, spouse);
        const std::size_t pair = age * (oldest + 1) + spouse_age;
        if (met[pair]) {
            table.refuse(row, fmt::format("ages {} and {} stand there twice", age, spouse_age));
        }
        met[pair] = true;
        table.check_divisor(row, divisor);
    }
}

}  // namespace

void check_reference_data(Database& database) {
    check_rates({database.file(), "rate", database.rate()});
    check_lifexp({database.file(), "lifexp", database.lifexp()});
    check_joinlife({database.file(), "joinlife", database.joinlife()});
}

}  // namespace kelvar
