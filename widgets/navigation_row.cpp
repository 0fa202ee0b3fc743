#include "widgets/navigation_row.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QToolButton>
#include <algorithm>
#include <vector>

#include "widgets/controls.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

NavigationRow::NavigationRow(const ScreenLayout& layout, QBoxLayout* column)
    : column_(column), row_(new QHBoxLayout(this)) {
    column_->addWidget(this);
    setObjectName(u"navigation"_s);
    const int side = theme::side_margin();
    row_->setContentsMargins(side, theme::grid, side, theme::grid);
    row_->setSpacing(theme::grid);
    if (layout.is_note()) {
        row_->addStretch(1);
        Cmdnext = add_button(u"&OK"_s, layout.ok_name);
        Cmdnext->setDefault(true);
        back = Cmdnext;
        return;
    }
    if (layout.help) {
        cmdhelp = add_button(u"&Help"_s, "cmdhelp");
    }
    left_ = row_->count();
    row_->addStretch(1);
    if (layout.previous) {
        picprev = add_picture(u"previous"_s, u"Previous"_s, "picprev");
        cmdprev = add_button(u"&Previous"_s, "cmdprev");
        back = layout.is_step() ? nullptr : cmdprev;
    }
    if (layout.next) {
        Cmdnext = add_button(u"&Next"_s, "Cmdnext");
        Cmdnext->setDefault(true);
        picnext = add_picture(u"next"_s, u"Next"_s, "picnext");
    }
    row_->addStretch(1);
    cmdclose = add_button(u"&Close"_s, "cmdclose");
}

void NavigationRow::add(Place place, QWidget* widget) {
    if (place == Place::above) {
        column_->insertWidget(column_->indexOf(this), widget);
    } else {
        row_->insertWidget(place == Place::left ? left_++ : row_->indexOf(cmdclose), widget);
    }
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

void NavigationRow::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    int needed = 2 * theme::side_margin();
    std::vector<QToolButton*> pictures;
    for (int place = 0; place < row_->count(); ++place) {
        QWidget* control = row_->itemAt(place)->widget();
        auto* picture = qobject_cast<QToolButton*>(control);
        if (picture != nullptr && picture->menu() == nullptr) {
            pictures.push_back(picture);
        }
        if (control != nullptr) {
            needed +=
                std::max(control->minimumWidth(), picture != nullptr ? picture->sizeHint().width() : 0);
        }
        needed += theme::grid;
    }
    for (QToolButton* picture : pictures) {
        picture->setVisible(needed <= width());
    }
}

}  // namespace kelvar
