#pragma once

#include <QProxyStyle>

namespace kelvar {

// The Fusion style with outlines around boxes and circles to fill in that can be told from what is
// behind them, also in a dark palette, where Fusion's own all but vanish.
class OutlinedStyle : public QProxyStyle {
    Q_OBJECT

public:
    OutlinedStyle();

    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* data = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
};

}  // namespace kelvar
