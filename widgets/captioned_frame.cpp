#include "widgets/captioned_frame.h"

#include <QLayout>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

#include "widgets/theme.h"

namespace kelvar {

void CaptionedFrame::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawComplexControl(QStyle::CC_GroupBox, option);
    // Not the layout's own place, which can be behind the frame's when the frame is painted.
    const QRect contents = contentsRect().marginsRemoved(layout()->contentsMargins());
    painter.setPen(theme::colors().accent);
    painter.drawText(QRect(contents.left(), theme::grid, contents.width(), contentsRect().top()),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextShowMnemonic, title());
}

}  // namespace kelvar
