#include "shell/focus_ring.h"

#include <QPainter>

#include "shell/theme.h"

namespace kelvar {

namespace {

constexpr int distance = 3;  // from the control, pixels
constexpr double thickness = 2.0;
constexpr double roundness = 4.0;

}  // namespace

FocusRing::FocusRing(QWidget* control) : QWidget(control->parentWidget()), control_(control) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    surround();
    show();
}

void FocusRing::surround() {
    setGeometry(control_->geometry().adjusted(-distance, -distance, distance, distance));
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
