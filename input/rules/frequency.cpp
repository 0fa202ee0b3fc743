#include "input/rules/frequency.h"

#include <fmt/format.h>

#include "core/plan.h"

namespace kelvar {

std::int16_t frequency_of_box(int index) {
    return plan::frequencies[index].payments_per_year;
}

std::string payments_text(int number, int payments_per_year) {
    return fmt::format("{} {} payment{}", number, plan::frequency(payments_per_year).adjective,
                       number == 1 ? "" : "s");
}

Check check_frequency(int payments_per_year, std::string_view first_box) {
    if (payments_per_year != 0) {
        return std::nullopt;
    }
    return Refusal{"Invalid periodic payments selection. Select frequency of period payments.",
                   first_box};
}

}  // namespace kelvar
