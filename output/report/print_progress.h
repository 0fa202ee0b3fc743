// How far a print is, in a dialog that appears once it takes half a second, with Cancel.
#pragma once

#include <QPagedPaintDevice>
#include <QPrinter>
#include <QProgressDialog>
#include <optional>
#include <type_traits>
#include <utility>

#include "output/report/page_painter.h"

namespace kelvar {

class PrintProgress {
public:
    // Over the main window that `window` is in.
    explicit PrintProgress(QWidget* window) : window_(window) {}

    void begin(int pages);
    // Another page is to follow. False once the user has cancelled; what was printed is then to be
    // thrown away.
    bool go_on();
    void end() { dialog_.reset(); }
    bool cancelled() const { return cancelled_; }

private:
    QWidget* window_;
    std::optional<QProgressDialog> dialog_;
    bool cancelled_ = false;
};

// A printer or a PDF file whose pages are counted. Cancelled, it takes no more of them, and a printer
// gives up its job.
template <class Device>
class CountedPages : public Device, public PageCounter {
public:
    template <class... Arguments>
    explicit CountedPages(PrintProgress& progress, Arguments&&... arguments)
        : Device(std::forward<Arguments>(arguments)...), progress_(progress) {}

    void begin(int pages) override { progress_.begin(pages); }
    void end() override { progress_.end(); }
    bool newPage() override {
        if (progress_.go_on()) {
            return Device::newPage();
        }
        if constexpr (std::is_base_of_v<QPrinter, Device>) {
            Device::abort();
        }
        return false;
    }

private:
    PrintProgress& progress_;
};

}  // namespace kelvar
