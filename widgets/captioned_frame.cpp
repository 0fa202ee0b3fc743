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
    const QRect contents = layout()->contentsRect();
    painter.setPen(theme::colors().accent);
    painter.drawText(QRect(contents.left(), theme::grid, contents.width(), contentsRect().top()),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextShowMnemonic, title());
}

}  // namespace kelvar
