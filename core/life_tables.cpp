#include "core/life_tables.h"

#include <fmt/format.h>

namespace kelvar {

namespace {

bool find(Recordset& records, const std::string& criterion) {
    records.MoveFirst();
    records.FindFirst(criterion);
    return !records.NoMatch();
}

}  // namespace

std::optional<double> single_life_divisor(Database& database, int age) {
    Recordset& lifexp = database.lifexp();
    if (!find(lifexp, fmt::format("age={}", age))) {
        return std::nullopt;
    }
    return lifexp.number("multiple");
}

std::optional<double> single_life_expectancy(Database& database, int age) {
    const auto divisor = single_life_divisor(database, age);
    return divisor ? std::optional{age + *divisor} : std::nullopt;
}

std::optional<double> joint_life_divisor(Database& database, int participant_age, int spouse_age) {
    Recordset& joinlife = database.joinlife();
    if (!find(joinlife, fmt::format("PartAge={}and BeneAge={}", participant_age, spouse_age))) {
        return std::nullopt;
    }
    return joinlife.number("LifeAge");
}

std::optional<double> joint_life_expectancy(Database& database, int participant_age, int spouse_age) {
    const auto divisor = joint_life_divisor(database, participant_age, spouse_age);
    return divisor ? std::optional{participant_age + *divisor} : std::nullopt;
}

}  // namespace kelvar
