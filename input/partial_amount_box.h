#pragma once

#include <QWidget>
#include <optional>

#include "core/module1.h"
#include "input/rules/refusal.h"
#include "widgets/field_leaving.h"

class QLabel;
class QLineEdit;

namespace kelvar {

class EntryList;
struct Entries;

// The amount certain, in dollars or as a percentage of the balance: two boxes of which each follows the
// other. Writes `partial_amount` and `partial_percent` as soon as one is left.
class PartialAmountBox : public QWidget {
    Q_OBJECT

public:
    explicit PartialAmountBox(Module1& module);

    QWidget* dollars() const;
    QWidget* percentage() const;
    // The dollars that stand in the box; nothing when they are no amount.
    std::optional<double> typed() const { return typed_; }

    // Works the percentage out anew where the balance is no longer the one it was worked out for.
    void follow_balance();
    // Says what the least amount is where the minimum distribution will be checked.
    void show_least();
    // After a refusal by it the least amount stands out until another one is entered.
    void least_stands_out();
    // Takes what stands in the boxes when the method is chosen.
    void take_all();
    // Takes what was typed and not left yet; false when that was refused.
    bool take_edited();

    // Enters dollars or percentage, whichever the entries have, as if it were typed.
    void take(const Entries& entries);
    // What was entered last: the dollars or the percentage.
    void put_into(Entries& entries) const;

    // One of the boxes was left.
    void dollars_left(const Leaving& leaving);
    void percentage_left() { take_percentage(); }
    // A click went to nothing that takes the focus, which chooses a percentage just typed.
    void clicked_beside();
    // Takes the entry chosen in the list, where that has `picked` it, as a complete amount.
    void take_chosen_percentage(bool picked);

signals:
    // An entry of the list was picked, or stepped to, so that others can follow. To be answered by
    // take_chosen_percentage when the list is closed.
    void percentage_chosen(bool picked);
    void refused(const Refusal& refusal);
    // The amount is complete; the next entry can follow.
    void completed();

private:
    void build();
    bool dollars_edited() const;
    void show_dollars(double amount);
    void take_dollars();
    // Takes what stands in the percentage box; false when it was refused.
    bool take_percentage();
    void apply_percentage(double percentage);
    void show_percentage();

    Module1& module;
    Scenario& scenario;
    QLineEdit* txtpartial = nullptr;
    EntryList* cmbPercent = nullptr;
    QLabel* lblleastpartial = nullptr;
    std::optional<double> typed_{};
    QString shown_dollars_;
    double shown_present_value_ = 0.0;  // for which the percentage was last worked out
    bool percentage_edited_ = false;    // typed but not yet taken over
    bool by_percentage_ = false;        // the dollars are what the percentage comes to
};

}  // namespace kelvar
