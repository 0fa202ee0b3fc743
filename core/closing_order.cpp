#include "core/closing_order.h"

#include "core/scenario.h"

namespace kelvar {

namespace {

using enum ScreenId;

std::vector<ScreenId> of_method(std::int16_t method) {
    switch (method) {
        case lump_sum:
            return {frmlump};
        case periodic_payments:
            return {frmperio, frmdist3};
        case partial_lump_sum:
            return {frmparti, frmdist3};
        default:
            return {};
    }
}

}  // namespace

std::vector<ScreenId> order_to_the_end(std::int16_t method) {
    std::vector<ScreenId> order = of_method(method);
    order.insert(order.end(), {frmdnote, frmdrate, frmdist2, frmdist1, frmdist, mdifrmd});
    return order;
}

std::vector<ScreenId> order_to_the_menu() {
    return {frmlump, frmperio, frmparti, frmdist3, frmdnote, frmdrate, frmdist2, frmdist1, frmdist};
}

}  // namespace kelvar
