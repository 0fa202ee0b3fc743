#pragma once

#include "engine/choices.h"
#include "output/report/print_buttons.h"
#include "shell/screen.h"
#include "widgets/line_chart.h"

class QCheckBox;

namespace kelvar {

class Grid;
class PriceLine;
class TextTableModel;
class ViewChoice;

// Results that were kept side by side: what each comes to, when which has paid more, and how it goes
// over the years. One that is picked is entered again. All are computed with one today.
class frmchoices : public Screen {
    Q_OBJECT

public:
    explicit frmchoices(Module1& module);
    void activate() override;

private:
    void build_table();
    void build_options();
    void build_buttons();

    void compute();
    ChosenResult computed(const Entries& entries) const;
    void show_rows();
    void show_lines();
    void follow_row();
    int choice_of(int row) const;  // of the results kept, from 0 on
    int chosen() const;
    void mark(int choice);

    void enter_chosen();
    void let_go();
    void move_by(int places);

    QString file_name() const;
    PrintJob print_job() const;

    Choices choices_;                     // what was kept
    std::vector<ChosenResult> shown_;     // the rows: also after a fall
    std::vector<std::string> sentences_;  // on the chosen row
    LineData lines_;
    Grid* grdchoices = nullptr;
    TextTableModel* rows_ = nullptr;
    QLabel* lbleven = nullptr;
    ViewChoice* view_ = nullptr;
    QCheckBox* chkfall = nullptr;
    LineChart* grphchoices = nullptr;
    PriceLine* prices_ = nullptr;
    PrintButtons* buttons_ = nullptr;
};

}  // namespace kelvar
