#include "input/rules/rates.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/numbers.h"

namespace kelvar {

std::vector<std::string> rate_captions(const Recordset& rates) {
    const std::size_t rate = rates.column("rate");
    const std::size_t mark = rates.column("ratemark");
    const std::size_t boxes = std::tuple_size_v<RateTicks> - 1;
    std::vector<std::string> captions;
    for (std::size_t row = 0; row < std::min(rates.RecordCount(), boxes); ++row) {
        captions.push_back(as_text(rates.cell(row, rate)) + "%_____________" +
                           as_text(rates.cell(row, mark)));
    }
    return captions;
}

std::vector<double> rate_list(Recordset& rates, const RateTicks& ticks) {
    std::vector<double> chosen;
    for (std::size_t id = 1; id < ticks.size(); ++id) {
        if (!ticks[0] && !ticks[id]) {
            continue;
        }
        rates.MoveFirst();
        rates.FindFirst(fmt::format("rateid = {}", id));
        if (!rates.NoMatch()) {
            chosen.push_back(read_number(rates.text("rate")));
        }
    }
    return chosen;
}

}  // namespace kelvar
