#include "widgets/pointer_slips.h"

#include <QComboBox>
#include <QEvent>
#include <QWindow>

namespace kelvar {

PointerSlips::PointerSlips(const QWidget* screen, const QWidget* navigation)
    : screen_(screen), navigation_(navigation) {}

bool PointerSlips::takes(QObject* watched, QEvent* event) {
    const auto* widget = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            if (widget != nullptr) {
                pressed_here_ = widget == screen_ || screen_->isAncestorOf(widget);
            }
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

}  // namespace kelvar
