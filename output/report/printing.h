// Where a print job goes, and the buttons that start one.
#pragma once

#include <QObject>
#include <QPageLayout>
#include <functional>
#include <string>

#include "core/module1.h"

class QHBoxLayout;
class QLabel;
class QPagedPaintDevice;
class QPushButton;
class QToolButton;

namespace kelvar {

enum class Destination { printer, pdf_file };

struct PrintJob {
    QString title;
    QString file_name;  // proposed for a PDF file, without its suffix
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    std::string missing = {};  // why a part of it is not there; empty when all is
    std::function<void(QPagedPaintDevice&)> draw;
};

// What a PDF file is called, such as "Periodic Payments 5% 2020-01-15". What no file name can hold is
// left out of the title.
QString pdf_name(const QString& title, const QString& rate, Date day);

// Prints at once on the default printer; where there is none, or when a file is asked for, into a PDF
// file that the user names over `window`. Whatever goes wrong, also in preparing the job, is one
// message and leaves everything as it was: an existing file is only replaced by a complete one. A
// missing part is one message after the rest was printed. Returns the PDF file that was written, or
// nothing.
QString print(Module1& module, QWidget* window, Destination destination,
              const std::function<PrintJob()>& prepare);

// Print, and beside it a small menu that also offers a PDF file. A line above the row says where the
// last one was saved.
class PrintButtons : public QObject {
    Q_OBJECT

public:
    // Puts them behind the first button of a navigation row, enabled.
    explicit PrintButtons(QHBoxLayout* navigation);

    void setEnabled(bool enabled);
    // Empty while there is nothing to say; starting to print empties it as well.
    void show_saved(const QString& file);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void chosen(kelvar::Destination destination);

private:
    void start(Destination destination);
    void fit_saved();

    QLabel* lblsaved = nullptr;
    QPushButton* cmdprint = nullptr;
    QToolButton* cmdprintmenu = nullptr;
};

}  // namespace kelvar
