#pragma once

#include <array>

#include "shell/screen.h"

class QFrame;
class QLineEdit;
class QRadioButton;

namespace kelvar {

class FrequencyBoxes;
class PopupList;

// Method of distribution: lump sum, periodic payments, or an amount certain with payments after it.
class frmdist2 : public Screen {
    Q_OBJECT

public:
    explicit frmdist2(Module1& module);
    void load() override;
    void activate() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void go_next() override { next_screen(); }
    void go_previous() override;

private:
    void build_methods();
    void build_partial(QBoxLayout* column);
    void build_commencement(QBoxLayout* column);
    QFrame* method_card(int index, const QString& text, QBoxLayout*& column);
    FrequencyBoxes* frequency_boxes(const char* name, QBoxLayout* column);

    void choose_method(int index);

    void enable_cmd() { set_next_enabled(true); }
    void disable_cmd() { set_next_enabled(false); }
    void set_next_enabled(bool enabled);
    void wait_for_method(const QString& what_to_do);
    void en_f2();
    void dis_f2();
    void en_f3() { periodic_after_partial_->setEnabled(true); }
    void dis_f3() { periodic_after_partial_->setEnabled(false); }

    void percentage_chosen();
    bool percentage_typed();
    void apply_percentage(double percentage);
    void take_partial_amount();
    void partial_amount_left(Leaving leaving);
    void show_percentage();

    void get_year();
    void get_month2();
    void take_commencement();
    void next_screen();

    std::array<QRadioButton*, 4> optmethod{};
    FrequencyBoxes* chkperiod = nullptr;
    FrequencyBoxes* chkpartial = nullptr;
    QWidget* periodic_after_partial_ = nullptr;
    QLineEdit* txtpartial = nullptr;
    PopupList* cmbPercent = nullptr;
    QComboBox* cmbscnmonth = nullptr;
    QComboBox* cmbscnyear = nullptr;
    QLabel* lblnomonth = nullptr;
    QLabel* lblquiet = nullptr;
    bool commencement_chosen_ = false;  // by the user, who then keeps month and year where offered
    double shown_present_value_ = 0.0;  // for which cmbPercent was last worked out
    bool percentage_edited_ = false;    // typed but not yet taken over
};

}  // namespace kelvar
