#include "widgets/screen_room.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "widgets/scrolled_page.h"

namespace kelvar {

namespace {

constexpr QSize usual_frame(4, 40);  // around a window, with its title; not known before it is shown

// A dialog opens where the window below it is.
QRect desktop_of(const QWidget& window) {
    const QWidget* below = window.parentWidget() != nullptr ? window.parentWidget() : &window;
    return below->screen()->availableGeometry();
}

bool fits(QSize size, QSize room) {
    return size.boundedTo(room) == size;
}

void scroll_above_buttons(QVBoxLayout& column, int room) {
    auto* page = new ScrolledPage;
    auto* rows = new QVBoxLayout(page);
    rows->setContentsMargins(0, 0, 0, 0);
    while (column.count() > 1) {
        QLayoutItem* row = column.takeAt(0);
        if (row->widget() != nullptr) {
            rows->addWidget(row->widget());
            delete row;
        } else if (row->layout() != nullptr) {
            rows->addLayout(row->layout());
        } else {
            rows->addItem(row);
        }
    }
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(page);
    const QMargins margins = column.contentsMargins();
    const int wide = rows->minimumSize().width() + scroll->verticalScrollBar()->sizeHint().width();
    scroll->setMinimumWidth(std::min(wide, room - margins.left() - margins.right()));
    column.insertWidget(0, scroll, 1);
}

// True when it had to be made smaller.
bool hold(QDialog& dialog) {
    const QSize room = room_on_screen(dialog);
    if (fits(dialog.size(), room) || dialog.layout() == nullptr) {
        return false;
    }
    dialog.layout()->setSizeConstraint(QLayout::SetDefaultConstraint);
    auto* column = qobject_cast<QVBoxLayout*>(dialog.layout());
    if (column != nullptr && !fits(column->minimumSize(), room)) {
        scroll_above_buttons(*column, room.width());
        dialog.setMaximumSize(room);
        column->activate();
        dialog.setMinimumHeight(room.height());  // what scrolls asks for no room when it grows
    }
    dialog.resize(dialog.size().boundedTo(room));
    return true;
}

}  // namespace

QSize room_on_screen(const QWidget& window) {
    const QSize frame = window.frameGeometry().size() - window.geometry().size();
    return desktop_of(window).size() - frame.expandedTo(usual_frame);
}

ScreenRoom::ScreenRoom(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

// One with a button for more options grows after it was shown, in the middle of being laid out.
bool ScreenRoom::eventFilter(QObject* watched, QEvent* event) {
    auto* dialog = qobject_cast<QDialog*>(watched);
    if (dialog != nullptr && event->type() == QEvent::Show) {
        hold(*dialog);
    } else if (dialog != nullptr && event->type() == QEvent::Resize && dialog->isVisible()) {
        QMetaObject::invokeMethod(
            dialog,
            [dialog] {
                if (hold(*dialog)) {
                    dialog->move(desktop_of(*dialog).topLeft());
                }
            },
            Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace kelvar
