#include "widgets/option_pointer.h"

#include <QAbstractButton>
#include <QMouseEvent>

namespace kelvar {

namespace {

bool is_click_on_disabled(const QWidget* widget, const QEvent& event) {
    if (event.type() != QEvent::MouseButtonRelease || widget->isEnabled()) {
        return false;
    }
    const auto& release = static_cast<const QMouseEvent&>(event);
    return release.button() == Qt::LeftButton && widget->rect().contains(release.position().toPoint());
}

}  // namespace

bool OptionPointer::takes(const QWidget* clicked, const QEvent& event) {
    if (!is_click_on_disabled(clicked, event)) {
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
