#include "engine/ledger.h"

namespace kelvar {

LedgerEntries::LedgerEntries(double opening) {
    ledger_.opening = round_to_cents(opening);
}

void LedgerEntries::grow(double balance, const Accrual::Period& period) {
    ledger_.earnings += round_to_cents(balance * period.growth_factor - balance);
}

void LedgerEntries::pass(double balance, const Accrual::Period& period) {
    grow(balance, period);
    ledger_.fees += period.fee;
}

void LedgerEntries::pay(const PaymentSchedule& schedule, Accrual& accrual) {
    for (std::size_t i = 0; i < schedule.rows.size(); ++i) {
        const PaymentRow& row = schedule.rows[i];
        pay(row.payment);
        if (i + 1 == schedule.rows.size() || row.remainbalance == 0.0) {
            continue;
        }
        const int days = days_between(row.date, schedule.rows[i + 1].date);
        if (accrual.covers_fee(row.remainbalance, days)) {
            pass(row.remainbalance, accrual.over(days));
        } else {
            grow(row.remainbalance, accrual.over(days));
            ++ledger_.periods_without_fee;
        }
    }
}

Ledger LedgerEntries::close(double closing) const {
    Ledger ledger = ledger_;
    ledger.earnings = round_to_cents(ledger.earnings);
    ledger.fees = round_to_cents(ledger.fees);
    ledger.payments = round_to_cents(ledger.payments);
    ledger.closing = closing;
    ledger.rounding =
        round_to_cents(closing - (ledger.opening + ledger.earnings - ledger.fees - ledger.payments));
    return ledger;
}

}  // namespace kelvar
