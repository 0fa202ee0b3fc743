#include "widgets/focus_marker.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>

#include "widgets/focus_ring.h"
#include "widgets/theme.h"

namespace kelvar {

namespace {

constexpr const char* words_property = "words_in_view";

}  // namespace

void keep_in_view_with(QWidget* control, QWidget* words) {
    control->setProperty(words_property, QVariant::fromValue(words));
}

bool FocusMarker::takes(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::FocusIn:
            if (widget != nullptr) {
                got_focus(widget);
            }
            break;
        case QEvent::FocusOut:
            if (ring_ != nullptr && ring_->control() == widget) {  // not a list that has just closed
                delete ring_;
            }
            break;
        case QEvent::Resize:
            if (watched == page_->widget()) {
                keep_in_view_later();
            }
            [[fallthrough]];
        case QEvent::Move:
            move_ring(widget);
            break;
        default:
            break;
    }
    return false;
}

void FocusMarker::got_focus(QWidget* control) {
    if (screen_->isAncestorOf(control)) {
        mark(control);
    }
    if (page_->widget()->isAncestorOf(control)) {
        if (qobject_cast<QToolButton*>(control) == nullptr &&
            qobject_cast<QPushButton*>(control) == nullptr) {
            last_ = control;
        }
        keep_in_view(control);
    }
}

// Tables and charts mark the focus themselves.
void FocusMarker::mark(QWidget* control) {
    delete ring_;
    if (qobject_cast<QAbstractButton*>(control) != nullptr ||
        qobject_cast<QLineEdit*>(control) != nullptr || qobject_cast<QComboBox*>(control) != nullptr) {
        ring_ = new FocusRing(control);
    }
}

void FocusMarker::move_ring(const QWidget* moved) {
    if (ring_ != nullptr && moved != nullptr &&
        (moved == ring_->control() || moved->isAncestorOf(ring_->control()))) {
        ring_->surround();
    }
}

QRect FocusMarker::place_of(const QWidget* widget) const {
    return {widget->mapTo(page_->widget(), QPoint()), widget->size()};
}

void FocusMarker::keep_in_view(QWidget* focus) {
    QRect place = place_of(focus);
    const auto* words = focus->property(words_property).value<QWidget*>();
    if (words != nullptr && words->isVisible()) {
        place |= place_of(words);
    }
    scroll_to(place);
}

// To its beginning, where it is higher than the view.
void FocusMarker::scroll_to(const QRect& place) {
    page_->ensureVisible(place.right(), place.bottom(), theme::grid, theme::grid);
    page_->ensureVisible(place.left(), place.top(), theme::grid, theme::grid);
}

// Controls come and go, also above the focus; later, when they have their places.
void FocusMarker::keep_in_view_later() {
    QMetaObject::invokeMethod(
        page_, [this] { keep_focus_in_view(); }, Qt::QueuedConnection);
}

void FocusMarker::keep_focus_in_view() {
    QWidget* focus = QApplication::focusWidget();
    if (focus != nullptr && page_->widget()->isAncestorOf(focus)) {
        keep_in_view(focus);
    }
}

void FocusMarker::show_opened(const QWidget* opened) {
    QMetaObject::invokeMethod(
        page_,
        [this, opened] {
            if (opened->isVisible()) {
                scroll_to(place_of(opened));
                keep_focus_in_view();
            }
        },
        Qt::QueuedConnection);
}

}  // namespace kelvar
