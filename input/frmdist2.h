#pragma once

#include <array>

#include "input/frequency_boxes.h"
#include "input/rules/refusal.h"
#include "shell/screen.h"

class QRadioButton;

namespace kelvar {

class CommencementLists;
class OptionCard;
class PartialAmountBox;

// Method of distribution: lump sum, periodic payments, or an amount certain with payments after it.
class frmdist2 : public Screen {
    Q_OBJECT

public:
    explicit frmdist2(Module1& module);
    void load() override;
    void activate() override;
    void put_into(Entries& entries) const override;
    bool take(const Entries& entries) override;

protected:
    void go_next() override { next_screen(); }
    void go_previous() override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void build_methods();
    void build_partial();
    OptionCard* add_method(int index, const QString& text);
    FrequencyBoxes* frequency_boxes(const char* name, const QString& of);

    void choose_method(int index);

    void enable_cmd() { set_next_enabled(true); }
    void disable_cmd() { set_next_enabled(false); }
    void set_next_enabled(bool enabled);
    void show_rollover_note();
    void wait_for_method(const QString& what_to_do);
    void en_f2() { chkperiod->setEnabled(true); }
    void dis_f2() { chkperiod->setEnabled(false); }
    void en_f3() { periodic_after_partial_->setEnabled(true); }
    void dis_f3() { periodic_after_partial_->setEnabled(false); }

    void next_screen();
    void next_after_partial();
    void go_on_unless(const Check& check);

    std::array<QRadioButton*, 4> optmethod{};
    FrequencyBoxes* chkperiod = nullptr;
    FrequencyBoxes* chkpartial = nullptr;
    QWidget* periodic_after_partial_ = nullptr;
    PartialAmountBox* partial_amount_ = nullptr;
    CommencementLists* commencement_ = nullptr;
    QLabel* lblquiet = nullptr;
};

}  // namespace kelvar
