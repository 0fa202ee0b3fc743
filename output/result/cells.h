// Cells of the tables that show results.
#pragma once

#include "core/numbers.h"
#include "engine/heading.h"
#include "widgets/text.h"
#include "widgets/text_table_model.h"

namespace kelvar {

inline TextTableModel::Cell money_cell(double dollars) {
    return {to_qt(money_text(dollars)), to_qt(format_number(dollars, pattern::plain_amount))};
}

inline TextTableModel::Cell number_cell(int number) {
    return {QString::number(number)};
}

}  // namespace kelvar
