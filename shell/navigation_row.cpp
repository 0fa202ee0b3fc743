#include "shell/navigation_row.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QToolButton>

#include "widgets/controls.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

NavigationRow::NavigationRow(const ScreenLayout& layout) : row_(new QHBoxLayout(this)) {
    setObjectName(u"navigation"_s);
    row_->setContentsMargins(3 * theme::grid, theme::grid, 3 * theme::grid, theme::grid);
    row_->setSpacing(theme::grid);
    if (layout.is_note()) {
        row_->addStretch(1);
        Cmdnext = add_button(u"&OK"_s, layout.ok_name);
        Cmdnext->setDefault(true);
        return;
    }
    if (layout.help) {
        cmdhelp = add_button(u"&Help"_s, "cmdhelp");
    }
    row_->addStretch(1);
    if (layout.previous) {
        picprev = add_picture(u"previous"_s, u"Previous"_s, "picprev");
        cmdprev = add_button(u"&Previous"_s, "cmdprev");
    }
    if (layout.next) {
        Cmdnext = add_button(u"&Next"_s, "Cmdnext");
        Cmdnext->setDefault(true);
        picnext = add_picture(u"next"_s, u"Next"_s, "picnext");
    }
    row_->addStretch(1);
    cmdclose = add_button(u"&Close"_s, "cmdclose");
}

QPushButton* NavigationRow::add_button(const QString& text, const char* name) {
    QPushButton* button = control::button(text, name);
    row_->addWidget(button);
    return button;
}

QToolButton* NavigationRow::add_picture(const QString& icon, const QString& accessible_name,
                                        const char* name) {
    QToolButton* picture = control::picture(icon, accessible_name, name);
    row_->addWidget(picture);
    return picture;
}

}  // namespace kelvar
