#pragma once

#include <QLineEdit>
#include <array>
#include <optional>

#include "shell/screen.h"

class QRadioButton;

namespace kelvar {

class LifeOptions;
class LifeTablePanel;
class LimitedBox;
class MaskedDateEdit;

// Length of payments: a number, a dollar amount, or a life expectancy, beside the table it is checked
// against.
class frmdist3 : public Screen {
    Q_OBJECT

public:
    explicit frmdist3(Module1& module);
    void load() override;
    void activate() override;
    void put_into(Entries& entries) const override;
    bool take(const Entries& entries) override;

protected:
    void go_next() override;
    void go_previous() override;

private:
    void build_options(QBoxLayout* column);
    void build_life_options();

    void show_ages();
    void mark_joint_pair();

    void choose_length(int index);
    void choose_life();
    void ask_for_spouse();
    void back_to_single_life();
    bool joint_chosen() const;
    void show_tables();
    void show_limits();
    void dis_f1() { txtnumber->setEnabled(false); }
    void dis_f2() { txtfixamount->setEnabled(false); }
    void dis_f3();
    void en_f1() { txtnumber->setEnabled(true); }
    void en_f2() { txtfixamount->setEnabled(true); }
    void en_f3();

    bool take_joint(const Entries& entries);
    std::optional<double> read_number();  // and show what was read
    std::optional<double> read_amount();
    bool chk_birth();

    std::array<QRadioButton*, 3> optlength{};
    QLineEdit* txtnumber = nullptr;
    QLineEdit* txtfixamount = nullptr;
    LimitedBox* number_ = nullptr;
    LimitedBox* amount_ = nullptr;
    LifeOptions* life_options_ = nullptr;
    MaskedDateEdit* mskbenebirth = nullptr;
    LifeTablePanel* life_table_ = nullptr;
};

}  // namespace kelvar
