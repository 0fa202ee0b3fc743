#include "shell/notes/note_screens.h"

#include "core/numbers.h"
#include "widgets/grid.h"
#include "widgets/record_table_model.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

frmlife::frmlife(Module1& module1)
    : Screen(module1, ScreenId::frmlife, "frmlife", {.title = u"Please Note..."_s, .next = false}) {
    content()->addWidget(
        theme::label(u"Life Expectancy/Minimum Distribution Chart*"_s, theme::Role::section, "Label1"));
}

void frmlife::load() {
    add_grid();
    content()->addWidget(control::paragraph(u"* Life Expectancy=age+multiple"_s, "Label1_1"));
}

void frmlife::add_grid() {
    const Recordset& lifexp = module.database().lifexp();
    grdlife = new Grid("grdlife", u"Life Expectancy/Minimum Distribution Chart"_s);
    auto* rows = new RecordTableModel(
        lifexp, life_columns(lifexp, {u"AGE"_s, u"MULTIPLE"_s, u"LIFE EXPECTANCY"_s}), this);
    rows->show_rows(0, lifexp.RecordCount());
    grdlife->setModel(rows);
    content()->addWidget(grdlife, 1);
    set_first_field(grdlife);
}

// Opens at the age that the participant's table was last looked up at, once there has been one.
void frmlife::activate() {
    const Recordset& lifexp = module.database().lifexp();
    const std::size_t own = row_with(lifexp, "age", scenario.lookup_age);
    if (own < lifexp.RecordCount()) {
        grdlife->selectRow(static_cast<int>(own));
        grdlife->scrollTo(grdlife->currentIndex(), Grid::PositionAtCenter);
    }
}

}  // namespace kelvar
