#include "widgets/wrapping_radio_button.h"

#include <QStylePainter>

namespace kelvar {

namespace {

constexpr int narrowest_text = 160;  // pixels
constexpr int margin = 3;
constexpr int flags = Qt::TextWordWrap | Qt::TextShowMnemonic | Qt::AlignLeft | Qt::AlignTop;

}  // namespace

WrappingRadioButton::WrappingRadioButton(const QString& text, const QString& name)
    : QRadioButton(text) {
    setObjectName(name);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

// An ordinary option button of one line, as which the first line is laid out.
QStyleOptionButton WrappingRadioButton::first_line() const {
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = QRect(0, 0, width(), fontMetrics().height() + 2 * margin);
    return option;
}

int WrappingRadioButton::text_left() const {
    const QStyleOptionButton option = first_line();
    return style()->subElementRect(QStyle::SE_RadioButtonContents, &option, this).left();
}

QRect WrappingRadioButton::text_rect(int width) const {
    const QRect room(text_left(), margin, std::max(width - text_left() - margin, narrowest_text),
                     10000);
    return fontMetrics().boundingRect(room, flags, text());
}

int WrappingRadioButton::heightForWidth(int width) const {
    return text_rect(width).height() + 2 * margin;
}

QSize WrappingRadioButton::sizeHint() const {
    const int width = text_left() + 2 * narrowest_text;
    return {width, heightForWidth(width)};
}

QSize WrappingRadioButton::minimumSizeHint() const {
    return {text_left() + narrowest_text, fontMetrics().height() + 2 * margin};
}

void WrappingRadioButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option = first_line();
    const QRect text = text_rect(width());
    option.rect = style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, this);
    painter.drawPrimitive(QStyle::PE_IndicatorRadioButton, option);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(text, flags, this->text());
}

}  // namespace kelvar
