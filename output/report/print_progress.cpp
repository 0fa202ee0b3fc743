#include "output/report/print_progress.h"

#include <QCoreApplication>
#include <QProgressBar>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr qint64 patience = 500;  // milliseconds

}  // namespace

void PrintProgress::begin(int pages) {
    pages_ = pages;
    dialog_.emplace(u"Page 1 of %1"_s.arg(pages), u"Cancel"_s, 0, pages, window_->window());
    dialog_->setObjectName(u"printprogress"_s);
    dialog_->setWindowTitle(u"Print"_s);
    dialog_->setWindowModality(Qt::ApplicationModal);
    dialog_->setMinimumDuration(static_cast<int>(std::max(patience - started_.elapsed(), qint64{0})));
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->findChild<QProgressBar*>()->setAccessibleName(u"Pages printed"_s);
    QObject::connect(&*dialog_, &QDialog::rejected, &*dialog_, &QProgressDialog::cancel);  // Escape
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
