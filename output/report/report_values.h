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
    std::string participant;    // name, where one was entered
    std::string title;          // "Periodic Payments - Monthly"
    std::string rate;           // "5%"
    std::string date;           // of the result, "01/15/2020"
    std::string balance;        // that the result starts from
    std::string headline;       // the result in one sentence
    std::string figure;         // what it comes to: "$957.67"
    std::string figure_period;  // how often: "a month"
    std::string figure_note;    // what that figure is
    std::string first_amount;   // of the first payment, or of a lump sum that is all
    std::string first_month;    // "July, 2020"
    std::string first_age;      // in that month
    std::string next_amount;    // of the first payment in the calendar year after the first one
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
    std::string until;            // where payments end before the table's years do, in one sentence
    std::string another_rate;     // what the next of the chosen rates changes, in one sentence
    std::string office_above;     // HTML of the office's own words, above the title
    std::string office_next;      // and on what to do next
    std::string below_minimum;    // the same without the mark of these years
    std::string payment_count;    // "338 payments"
    std::string total_years;      // for how long payments run: "15 years and 5 months"
    std::string total_payments;   // sums over the years
    std::string total_earnings;
    std::string total_fees;
    std::string total_paid;
    bool wide = false;               // an amount is so long that tables need smaller type
    std::string spread;              // what the spread of several rates means, in one sentence
    std::vector<NamedTexts> facts;   // fact, value: when it begins, when it ends, what it is in all
    std::vector<NamedTexts> why;     // sentence: how the first amounts are worked out
    std::vector<NamedTexts> chosen;  // what, chosen, possible: what else could have been chosen
    std::vector<NamedTexts> words;   // word, meaning
    std::vector<NamedTexts> not_worked_out;  // line
    std::vector<NamedTexts> notes;           // note: what the disclaimer says of it
    std::vector<NamedTexts> ledger;          // entry, amount
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
