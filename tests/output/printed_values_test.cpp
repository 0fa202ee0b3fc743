#include "output/result/printed_values.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPdfWriter>
#include <filesystem>

#include "engine/federal_minimum.h"
#include "engine/result_texts.h"
#include "engine/store.h"
#include "output/report/page_painter.h"
#include "output/report/report.h"
#include "output/report/report_templates.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {

namespace {

using namespace std::chrono_literals;

constexpr Date january = 2020y / 1 / 15;

// Monthly payments over life expectancy from July, 2020, on.
Scenario over_life() {
    Scenario scenario;
    scenario.birth_date = 1950y / 6 / 15;
    scenario.method = periodic_payments;
    scenario.present_value = 250000.0;
    scenario.first_pay_month = 7;
    scenario.first_pay_year = 2020;
    scenario.frequency = 12;
    scenario.length_option = by_life_expectancy;
    scenario.number_of_payments = 349;
    scenario.lookup_age = 70;
    scenario.life_expectancy_age = 99.1;
    scenario.fee_amount = 80;
    return scenario;
}

ReportValues values_of(const Scenario& scenario, Date today = january) {
    const TemporaryProgramFolder folder;
    Database database(folder.database());
    return printed_values(scenario, project(scenario, 5.0, today), database);
}

std::string joined(const NamedTexts& texts) {
    std::string all;
    for (const auto& [name, text] : texts) {
        all += text + ' ';
    }
    return all;
}

// All else that they say stands in the approved pages.
TEST(PrintedValues, HaveTheNotesThatConcernTheResult) {
    // What is said of recalculation concerns neither dollar amounts nor a lump sum, which has no life
    // expectancy either.
    const auto beginnings = [](const Scenario& scenario) {
        std::string all;
        for (const NamedTexts& note : values_of(scenario).notes) {
            all += joined(note).substr(0, 7) + ';';
        }
        return all;
    };
    Scenario scenario = over_life();
    EXPECT_EQ(beginnings(scenario), "The Ass;A chang;The fig;The est;For per;This pr;Pursuan;");
    scenario.length_option = by_dollar_amount;
    EXPECT_EQ(beginnings(scenario), "The Ass;A chang;The fig;The est;This pr;Pursuan;");
    scenario.method = lump_sum;
    EXPECT_EQ(beginnings(scenario), "The Ass;A chang;The fig;The est;Pursuan;");
    EXPECT_TRUE(joined(values_of(scenario).notes[1]).ends_with(" change the figures in this report. "));
}

// Known to templates although no shipped one prints them; the figures are from a reckoning by itself.
TEST(PrintedValues, HaveTheEndsOfThePayments) {
    const ReportValues values = values_of(over_life());
    EXPECT_EQ(joined({{"", values.first_amount},
                      {"", values.first_month},
                      {"", values.first_age},
                      {"", values.next_amount},
                      {"", values.next_month},
                      {"", values.last_amount},
                      {"", values.last_month},
                      {"", values.last_age}}),
              "$734.30 July, 2020 70 $753.06 January, 2021 $3,618.47 July, 2049 99 ");
}

// 11,988.24 dollars are paid in 2028, where 326,296.46 / 26.5 are due. In 2035 it is 17,103.48 of
// 346,305.06 / 20.2, in 2036 17,997.00 of 346,475.15 / 19.4, worked out by hand.
TEST(PrintedValues, MarkTheYearsBelowTheFederalMinimum) {
    Scenario scenario = over_life();
    scenario.birth_date = 1955y / 4 / 15;
    constexpr Date today = 2026y / 11 / 22;
    scenario.present_value = 318'440.17;
    scenario.first_pay_month = 3;
    scenario.first_pay_year = 2027;
    scenario.number_of_payments = 338;
    const ReportValues values = values_of(scenario, today);
    EXPECT_EQ(values.federal_minimum,
              "* 2028 to 2035: less than the federal minimum of about $12,313 and more; the plan must "
              "then pay more.");
    EXPECT_TRUE(joined(values.years[1]).starts_with("2027 72 10 ")) << "reached only in 2028";
    EXPECT_TRUE(joined(values.years[2]).starts_with("2028* 73 12 "));
    EXPECT_TRUE(joined(values.years[10]).starts_with("2036 81 12 "));
    // The joint table counts 35.1 years for 73 and 52, so that less is due. A lump sum counts in its
    // year.
    scenario.joint_life = true;
    scenario.spouse_birth_date = 1976y / 1 / 1;
    EXPECT_EQ(values_of(scenario, today).federal_minimum, "");
    scenario.joint_life = false;
    scenario.method = partial_lump_sum;
    scenario.first_pay_year = scenario.scenario_year = 2028;
    scenario.scenario_month = 4;
    scenario.partial_amount = 20'000.0;
    EXPECT_TRUE(values_of(scenario, today).federal_minimum.starts_with("* 2029 to "));

    const std::pair<Date, int> ages[] = {
        {1949y / 6 / 30, 2019},  {1949y / 7 / 1, 2021}, {1950y / 12 / 31, 2022}, {1951y / 1 / 1, 2024},
        {1959y / 12 / 31, 2032}, {1960y / 1 / 1, 2035}, {2003y / 6 / 1, 2078}};
    for (const auto& [birth, year] : ages) {
        EXPECT_EQ(federal_minimum_from(birth), year);
    }
}

TEST(PrintedValues, NameTheTableOnlyWhereItWasUsed) {
    struct Case {
        std::int16_t length, age, payments;
        bool joint;
        std::string life;
    };
    const Case cases[] = {
        {by_life_expectancy, 70, 349, false,
         "Minimum distribution years 70  29.1 This program's table (the federal one begins at 72)"},
        {by_life_expectancy, 72, 325, false,
         "Minimum distribution years 72  27.1 Uniform Lifetime table, federal tables in force since "
         "2022"},
        {by_life_expectancy, 69, 361, false,
         "Single life expectancy 69  30.1 Single Life table, federal tables in force since 2022"},
        {by_life_expectancy, 70, 349, true,
         "Joint life expectancy 70 52 29.1 Joint and Last Survivor table, federal tables in force "
         "since 2022"},
        {by_number_of_payments, 70, 12, true,
         "Minimum distribution years 70  29.1 This program's table (the federal one begins at 72)"},
        // A look-up that failed, and left the number of an earlier one.
        {by_life_expectancy, 71, 349, false, "    "},
    };
    for (const Case& c : cases) {
        Scenario scenario = over_life();
        scenario.length_option = c.length;
        scenario.lookup_age = c.age;
        scenario.number_of_payments = c.payments;
        scenario.joint_life = c.joint;
        scenario.spouse_lookup_age = 52;
        const ReportValues values = values_of(scenario);
        EXPECT_EQ(values.life + ' ' + values.life_age + ' ' + values.spouse_age + ' ' + values.divisor +
                      ' ' + values.table,
                  c.life);
    }
}

TEST(PrintedValues, ALumpSumHasNoYears) {
    Scenario scenario = over_life();
    scenario.method = lump_sum;
    const ReportValues values = values_of(scenario);
    EXPECT_EQ(values.first_month + ' ' + values.first_age, "July, 2020 70");
    EXPECT_TRUE(values.last_month.empty() && values.life.empty() && values.years.empty());
    EXPECT_FALSE(values.chart);
    EXPECT_TRUE(joined(values.ledger[2]).starts_with("- Fees (at $50 a year) $"))
        << joined(values.ledger[2]);
    scenario.first_pay_month = 1;
    for (const double dollars : {9'999'999.99, 10'000'000.0}) {
        scenario.present_value = dollars;
        EXPECT_EQ(values_of(scenario).wide, dollars == 1e7) << dollars;
    }
}

// 70 years of payments, also of amounts as long as they can be typed.
TEST(PrintedValues, FitOneSheetAndTheYearsTwoPages) {
    const TemporaryProgramFolder folder;
    Database database(folder.database());
    Scenario scenario = over_life();
    scenario.scenario_month = 10;
    scenario.scenario_year = 2020;
    scenario.joint_life = true;
    scenario.spouse_lookup_age = 40;
    scenario.life_expectancy_age = 139.0;
    scenario.number_of_payments = 828;
    for (const std::int16_t method : {periodic_payments, partial_lump_sum}) {
        for (const double value : {250'000.0, 9'999'999'999'999.0}) {
            scenario.method = method;
            scenario.present_value = value;
            scenario.partial_amount = value / 4;
            const Projection projection = project(scenario, 5.0, january);
            store(database, projection.schedule, heading_of(scenario, projection));
            const ReportValues values = printed_values(scenario, projection, database);
            EXPECT_EQ(values.wide, value > 1e7);
            for (const auto paper : {QPageSize::Letter, QPageSize::A4}) {
                std::vector<Report> reports;
                for (const std::string& name :
                     report_templates(method, by_life_expectancy, {.years = true, .payments = false})) {
                    const auto file = std::filesystem::path(KELVAR_REPORTS) / name;
                    reports.push_back(fill_template(file, database, values));
                }
                QBuffer pdf;
                ASSERT_TRUE(pdf.open(QIODevice::WriteOnly));
                QPdfWriter writer(&pdf);
                writer.setPageSize(QPageSize(paper));
                writer.setPageMargins(page_margins, QPageLayout::Point);
                draw_reports(reports, writer);
                EXPECT_EQ(reports[0]->pageCount(), 2) << method << ' ' << value << ' ' << paper;
                EXPECT_LE(reports[1]->pageCount(), 2) << method << ' ' << value << ' ' << paper;
            }
        }
    }
}

TEST(PrintedValues, ARateWithoutPaymentsSaysWhy) {
    Scenario scenario = over_life();
    scenario.length_option = by_dollar_amount;
    scenario.fixed_amount = 1400.0;
    scenario.selected_rates = {5.0, 9.0};
    const ReportValues values = printed_comparison(scenario, compare(scenario, january));
    ASSERT_EQ(values.rates.size(), 2u);
    EXPECT_EQ(values.rates[0].size(), 11u);
    EXPECT_EQ(joined(values.rates[1]),
              "9% At this rate of return the payments would outlast your life expectancy or minimum "
              "distribution years. To end in time it takes $2,100.46 a month at 9%. ");
}

}  // namespace

}  // namespace kelvar::test
