#include "input/rules/account_value.h"

#include "core/numbers.h"
#include "input/rules/typed_numbers.h"

namespace kelvar {

Check check_typing(std::string_view text) {
    if (can_become_amount(text)) {
        return std::nullopt;
    }
    return Refusal{"Invalid present value of the account", "txtcurvalue"};
}

Check check_account_value(std::optional<double> value) {
    if (round_to_cents(value.value_or(0.0)) != 0.0) {
        return std::nullopt;
    }
    return Refusal{"Invalid present value of the account.", "txtcurvalue"};
}

}  // namespace kelvar
