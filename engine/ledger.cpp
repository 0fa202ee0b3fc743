#include "engine/ledger.h"

#include "engine/schedule.h"

namespace kelvar {

LedgerEntries::LedgerEntries(double opening) {
    ledger_.opening = round_to_cents(opening);
}

void LedgerEntries::pass(double balance, const Accrual::Period& period) {
    ledger_.earnings_before += round_to_cents(balance * period.growth_factor - balance);
    ledger_.exact_fees_before += period.fee;
}

void LedgerEntries::pay(const PaymentSchedule& schedule, Accrual& accrual) {
    if (!schedule.rows.empty()) {
        gained_before_ = schedule.rows.front().startbalance + ledger_.payments - ledger_.opening;
    }
    for (std::size_t i = 0; i < schedule.rows.size(); ++i) {
        pay(schedule.rows[i].payment);
        const auto interval = interval_after(schedule, i, accrual);
        if (!interval) {
            continue;
        }
        ledger_.earnings += interval->growth;
        if (interval->fee_charged) {
            ledger_.fees += interval->fee;
        } else {
            ++ledger_.periods_without_fee;
        }
    }
}

Ledger LedgerEntries::close(double closing) const {
    Ledger ledger = ledger_;
    ledger.earnings = round_to_cents(ledger.earnings_before + ledger.earnings);
    ledger.fees = round_to_cents(ledger.exact_fees_before + ledger.fees);
    ledger.fees_before = round_to_cents(ledger.exact_fees_before);
    ledger.earnings_before =
        round_to_cents(gained_before_ ? *gained_before_ + ledger.fees_before : ledger.earnings_before);
    ledger.payments = round_to_cents(ledger.payments);
    ledger.closing = closing;
    ledger.rounding =
        round_to_cents(closing - (ledger.opening + ledger.earnings - ledger.fees - ledger.payments));
    return ledger;
}

}  // namespace kelvar
