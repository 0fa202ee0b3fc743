#include "output/report/print_progress.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProgressBar>
#include <QTimer>
#include <algorithm>

#include "output/report/printers.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr int patience = 500;  // milliseconds
constexpr int longest_search = 3000;

}  // namespace

void PrintProgress::make_dialog(const QString& text, int steps) {
    dialog_.emplace(text, u"Cancel"_s, 0, steps, window_->window());
    dialog_->setObjectName(u"printprogress"_s);
    dialog_->setWindowTitle(u"Print"_s);
    dialog_->setWindowModality(Qt::ApplicationModal);
    QObject::connect(&*dialog_, &QDialog::rejected, &*dialog_, &QProgressDialog::cancel);  // Escape
}

bool PrintProgress::find_printers() {
    QProcess search;
    start_looking(search);
    search.waitForFinished(patience);
    if (search.state() != QProcess::NotRunning) {
        make_dialog(u"Looking for printers"_s, 0);
        QObject::connect(&search, &QProcess::finished, &*dialog_, &QDialog::accept);
        QTimer::singleShot(longest_search - patience, &*dialog_, &QDialog::accept);
        dialog_->exec();
        cancelled_ = dialog_->wasCanceled();
        dialog_.reset();
    }
    const bool answered = search.state() == QProcess::NotRunning;
    search.kill();
    search.waitForFinished();
    started_.restart();
    return answered;
}

void PrintProgress::begin(int pages) {
    pages_ = pages;
    make_dialog(u"Page 1 of %1"_s.arg(pages), pages);
    dialog_->setMinimumDuration(static_cast<int>(std::max(patience - started_.elapsed(), qint64{0})));
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->findChild<QProgressBar*>()->setAccessibleName(u"Pages printed"_s);
    dialog_->setValue(0);  // time counts from here
}

bool PrintProgress::go_on() {
    const int done = dialog_->value() + 1;
    dialog_->setLabelText(u"Page %1 of %2"_s.arg(done + 1).arg(dialog_->maximum()));
    dialog_->setValue(done);  // takes the user's Cancel as well
    cancelled_ = dialog_->wasCanceled();
    return !cancelled_;
}

void PrintProgress::send() {
    dialog_->setLabelText(u"Sending to the printer"_s);
    dialog_->setCancelButton(nullptr);
    dialog_->setValue(dialog_->maximum());
}

// Keys that were meant for it must not reach the screen behind it.
void PrintProgress::end() {
    if (dialog_ && dialog_->isVisible()) {
        QCoreApplication::processEvents();
    }
    dialog_.reset();
}

}  // namespace kelvar
