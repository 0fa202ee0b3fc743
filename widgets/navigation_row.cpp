#include "widgets/navigation_row.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

#include "widgets/controls.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// A word and the picture that says the same, without a gap.
QHBoxLayout* join(QAbstractButton* left, QAbstractButton* right) {
    auto* pair = new QHBoxLayout;
    pair->setSpacing(0);
    pair->addWidget(left, 1);
    if (right != nullptr) {
        left->setProperty("joined", u"left"_s);
        right->setProperty("joined", u"right"_s);
        pair->addWidget(right);
    }
    for (QAbstractButton* button : {left, right}) {
        if (auto* picture = qobject_cast<QToolButton*>(button); picture != nullptr) {
            const int side = theme::button_height();
            const bool words = picture->toolButtonStyle() != Qt::ToolButtonIconOnly;
            picture->setFixedSize(words ? picture->sizeHint().width() : side, side);
        }
    }
    return pair;
}

// Of what stands at Next's place on any screen, so that Previous stands at one place on all. Where type
// is large, a new participant has no room there.
int next_width() {
    const QString longest = theme::large_text() ? u"Next"_s : u"New Participant"_s;
    const int words = QFontMetrics(QApplication::font()).horizontalAdvance(longest);
    return words + 2 * theme::button_padding() + 2;
}

std::vector<QWidget*> widgets_of(const QLayout& layout) {
    std::vector<QWidget*> widgets;
    for (int place = 0; place < layout.count(); ++place) {
        QLayoutItem* item = layout.itemAt(place);
        if (item->widget() != nullptr) {
            widgets.push_back(item->widget());
        } else if (item->layout() != nullptr) {
            const std::vector<QWidget*> inner = widgets_of(*item->layout());
            widgets.insert(widgets.end(), inner.begin(), inner.end());
        }
    }
    return widgets;
}

}  // namespace

NavigationRow::NavigationRow(const ScreenLayout& layout, QBoxLayout* column)
    : row_(new QHBoxLayout(this)) {
    lblsaved = theme::label({}, theme::Role::body, "lblsaved");
    lblsaved->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // a long one widens no window
    lblsaved->installEventFilter(this);
    lblsaved->hide();
    column->addWidget(lblsaved);
    column->addWidget(this);
    setObjectName(u"navigation"_s);
    row_->setContentsMargins(0, theme::grid, 0, theme::grid);
    row_->setSpacing(theme::grid);
    row_->addStrut(4 * theme::grid);  // as high without pictures
    if (layout.is_note()) {
        row_->addStretch(1);  // Close is at the right on every other screen
        Cmdnext = control::button(u"&OK"_s, layout.ok_name);
        control::make_default(Cmdnext);
        row_->addWidget(Cmdnext);
        row_->addStretch(1);
        back = Cmdnext;
        return;
    }
    if (layout.help) {
        cmdhelp = control::button(u"&Help"_s, "cmdhelp");
        add_left(cmdhelp);
    }
    if (layout.save) {
        cmdsave = control::button(u"Sa&ve"_s, "cmdsave");
        cmdsave->setMenu(new QMenu(cmdsave));
        cmdsave->setMinimumWidth(cmdsave->minimumWidth() + theme::grid);  // for the arrow
        add_left(cmdsave);
    }
    row_->addStretch(1);
    if (layout.previous) {
        picprev = control::picture(u"previous"_s, u"Previous"_s, "picprev");
        cmdprev = control::button(u"&Previous"_s, "cmdprev");
        back = layout.is_step() ? nullptr : cmdprev;
        row_->addLayout(join(picprev, cmdprev));
    }
    if (layout.next) {
        Cmdnext = control::button(u"&Next"_s, "Cmdnext");
        control::make_default(Cmdnext);
        picnext = control::picture(u"next"_s, u"Next"_s, "picnext");
        row_->addLayout(join(Cmdnext, picnext));
        Cmdnext->setMinimumWidth(next_width() - picnext->width());
    } else {
        // A space has no space of its own, and gives way where there is no room.
        row_->addSpacerItem(new QSpacerItem(next_width() + theme::grid, 0, QSizePolicy::Maximum));
    }
    cmdclose = control::button(u"&Close"_s, "cmdclose");
    const QString ends = u"Ends the program; what is not saved is forgotten"_s;
    cmdclose->setToolTip(ends);
    cmdclose->setAccessibleDescription(ends);
    row_->addWidget(cmdclose);
}

void NavigationRow::say(const QString& text) {
    lblsaved->setAccessibleName(text);
    lblsaved->setToolTip(text);
    lblsaved->setVisible(!text.isEmpty());
    fit_said();
    if (!text.isEmpty()) {
        QAccessibleEvent said(lblsaved, QAccessible::Alert);
        QAccessible::updateAccessibility(&said);
    }
}

// Folders in the middle go first: the beginning says that it is saved, the end under which name.
void NavigationRow::fit_said() {
    const QMargins row = row_->contentsMargins();
    lblsaved->setContentsMargins(row.left(), 0, row.right(), theme::grid);
    lblsaved->setText(lblsaved->fontMetrics().elidedText(lblsaved->accessibleName(), Qt::ElideMiddle,
                                                         lblsaved->contentsRect().width()));
}

bool NavigationRow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblsaved && event->type() == QEvent::Resize) {
        fit_said();
    }
    return QFrame::eventFilter(watched, event);
}

void NavigationRow::add_left(QAbstractButton* button, QAbstractButton* joined) {
    row_->insertLayout(left_++, join(button, joined));
}

void NavigationRow::add_as_next(QPushButton* button) {
    const int place = row_->indexOf(cmdclose) - 1;
    delete row_->takeAt(place);
    button->setFixedWidth(next_width());
    row_->insertWidget(place, button);
}

std::vector<QWidget*> NavigationRow::controls() const {
    return widgets_of(*row_);
}

void NavigationRow::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    int needed = row_->minimumSize().width();
    std::vector<QToolButton*> pictures;
    for (QWidget* control : controls()) {
        auto* picture = qobject_cast<QToolButton*>(control);
        if (picture != nullptr && picture->menu() == nullptr) {
            pictures.push_back(picture);
            needed += picture->isHidden() ? picture->width() : 0;
        }
    }
    const bool all_fit = needed <= width();
    for (QToolButton* picture : pictures) {
        picture->setVisible(all_fit);
    }
    setProperty("apart", !all_fit);  // what was joined to a picture has its own border then
    for (QWidget* control : controls()) {
        control->style()->unpolish(control);
        control->style()->polish(control);
    }
}

}  // namespace kelvar
