// Lists of years and months from which one is chosen.
#pragma once

#include <algorithm>
#include <numeric>
#include <vector>

namespace kelvar {

// The whole numbers from the first to the last, both included; none when the last comes before it.
inline std::vector<int> all_from(int first, int last) {
    std::vector<int> all(static_cast<std::size_t>(std::max(0, last - first + 1)));
    std::iota(all.begin(), all.end(), first);
    return all;
}

inline bool is_offered(const std::vector<int>& offered, int chosen) {
    return std::ranges::find(offered, chosen) != offered.end();
}

}  // namespace kelvar
