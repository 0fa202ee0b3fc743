// Lets a click on the words beside a picture press the picture.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

class QMouseEvent;
class QToolButton;

namespace kelvar {

class PictureWords {
public:
    // What a click does, at a place of the screen. The words are labels whose buddy is the picture.
    using Clicked = std::function<void(QToolButton* picture, QPoint place)>;

    PictureWords(const QWidget* screen, Clicked clicked);

    // Looks at an event of the application; true when it was a click on such words.
    bool takes(QWidget* widget, const QEvent& event);

private:
    void pressed(QWidget* widget, const QMouseEvent& press);
    bool released(QWidget* widget, const QMouseEvent& release);

    const QWidget* screen_;
    Clicked clicked_;
    QPointer<QWidget> pressed_;  // with the left button, which is still down
};

}  // namespace kelvar
