// For programs whose start is timed.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QMetaObject>
#include <QWidget>

namespace kelvar {

// Ends the program after the window has been painted for the first time, with all that it holds.
class EndAfterFirstPaint : public QObject {
public:
    explicit EndAfterFirstPaint(QWidget& window) { window.installEventFilter(this); }

private:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            // The window paints itself first and then what it holds, all before the next event.
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        }
        return false;
    }
};

}  // namespace kelvar
