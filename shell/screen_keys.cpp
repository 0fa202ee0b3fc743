#include "shell/screen_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <algorithm>

#include "widgets/entry_boxes.h"
#include "widgets/field_leaving.h"
#include "widgets/navigation_row.h"

namespace kelvar {

namespace {

// Alt and a letter that presses nothing here must not end up in a box.
bool types_with_alt(const QKeyEvent& key) {
    return key.modifiers() == Qt::AltModifier && !key.text().isEmpty() && key.text().front().isPrint();
}

// It would press Next on one screen after the other.
bool is_held_enter(const QKeyEvent& key) {
    return key.isAutoRepeat() && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
}

}  // namespace

ScreenKeys::ScreenKeys(QWidget* screen, QScrollArea* page, FieldLeaving& leaving,
                       const NavigationRow& row)
    : Habit(screen), page_(page), leaving_(leaving), row_(row) {}

bool ScreenKeys::press(const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Escape:
            if (row_.back == nullptr || key.isAutoRepeat()) {
                return false;
            }
            row_.back->click();
            return true;
        case Qt::Key_PageUp:
            turn_page(-1);
            return true;
        case Qt::Key_PageDown:
            turn_page(1);
            return true;
        case Qt::Key_F1:
            if (row_.cmdhelp == nullptr) {
                return false;
            }
            row_.cmdhelp->click();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            press_enter();
            return true;
        default:
            return false;
    }
}

// A row that was cut off at the edge is whole on the next page.
void ScreenKeys::turn_page(int direction) {
    QScrollBar* place = page_->verticalScrollBar();
    const int page = place->pageStep();
    const int two_rows = 2 * page_->fontMetrics().lineSpacing();
    place->setValue(place->value() + direction * std::max(page / 2, page - two_rows));
}

void ScreenKeys::press_enter() {
    if (auto* picture = qobject_cast<QToolButton*>(QApplication::focusWidget())) {
        picture->click();
    } else if (row_.Cmdnext != nullptr) {
        row_.Cmdnext->click();
    }
}

bool ScreenKeys::takes(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::KeyPress:
            return takes_key(widget, static_cast<const QKeyEvent&>(*event));
        case QEvent::Shortcut:
            return screen_->isAncestorOf(widget) &&
                   (press_by_shortcut(qobject_cast<QAbstractButton*>(widget), *event) ||
                    select_by_shortcut(*widget));
        default:
            return false;
    }
}

// What nothing on the screen has taken comes to the screen itself at last.
bool ScreenKeys::takes_key(const QWidget* widget, const QKeyEvent& key) {
    return (widget == screen_ && press(key)) || (screen_->isAncestorOf(widget) && is_held_enter(key)) ||
           (qobject_cast<const QLineEdit*>(widget) != nullptr && types_with_alt(key));
}

// Alt and a letter press a button at once, after what leaving the field before has to say; after a
// message the focus is elsewhere and the button is not pressed. The toolkit would do it a moment later,
// when the next keys may already have been typed.
bool ScreenKeys::press_by_shortcut(QAbstractButton* button, const QEvent& event) {
    if (button == nullptr || static_cast<const QShortcutEvent&>(event).isAmbiguous()) {
        return false;
    }
    button->setFocus(Qt::ShortcutFocusReason);
    leaving_.finish();
    if (button->hasFocus()) {
        button->click();
    }
    return true;
}

// Alt and the letter of a box in which the focus is already: the toolkit does nothing then.
bool ScreenKeys::select_by_shortcut(const QWidget& caption) {
    QWidget* focus = screen_->window()->focusWidget();
    const auto* words = qobject_cast<const QLabel*>(&caption);
    const bool leads_to_focus =
        words != nullptr ? words->buddy() == focus : caption.isAncestorOf(focus);
    if (focus == nullptr || !leads_to_focus) {
        return false;
    }
    select_text(focus);
    return true;
}

}  // namespace kelvar
