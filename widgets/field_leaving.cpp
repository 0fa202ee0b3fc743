#include "widgets/field_leaving.h"

#include <QApplication>
#include <QFocusEvent>

namespace kelvar {

FieldLeaving::FieldLeaving(QWidget* screen, const QWidget* navigation, std::function<bool()> told)
    : Habit(screen), navigation_(navigation), told_(std::move(told)) {}

void FieldLeaving::add(QWidget* field, Action action) {
    actions_.emplace_back(field, std::move(action));
}

void FieldLeaving::finish() {
    QCoreApplication::sendPostedEvents(screen_, QEvent::MetaCall);
}

bool FieldLeaving::takes(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr) {
        return false;
    }
    switch (event->type()) {
        case QEvent::FocusOut:
            leave(widget, static_cast<QFocusEvent*>(event)->reason());
            return false;
        case QEvent::ShortcutOverride:
            dropped_ =
                false;  // a new key; the press of the last one never came, to a window in the back
            return takes_key(widget, event);
        case QEvent::KeyPress:
            return std::exchange(dropped_, false) || takes_key(widget, event);
        default:
            return false;
    }
}

bool FieldLeaving::takes_key(QWidget* receiver, QEvent* event) {
    if (to_come_ == 0 || !screen_->isAncestorOf(receiver)) {
        return false;
    }
    const bool told_before = told_();
    finish();
    if (told_() && !told_before) {
        event->accept();  // no shortcut either
        dropped_ = event->type() == QEvent::ShortcutOverride;
        return true;
    }
    QWidget* focus = QApplication::focusWidget();
    if (focus == receiver || focus == nullptr || !screen_->isAncestorOf(focus)) {
        return false;
    }
    QCoreApplication::sendEvent(focus, event);
    return true;
}

void FieldLeaving::leave(const QObject* watched, Qt::FocusReason reason) {
    const bool stays = reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
                       reason == Qt::ActiveWindowFocusReason;
    for (const auto& [field, action] : actions_) {
        if (field == watched && !stays) {
            ++to_come_;
            QMetaObject::invokeMethod(
                screen_, [this, field = field, reason] { left(field, reason); }, Qt::QueuedConnection);
        }
    }
}

void FieldLeaving::left(QWidget* field, Qt::FocusReason reason) {
    --to_come_;
    // An open list has the focus itself; the control it belongs to counts.
    QWidget* now = QApplication::activePopupWidget() != nullptr ? screen_->window()->focusWidget()
                                                                : QApplication::focusWidget();
    if (!screen_->isVisible() || now == nullptr || now == field || now->window() != screen_->window()) {
        return;  // the window itself lost the focus, or a message has brought it back
    }
    const Leaving leaving{reason, now->parentWidget() == navigation_, now};
    for (const auto& [watched, action] : actions_) {
        if (watched == field) {
            action(leaving);
        }
    }
}

}  // namespace kelvar
