#include "widgets/option_opener.h"

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

bool OptionOpener::takes(QWidget* clicked, const QEvent& event) {
    if (!is_click_on_disabled(clicked, event)) {
        return false;
    }
    for (const auto& [opened, option] : opened_by_) {
        if ((opened != clicked && !opened->isAncestorOf(clicked)) || !option->isEnabled()) {
            continue;
        }
        option->click();
        if (clicked->focusPolicy() != Qt::NoFocus && !told_()) {
            clicked->setFocus(Qt::MouseFocusReason);
            auto* button = qobject_cast<QAbstractButton*>(clicked);
            // A box that was ticked before is meant, not its contrary.
            if (button != nullptr && (!button->isChecked() || button->autoExclusive())) {
                button->click();
            }
        }
        return true;
    }
    return false;
}

}  // namespace kelvar
