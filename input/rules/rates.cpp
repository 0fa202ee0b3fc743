#include "input/rules/rates.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/numbers.h"

namespace kelvar {

namespace {

bool find_rate(Recordset& rates, std::size_t id) {
    rates.MoveFirst();
    rates.FindFirst(fmt::format("rateid = {}", id));
    return !rates.NoMatch();
}

}  // namespace

RateCaptions rate_captions(Recordset& rates) {
    RateCaptions captions;
    for (std::size_t id = 1; id < captions.size(); ++id) {
        if (find_rate(rates, id)) {
            captions[id] = rates.text("rate") + "%_____________" + rates.text("ratemark");
        }
    }
    return captions;
}

Check check_rates(const RateTicks& ticks) {
    if (std::ranges::find(ticks, true) != ticks.end()) {
        return std::nullopt;
    }
    return Refusal{"Select one or more annual rate of return.", "chkrate_0"};
}

std::vector<double> rate_list(Recordset& rates, const RateTicks& ticks) {
    std::vector<double> chosen;
    for (std::size_t id = 1; id < ticks.size(); ++id) {
        if ((ticks[0] || ticks[id]) && find_rate(rates, id)) {
            chosen.push_back(read_number(rates.text("rate")));
        }
    }
    return chosen;
}

}  // namespace kelvar
