// What a template sees of a result besides the work tables: texts that are ready to be printed, and a
// chart.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

class QPainter;
class QRectF;

namespace kelvar {

// One entry of a list, by the names of its texts.
using NamedTexts = std::vector<std::pair<const char*, std::string>>;

// A text that is empty says nothing of this result. Templates have each one under `result.` and its
// name here.
struct ReportValues {
    std::string participant;   // name, where one was entered
    std::string title;         // "Periodic Payments - Monthly"
    std::string date;          // of the result, "01/15/2020"
    std::string balance;       // that the result starts from
    std::string headline;      // the result in one sentence
    std::string first_amount;  // of the first payment, or of a lump sum that is all
    std::string first_month;   // "July, 2020"
    std::string first_age;     // in that month
    std::string next_amount;   // of the first payment in the calendar year after the first one
    std::string next_month;
    std::string last_amount;
    std::string last_month;
    std::string last_age;
    std::string life;             // what the table counts: "Single life expectancy"
    std::string life_age;         // the participant's, at which the table was looked up
    std::string spouse_age;       // likewise, for joint life
    std::string divisor;          // years
    std::string table;            // where the divisor comes from, in words
    std::string lump_sum;         // paid ahead of the payments
    std::string fee_note;         // why the fee of a lump sum is not the annual fee
    std::string before;           // earnings and fees before the first payment, in one sentence
    std::string federal_minimum;  // which years pay less than that, in one sentence
    std::string total_years;      // sums over the years
    std::string total_payments;
    std::string total_earnings;
    std::string total_fees;
    std::string total_paid;
    bool wide = false;               // an amount is so long that tables need smaller type
    std::string spread;              // what the spread of several rates means, in one sentence
    std::vector<NamedTexts> notes;   // note: what the disclaimer says of it
    std::vector<NamedTexts> ledger;  // entry, amount
    // year, age, payments, beginning, earnings, fees, paid, ending
    std::vector<NamedTexts> years;
    // rate, then reason where there are no payments, else first_value, first_amount, full_year_amount,
    // payments, last_month, last_age, earnings, fees, paid
    std::vector<NamedTexts> rates;
    // number, name, rate, then reason where there are no payments, else lump_sum, first_amount,
    // full_year_amount, payments, last_month, last_age, earnings, fees, paid
    std::vector<NamedTexts> choices;
    std::vector<NamedTexts> even;                           // sentence: when which choice has paid more
    std::function<void(QPainter&, const QRectF&)> chart{};  // paints into a place of the page
};

}  // namespace kelvar
