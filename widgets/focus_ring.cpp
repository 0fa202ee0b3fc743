#include "widgets/focus_ring.h"

#include <QPainter>

#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr int distance = 3;  // from the control, pixels
constexpr double thickness = 2.0;
constexpr double roundness = 4.0;

}  // namespace

FocusRing::FocusRing(QWidget* control) : QWidget(control->parentWidget()), control_(control) {
    setObjectName(u"focusring"_s);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    surround();
}

void FocusRing::surround() {
    const QRect around = control_->rect().adjusted(-distance, -distance, distance, distance);
    QWidget* room = control_->parentWidget();
    QRect place = around.translated(control_->pos());
    while (!room->rect().contains(place) && !room->isWindow()) {
        place.translate(room->pos());
        room = room->parentWidget();
    }
    if (room != parentWidget()) {
        setParent(room);
    }
    setGeometry(place);
    raise();
    show();
}

void FocusRing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme::colors().accent, thickness));
    const double inset = thickness / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), roundness,
                            roundness);
}

}  // namespace kelvar
