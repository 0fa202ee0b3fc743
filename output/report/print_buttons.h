// The Print button of a result, the menu beside it, and the line that says where the last file was
// saved.
#pragma once

#include <QObject>

#include "output/report/print_job.h"
#include "output/report/report_templates.h"

class QAction;
class QActionGroup;
class QHBoxLayout;
class QLabel;
class QMenu;
class QPushButton;
class QToolButton;

namespace kelvar {

// Print, and beside it a small menu that also offers files. A line above the row says where the last
// one was saved.
class PrintButtons : public QObject {
    Q_OBJECT

public:
    // Puts them behind the first button of a navigation row, enabled.
    explicit PrintButtons(QHBoxLayout* navigation);

    void setEnabled(bool enabled);
    // The menu offers to save what is shown as a CSV file.
    void offer_csv();
    // The menu offers the system's print dialog and a preview, and to leave out parts of what is
    // printed if there are any.
    void offer_choices(bool has_parts);
    // What of it is to be printed, as last chosen.
    Parts parts() const { return parts_; }
    // Empty while there is nothing to say; starting to print empties it as well.
    void show_saved(const QString& file);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void chosen(kelvar::Destination destination);
    void csv_chosen();

private:
    void start(Destination destination);
    void add_parts(const QString& text, const QString& printed, Parts parts);
    void say(const QString& text);  // in the line above the row
    void fit_saved();

    QLabel* lblsaved = nullptr;
    QPushButton* cmdprint = nullptr;
    QToolButton* cmdprintmenu = nullptr;
    QMenu* menu_ = nullptr;
    QAction* save_as_pdf_ = nullptr;
    QActionGroup* choice_ = nullptr;
    Parts parts_ = Parts::everything;
};

}  // namespace kelvar
