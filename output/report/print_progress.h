// How far a print is, in a dialog that appears once it takes half a second, with Cancel.
#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>
#include <optional>

#include "output/report/page_painter.h"

namespace kelvar {

class PrintProgress final : public PageCounter {
public:
    // Over the main window that `window` is in.
    explicit PrintProgress(QWidget* window) : window_(window) { started_.start(); }
    ~PrintProgress() { end(); }
    PrintProgress(const PrintProgress&) = delete;
    PrintProgress& operator=(const PrintProgress&) = delete;

    // Waits for the print server, at most 3 seconds. False when it does not answer, or when the user
    // has cancelled.
    bool find_printers();
    void begin(int pages) override;
    // False once the user has cancelled; what was printed is then to be thrown away.
    bool go_on() override;
    // All pages are drawn and now sent, which can no longer be cancelled.
    void send();
    void end();
    bool cancelled() const { return cancelled_; }
    int pages() const { return pages_; }  // of what was begun last

private:
    void make_dialog(const QString& text, int steps);

    QWidget* window_;
    QElapsedTimer started_;
    std::optional<QProgressDialog> dialog_;
    bool cancelled_ = false;
    int pages_ = 0;
};

}  // namespace kelvar
