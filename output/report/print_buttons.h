// The Print button of a result and the menu beside it, and what the Save button's menu offers besides.
#pragma once

#include <QObject>
#include <vector>

#include "core/visit.h"
#include "output/report/print_job.h"

class QAction;
class QMenu;
class QPushButton;
class QToolButton;

namespace kelvar {

class NavigationRow;

// Print, and beside it a small menu that also offers the system's print dialog and a preview; files are
// in the menu of Save.
class PrintButtons : public QObject {
    Q_OBJECT

public:
    // Puts them into the navigation row of a screen with Save, enabled.
    explicit PrintButtons(NavigationRow* navigation);

    void setEnabled(bool enabled);
    // The menu offers to save what is shown as a CSV file.
    void offer_csv();
    // The menu offers to print the years as well, and to leave out the list of payments: a tick sets
    // what is printed.
    void offer_parts(PrintedParts& parts);
    // In a line above the row, such as where a file was saved. Empty while there is nothing to say;
    // starting to print empties it as well.
    void say(const QString& text);

signals:
    void chosen(kelvar::Destination destination);
    void csv_chosen();

private:
    void offer(const QString& text, Destination destination);
    void start(Destination destination);
    void add_part(const QString& text, const PrintedParts& parts, bool& part);
    void name_parts(const PrintedParts& parts);

    NavigationRow* navigation_;
    QPushButton* cmdprint = nullptr;
    QToolButton* cmdprintmenu = nullptr;
    QMenu* menu_ = nullptr;
    std::vector<QAction*> files_;
};

}  // namespace kelvar
