#include "shell/application.h"

#include <fmt/format.h>

#include "shell/message_dialog.h"

using namespace Qt::StringLiterals;

namespace kelvar {

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
    fmt::print(stderr, "Kelvar: run-time error: {}\n", error.what());
    // Without a screen there is nobody to press OK.
    if (platformName() != u"offscreen"_s && platformName() != u"minimal"_s) {
        while (overrideCursor() != nullptr) {
            restoreOverrideCursor();
        }
        const QString text =
            u"Kelvar has to end because of a run-time error.\n\n"_s + QString::fromUtf8(error.what());
        MessageDialog(MessageDialog::Kind::message, text, activeWindow()).exec();
    }
    return 1;
}

}  // namespace kelvar
