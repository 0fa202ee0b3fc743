#include "widgets/pointer_habits.h"

#include <QComboBox>
#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>
#include <QWindow>

namespace kelvar {

namespace {

// The picture beside which a widget is the words.
QToolButton* picture_beside(const QWidget* widget) {
    const auto* words = qobject_cast<const QLabel*>(widget);
    return words == nullptr ? nullptr : qobject_cast<QToolButton*>(words->buddy());
}

bool is_click_on_disabled(const QWidget* widget, const QEvent& event) {
    if (event.type() != QEvent::MouseButtonRelease || widget == nullptr || widget->isEnabled()) {
        return false;
    }
    const auto& release = static_cast<const QMouseEvent&>(event);
    return release.button() == Qt::LeftButton && widget->rect().contains(release.position().toPoint());
}

}  // namespace

bool PointerSlips::takes(QObject* watched, QEvent* event) {
    const auto* widget = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            if (widget != nullptr) {
                pressed_here_ = widget == screen_ || screen_->isAncestorOf(widget);
            }
            return false;
        case QEvent::Hide:  // what is clicked until it comes back is on another one
            pressed_here_ = pressed_here_ && watched != screen_;
            return false;
        case QEvent::MouseButtonDblClick:  // the first click may have been on the screen before
            return widget != nullptr ? widget->parentWidget() == navigation_
                                     : watched == screen_->window()->windowHandle() && !pressed_here_;
        case QEvent::Wheel:  // scrolling the page must not change a choice under the pointer
            if (qobject_cast<const QComboBox*>(widget) == nullptr) {
                return false;
            }
            event->ignore();
            return true;
        default:
            return false;
    }
}

bool PictureWords::takes(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget != nullptr && event->type() == QEvent::MouseButtonPress) {
        pressed(widget, static_cast<const QMouseEvent&>(*event));
    }
    return widget != nullptr && event->type() == QEvent::MouseButtonRelease &&
           released(widget, static_cast<const QMouseEvent&>(*event));
}

// A press that nobody takes comes once more to what lies around; only the first one is of interest.
void PictureWords::pressed(QWidget* widget, const QMouseEvent& press) {
    if (picture_beside(widget) != nullptr || !widget->isAncestorOf(pressed_)) {
        const bool left = press.button() == Qt::LeftButton && press.buttons() == Qt::LeftButton;
        pressed_ = left && picture_beside(widget) != nullptr ? widget : nullptr;
    }
}

// The left button went down on the words and comes up on them.
bool PictureWords::released(QWidget* widget, const QMouseEvent& release) {
    const QPoint place = release.position().toPoint();
    if (widget != pressed_ || release.button() != Qt::LeftButton || !screen_->isAncestorOf(widget)) {
        return false;
    }
    pressed_ = nullptr;
    QToolButton* picture = picture_beside(widget);
    if (!widget->rect().contains(place) || !picture->isEnabled()) {
        return false;
    }
    clicked_(picture, widget->mapTo(screen_, place));
    return true;
}

bool OptionPointer::takes(QObject* watched, QEvent* event) {
    const auto* clicked = qobject_cast<QWidget*>(watched);
    if (!is_click_on_disabled(clicked, *event)) {
        return false;
    }
    for (const auto& [widget, option] : options_) {
        if (widget == clicked || widget->isAncestorOf(clicked)) {
            option->setFocus(Qt::MouseFocusReason);
            return true;
        }
    }
    return false;
}

}  // namespace kelvar
