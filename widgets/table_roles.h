// What the tables of the screens tell of their cells beyond what every view asks for.
#pragma once

#include <Qt>

namespace kelvar {

enum TableRole {
    plain_role = Qt::UserRole + 1,  // the text for other programs, as "734.30" for "$734.30"
    new_group_role,                 // true in rows that a fine line parts from the row above
    changed_role,                   // true in cells whose change against the row above is pointed out
};

}  // namespace kelvar
