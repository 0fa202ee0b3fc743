#include "output/chart/chart_screen.h"

#include "core/numbers.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

// The lump sum stands ahead of the years and is not part of the year in which it is paid.
void frmcpart::add_points(BarData& bars) {
    if (scenario.method != partial_lump_sum) {
        return;
    }
    Recordset& distrib = module.database().distrib();
    distrib.MoveFirst();
    bars.labels << u"Lump Sum"_s;
    bars.sets.front().values.push_back(distrib.number("partial"));
}

// Says when the lump sum is paid, as "7/2020", since its bar has no year.
void frmcpart::add_values(const Recordset& distrib) {
    const QString date = to_qt(distrib.text("frstdate"));  // "July, 2020"
    const QString month = get_month(date.section(u", "_s, 0, 0).toUpper());
    add_value(u"Lump Sum ("_s + month + u"/"_s + date.section(u", "_s, 1) + u"):"_s,
              to_qt(format_number(distrib.number("partial"), pattern::dollars)), "lblpartial");
}

// The number, as text, of a month in upper case; empty for any other text.
QString frmcpart::get_month(const QString& name) {
    const int number = name == name.toUpper() ? month_number(to_utf8(name)) : 0;
    return number == 0 ? QString() : QString::number(number);
}

}  // namespace kelvar
