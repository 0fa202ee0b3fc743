// Bisection over whole numbers.
#pragma once

#include <cstdint>

namespace kelvar {

// The first of the whole numbers from 1 to `last` that passes, when all after it pass as well;
// `last` + 1 when none does.
template <class Passes>
std::int64_t first_that(std::int64_t last, Passes passes) {
    std::int64_t first = 1;
    std::int64_t end = last + 1;
    while (first < end) {
        const std::int64_t middle = first + (end - first) / 2;
        if (passes(middle)) {
            end = middle;
        } else {
            first = middle + 1;
        }
    }
    return first;
}

}  // namespace kelvar
