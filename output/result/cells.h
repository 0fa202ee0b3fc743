// Cells of the tables that show results.
#pragma once

#include <cmath>
#include <initializer_list>

#include "core/numbers.h"
#include "engine/result_texts.h"
#include "widgets/text.h"
#include "widgets/text_table_model.h"

namespace kelvar {

inline TextTableModel::Cell money_cell(double dollars) {
    return {to_qt(money_text(dollars)), to_qt(format_number(dollars, pattern::plain_amount))};
}

// A row of texts, each with what other programs get of it.
template <class Texts>
std::vector<TextTableModel::Cell> text_cells(const Texts& shown, const Texts& plain) {
    std::vector<TextTableModel::Cell> cells;
    for (std::size_t column = 0; column < shown.size(); ++column) {
        cells.push_back({to_qt(shown[column]), to_qt(plain[column])});
    }
    return cells;
}

// Lets these columns of a row of amounts show whole dollars where there is no room for cents.
inline void spare_cents(std::vector<TextTableModel::Cell>& cells,
                        std::initializer_list<std::size_t> columns) {
    for (const std::size_t column : columns) {
        const double dollars = cells[column].plain.toDouble();
        if (std::abs(dollars) >= 1.0) {
            cells[column].brief = to_qt(format_number(dollars, pattern::whole_dollars));
        }
    }
}

}  // namespace kelvar
