// What every result screen has: the rate list, labelled values, the headline, the result area with its
// cover, the buttons to print and to begin with the next participant, the note shown once per visit.
#pragma once

#include <functional>

#include "engine/projection.h"
#include "output/report/print_buttons.h"
#include "shell/screen.h"

class QAbstractItemModel;
class QFrame;
class QGridLayout;
class QStackedWidget;

namespace kelvar {

class SummaryPanel;

class ResultScreen : public Screen {
    Q_OBJECT

public:
    // Computes when the screen comes to the front for the first time, so that its messages appear over
    // it. Closing it and coming again computes afresh.
    void activate() override;

protected:
    ResultScreen(Module1& module, ScreenId id, const char* name);

    // Computes and shows the result for the chosen rate; run also whenever another rate is picked.
    virtual void get_value() = 0;
    // What the result area shows, for a file of its own, and what that is called.
    struct Table {
        const QAbstractItemModel* rows;
        QString title;
    };
    virtual Table shown_table() const = 0;
    void go_previous() override;

    // A caption and the value behind it, in one cell of the values' grid. The label's name is `name`.
    QLabel* add_value(const QString& caption, const char* name, int row, int column);
    // "Your Total Pay-Back: ", which stands out.
    QLabel* add_total(int row, int column);
    // A quiet line below all values.
    void add_note(const QString& text, const char* name);
    static void show_money(QLabel* label, double dollars);  // "$###,###,##0.00"
    // Fills the rate list; picking an entry runs get_value.
    void add_rate();
    // Chosen rate, percent per year.
    double chosen_rate() const;
    // Keep beside the rate list, behind another button if there is one, and Choices. Before what stands
    // at the place of Next.
    void add_result_buttons(QPushButton* first = nullptr);
    // The button for the next participant: last in the row of buttons, or where these leave no room for
    // it, below the result. After all other buttons.
    void add_menu_button();
    // The result in one sentence. What is printed is this projection.
    void show_headline(const Projection& projection);
    // The area below the values that the cover hides.
    void set_result(QWidget* result);
    // Covers the result area and says why nothing is shown. Either way it is a new result.
    virtual void get_cover(const QString& reason);
    void uncover();

    // Stores what the screen shows: now, and once more before it is printed when somebody else has
    // written the file in between.
    void store_result(std::function<void()> store);

    // The disclaimer, after the first successful computation.
    void show_note();

    // One visit has one today, also across midnight: the first payment and its value at every rate
    // belong together.
    const Date today;
    QLabel* lblsub = nullptr;
    QComboBox* cmbrate = nullptr;
    PrintButtons* print_buttons = nullptr;  // disabled while there is nothing to print

private:
    QFrame* rate_list();
    void build_values();
    void build_buttons();
    void build_choices();
    void name_choices();
    void keep();
    PrintJob print_job() const;
    QString file_name(const QString& title) const;
    void store_again_if_changed() const;

    SummaryPanel* summary_ = nullptr;
    QGridLayout* values_ = nullptr;
    QBoxLayout* rates_row_ = nullptr;
    QLabel* lblheadline = nullptr;
    QPushButton* cmdkeep_ = nullptr;
    QPushButton* cmdchoices_ = nullptr;
    QStackedWidget* result_ = nullptr;
    QLabel* lblcover = nullptr;
    std::function<void()> store_;
    Projection shown_;
    bool computed_ = false;
    bool note_shown_ = false;
};

}  // namespace kelvar
