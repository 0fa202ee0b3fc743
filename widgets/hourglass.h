#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace kelvar {

// Shows the hourglass pointer while it lives; restores the pointer whatever happens.
class Hourglass {
public:
    Hourglass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() { QGuiApplication::restoreOverrideCursor(); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

}  // namespace kelvar
