// Where a print job goes, and the buttons that start one.
#pragma once

#include <QObject>
#include <QPageLayout>
#include <functional>
#include <string>

#include "core/module1.h"

class QHBoxLayout;
class QPagedPaintDevice;
class QPushButton;
class QToolButton;

namespace kelvar {

enum class Destination { printer, pdf_file };

struct PrintJob {
    QString title;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    std::string missing = {};  // why a part of it is not there; empty when all is
    std::function<void(QPagedPaintDevice&)> draw;
};

// Prints at once on the default printer; where there is none, or when a file is asked for, into a PDF
// file that the user names over `window`. Whatever goes wrong, also in preparing the job, is one
// message and leaves everything as it was: an existing file is only replaced by a complete one. A
// missing part is one message after the rest was printed.
void print(Module1& module, QWidget* window, Destination destination,
           const std::function<PrintJob()>& prepare);

// Print, and beside it a small menu that also offers a PDF file.
class PrintButtons : public QObject {
    Q_OBJECT

public:
    // Puts them behind the first button of a navigation row, enabled.
    explicit PrintButtons(QHBoxLayout* navigation);

    void setEnabled(bool enabled);

signals:
    void chosen(kelvar::Destination destination);

private:
    QPushButton* cmdprint = nullptr;
    QToolButton* cmdprintmenu = nullptr;
};

}  // namespace kelvar
