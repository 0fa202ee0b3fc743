#include "widgets/picture_words.h"

#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>

namespace kelvar {

namespace {

// The picture beside which a widget is the words.
QToolButton* picture_beside(const QWidget* widget) {
    const auto* words = qobject_cast<const QLabel*>(widget);
    return words == nullptr ? nullptr : qobject_cast<QToolButton*>(words->buddy());
}

}  // namespace

PictureWords::PictureWords(const QWidget* screen, Clicked clicked)
    : screen_(screen), clicked_(std::move(clicked)) {}

bool PictureWords::takes(QWidget* widget, const QEvent& event) {
    if (event.type() == QEvent::MouseButtonPress) {
        pressed(widget, static_cast<const QMouseEvent&>(event));
    }
    return event.type() == QEvent::MouseButtonRelease &&
           released(widget, static_cast<const QMouseEvent&>(event));
}

// A press that nobody takes comes once more to what lies around; only the first one is of interest.
void PictureWords::pressed(QWidget* widget, const QMouseEvent& press) {
    if (picture_beside(widget) != nullptr || !widget->isAncestorOf(pressed_)) {
        const bool left = press.button() == Qt::LeftButton && press.buttons() == Qt::LeftButton;
        pressed_ = left && picture_beside(widget) != nullptr ? widget : nullptr;
    }
}

// The left button went down on the words and comes up on them.
bool PictureWords::released(QWidget* widget, const QMouseEvent& release) {
    const QPoint place = release.position().toPoint();
    if (widget != pressed_ || release.button() != Qt::LeftButton || !screen_->isAncestorOf(widget)) {
        return false;
    }
    pressed_ = nullptr;
    QToolButton* picture = picture_beside(widget);
    if (!widget->rect().contains(place) || !picture->isEnabled()) {
        return false;
    }
    clicked_(picture, widget->mapTo(screen_, place));
    return true;
}

}  // namespace kelvar
