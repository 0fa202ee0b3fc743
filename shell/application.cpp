#include "shell/application.h"

#include <QSettings>
#include <cstdio>

#include "widgets/message_dialog.h"

using namespace Qt::StringLiterals;

namespace kelvar {

// Qt's file dialog would leave the names of what was saved in the user's configuration.
Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, u"/dev/null"_s);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    if (failed_) {
        return false;
    }
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        const int code = report_run_time_error(error);
        failed_ = true;
        exit(code);
        return false;
    }
}

int Application::report_run_time_error(const std::exception& error) {
    return report(
        std::string("run-time error: ") + error.what(),
        u"Kelvar has to end because of a run-time error.\n\n"_s + QString::fromUtf8(error.what()));
}

int Application::report_already_open() {
    return report("already open from this folder",
                  u"Kelvar is already open. Please go on in its window, or close it first."_s);
}

int Application::report(const std::string& error, const QString& message) {
    std::fputs(("Kelvar: " + error + '\n').c_str(), stderr);  // there may be nobody who takes it
    // Without a screen there is nobody to press OK.
    if (platformName() != u"offscreen"_s && platformName() != u"minimal"_s) {
        while (overrideCursor() != nullptr) {
            restoreOverrideCursor();
        }
        MessageDialog(MessageDialog::Kind::message, message, activeWindow()).exec();
    }
    return 1;
}

}  // namespace kelvar
