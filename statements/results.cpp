#include "statements/results.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "core/csv_line.h"
#include "core/numbers.h"
#include "engine/comparison.h"
#include "engine/result_texts.h"

namespace kelvar {

namespace {

// Line and name, the texts of a rate, what was wrong and the column it means.
using ResultCells = std::array<std::string, std::tuple_size_v<RateTexts> + 4>;
using PaymentCells = std::array<std::string, 10>;

std::string plain_money(double dollars) {
    return format_number(dollars, pattern::plain_amount);
}

}  // namespace

std::string results_header() {
    return csv_line(ResultCells{"Line", "Name", "Rate", "Value at First Payment", "First Amount",
                                "Amount in Last Full Year", "Number", "Last Payment", "Age", "Earnings",
                                "Fees", "Total Paid", "Reason", "Column"});
}

std::string result_lines(const Participant& participant, const std::vector<Projection>& projections) {
    ResultCells cells{std::to_string(participant.line), participant.name};
    std::string& reason = cells[cells.size() - 2];
    if (!participant.refusal.empty()) {
        reason = participant.refusal;
        cells.back() = participant.column;
        return csv_line(cells);
    }
    std::string lines;
    for (const Projection& projection : projections) {
        RateTexts texts = rate_texts(compared(participant.scenario, projection), true);
        const bool complete = projection.outcome == Outcome::complete;
        reason = complete ? "" : std::exchange(texts[1], {});
        std::ranges::move(texts, cells.begin() + 2);
        lines += csv_line(cells);
    }
    return lines;
}

std::string payments_header() {
    return csv_line(PaymentCells{"Line", "Name", "Rate", "Payment  #", "Payments Remaining",
                                 "Beginning Balance", "Amount", "Remaining Balance", "Month", "Year"});
}

std::string payment_lines(const Participant& participant, const std::vector<Projection>& projections) {
    std::string lines;
    PaymentCells cells{std::to_string(participant.line), participant.name};
    const auto add = [&](double before, double paid, double after, Date date) {
        cells[5] = plain_money(before);
        cells[6] = plain_money(paid);
        cells[7] = plain_money(after);
        cells[8] = month_name(month_of(date));
        cells[9] = std::to_string(year_of(date));
        lines += csv_line(cells);
    };
    for (const Projection& p : projections) {
        if (p.outcome != Outcome::complete) {
            continue;
        }
        cells[2] = rate_text(p.rate, lump_sum);
        cells[3].clear();
        cells[4].clear();
        if (participant.scenario.method != periodic_payments) {
            add(p.start_value, p.lump_sum, p.start_value - p.lump_sum, p.dates.first.date);
        }
        for (const PaymentRow& row : p.schedule.rows) {
            cells[3] = std::to_string(row.number);
            cells[4] = std::to_string(row.remaining);
            add(row.startbalance, row.payment, row.remainbalance, row.date);
        }
    }
    return lines;
}

std::vector<Projection> projections_of(const Participant& participant, Date today) {
    std::vector<Projection> projections;
    if (participant.refusal.empty()) {
        for (const double rate : participant.scenario.selected_rates) {
            projections.push_back(project(participant.scenario, rate, today));
        }
    }
    return projections;
}

}  // namespace kelvar
