// The application object with the one handler of run-time errors around the event loop.
#pragma once

#include <QApplication>
#include <exception>

namespace kelvar {

class Application : public QApplication {
    Q_OBJECT

public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;

    // Says on standard error and in a message what failed. Returns the exit code of the program, 1.
    static int report_run_time_error(const std::exception& error);

private:
    bool failed_ = false;
};

}  // namespace kelvar
