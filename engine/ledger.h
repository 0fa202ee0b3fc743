// Adds up where the money of an account comes from and where it goes.
#pragma once

#include <optional>

#include "engine/accrual.h"
#include "engine/schedule.h"

namespace kelvar {

// In dollars and whole cents: opening + earnings - fees - payments + rounding = closing.
struct Ledger {
    double opening = 0.0;
    double earnings = 0.0;        // growth of each period, rounded one by one
    double fees = 0.0;            // of the periods that paid theirs
    int periods_without_fee = 0;  // whose growth did not cover it
    // What the years of the payments leave out: earnings up to the first periodic payment, with what
    // rounding leaves over, and fees. Opening + these earnings - fees - lump sum is the value at that
    // payment.
    double earnings_before = 0.0;
    double fees_before = 0.0;
    double exact_fees_before = 0.0;  // not rounded, so that those after them add up
    double payments = 0.0;           // with the lump sum
    // What cents leave over, never more than one a payment; more only where a rate far below 0 lets
    // level payments exceed what is left of the account.
    double rounding = 0.0;
    double closing = 0.0;  // 0 once all is paid out, else the balance where it stopped
};

// Takes what happens to an account, in its order.
class LedgerEntries {
public:
    explicit LedgerEntries(double opening);

    // A period before the payments, which always pays its fee.
    void pass(double balance, const Accrual::Period& period);
    void pay(double amount) { ledger_.payments += amount; }
    // The payments with the periods between them.
    void pay(const PaymentSchedule& schedule, Accrual& accrual);
    // The finished ledger.
    Ledger close(double closing) const;

private:
    Ledger ledger_;
    std::optional<double> gained_before_;  // dollars after fees, up to the first periodic payment
};

}  // namespace kelvar
