#include "shell/notes/note_screens.h"

#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "shell/notes/portfolios.h"
#include "widgets/controls.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr int above_the_click = 100;  // pixels

QPoint kept_on_screen(QPoint wished, QSize size, const QRect& desktop) {
    return {std::clamp(wished.x(), desktop.left(),
                       std::max(desktop.left(), desktop.right() - size.width())),
            std::clamp(wished.y(), desktop.top(),
                       std::max(desktop.top(), desktop.bottom() - size.height()))};
}

}  // namespace

frmPortfolios::frmPortfolios(const Module1& module, QWidget* parent) : QDialog(parent) {
    const Scenario& scenario = module.scenario;
    setObjectName(u"frmPortfolios"_s);
    setWindowTitle(u"Sample Investment Allocation Portfolios"_s);
    setModal(true);
    control::only_closes(this);
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(portfolio_frame(scenario.portfolio_index, PortfolioName::alone));
    auto* cmdpok = control::button(u"&OK"_s, "cmdpok");
    control::make_default(cmdpok);
    connect(cmdpok, &QPushButton::clicked, this, &QDialog::accept);
    layout->addWidget(cmdpok, 0, Qt::AlignRight);
    cmdpok->setFocus();
    const QPointF wished(scenario.portfolio_click_x + scenario.main_offset_x,
                         scenario.portfolio_click_y + scenario.main_offset_y - above_the_click);
    move(kept_on_screen(wished.toPoint(), sizeHint(), parent->screen()->availableGeometry()));
}

}  // namespace kelvar
