#pragma once

#include <optional>

#include "input/rules/birth_date.h"
#include "shell/screen.h"

class QLineEdit;

namespace kelvar {

class FirstPaymentLists;
class MaskedDateEdit;

// Participant data: date of birth, account value, first payment month.
class frmdist1 : public Screen {
    Q_OBJECT

public:
    explicit frmdist1(Module1& module);
    void load() override;
    void activate() override;
    void put_into(Entries& entries) const override;
    bool take(const Entries& entries) override;

protected:
    void go_next() override { go_dnxt2(); }
    void go_previous() override { get_back(); }

private:
    void build_birth();
    void show_birth_limit();
    void build_value();
    void build_month();
    void build_name();

    bool chk_birth();
    void take_birth(const BirthCheck& check);
    void chk_curvalue(const Refusal& refusal);
    std::optional<double> take_value();  // dollars; nothing when it is no amount

    void err_box(std::string_view text, QWidget* field) { report_once(text, field); }
    void edit_date();
    void go_dnxt2();
    void get_back();

    MaskedDateEdit* mskbirth = nullptr;
    QLabel* lblbirthlimit = nullptr;
    QLineEdit* txtcurvalue = nullptr;
    QLineEdit* txtname = nullptr;
    FirstPaymentLists* first_payment_ = nullptr;
};

}  // namespace kelvar
