// The application object with the one handler of run-time errors around the event loop.
#pragma once

#include <QApplication>
#include <exception>
#include <string>

namespace kelvar {

class Application : public QApplication {
    Q_OBJECT

public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    // Says on standard error and in a message what failed. Returns the exit code of the program, 1.
    static int report_run_time_error(const std::exception& error);
    // The same for a start while the program is already open from this folder.
    static int report_already_open();

private:
    static int report(const std::string& error, const QString& message);

    bool failed_ = false;
};

}  // namespace kelvar
