#include "shell/notes/note_screens.h"

#include <QGridLayout>
#include <QGroupBox>

#include "shell/notes/portfolios.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

frmdnote::frmdnote(Module1& module1)
    : Screen(module1, ScreenId::frmdnote, "frmdnote",
             {.title = u"Sample Investment Allocation Portfolios"_s,

              .kind = Layout::Kind::note,
              .ok_name = "cmdnoteok"}) {
    auto* grid = new QGridLayout;
    grid->setSpacing(theme::grid);
    const int columns = theme::large_text() ? 1 : 2;
    for (int index = 0; index < static_cast<int>(portfolios().size()); ++index) {
        grid->addWidget(portfolio_frame(index, PortfolioName::in_overview), index / columns,
                        index % columns);
    }
    content()->addLayout(grid);
    // The run of blanks is part of the footnote.
    content()->addWidget(control::paragraph(
        u"* The funds that make up the four pre-arranged portfolios are varying percentages of the             Plan's core investment options."_s));
    content()->addStretch(1);
}

}  // namespace kelvar
