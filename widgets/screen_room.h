// No window over the main one is larger than its screen, whatever the size of the texts.
#pragma once

#include <QObject>
#include <QSize>

class QWidget;

namespace kelvar {

// What a screen has for a window: without what the desktop keeps for itself, and without a frame.
QSize room_on_screen(const QWidget& window);

// Holds every dialog of the program to that, the toolkit's own among them, for as long as it lives.
// Where even the least height of a column is too much, all but its last row scrolls: the buttons stay
// in sight.
class ScreenRoom : public QObject {
    Q_OBJECT

public:
    explicit ScreenRoom(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace kelvar
