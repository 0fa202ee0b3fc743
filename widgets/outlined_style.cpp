#include "widgets/outlined_style.h"

#include <QAbstractButton>
#include <QPainter>
#include <QStyleOption>

#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

enum class Shape { rectangle, circle };

void outline(QPainter* painter, const QStyleOption* option, Shape shape) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(theme::colors().outline);
    const QRectF line = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (shape == Shape::circle) {
        painter->drawEllipse(line);
    } else {
        painter->drawRoundedRect(line, 2.0, 2.0);
    }
    painter->restore();
}

}  // namespace

OutlinedStyle::OutlinedStyle() : QProxyStyle(u"Fusion"_s) {}

// Some desktops open with a single click what others only choose; then a row could not be looked at.
int OutlinedStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* data) const {
    return hint == SH_ItemView_ActivateItemOnSingleClick
               ? 0
               : QProxyStyle::styleHint(hint, option, widget, data);
}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    if (element == PE_FrameFocusRect && qobject_cast<const QAbstractButton*>(widget) != nullptr) {
        return;  // filled, it makes an option look chosen; the focus ring marks the focus
    }
    if (element == PE_IndicatorRadioButton && option->rect.isEmpty()) {
        return;  // the option shows otherwise that it is chosen
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_IndicatorCheckBox || element == PE_FrameLineEdit) {
        outline(painter, option, Shape::rectangle);
    } else if (element == PE_IndicatorRadioButton) {
        outline(painter, option, Shape::circle);
    }
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox) {
        outline(painter, option, Shape::rectangle);
    }
}

}  // namespace kelvar
