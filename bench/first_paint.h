// For programs whose start is timed.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QMetaObject>
#include <QWidget>
#include <cstdlib>

namespace kelvar {

// Ends the process after the window has been painted for the first time, with all that it holds. What
// is taken down after that is no part of a start.
class EndAfterFirstPaint : public QObject {
public:
    explicit EndAfterFirstPaint(QWidget& window) { window.installEventFilter(this); }

private:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            // The window paints itself first and then what it holds, all before the next event.
            QMetaObject::invokeMethod(
                qApp, [] { std::_Exit(EXIT_SUCCESS); }, Qt::QueuedConnection);
        }
        return false;
    }
};

}  // namespace kelvar
