#include "input/rules/rates.h"

#include <gtest/gtest.h>

#include "tests/support/sql.h"
#include "tests/support/temporary_program_folder.h"

namespace kelvar::test {
namespace {

TEST(Rates, AreCaptionedByTheirRows) {
    const TemporaryProgramFolder folder;
    run_sql(folder.database(),
            "UPDATE rate SET rate = 6.25 WHERE rateid = 2; DELETE FROM rate WHERE rateid = 3");
    Database database(folder.database());
    const RateCaptions expected{"", "5%_____________Low Risk/Low Return Portfolio",
                                "6.25%_____________Moderately Low Return/Risk Portfolio", "",
                                "8%_____________High Return/High Risk Portfolio"};
    EXPECT_EQ(rate_captions(database.rate()), expected);
}

TEST(Rates, AreThoseTicked) {
    struct Case {
        const char* name;
        RateTicks ticks;
        std::vector<double> expected;
        std::vector<double> without_third;
    };
    const Case cases[] = {{"none", {}, {}, {}},
                          {"all", {true}, {5, 6, 7, 8}, {5, 6, 8}},
                          {"all and one more", {true, false, true}, {5, 6, 7, 8}, {5, 6, 8}},
                          {"fourth and second", {false, false, true, false, true}, {6, 8}, {6, 8}},
                          {"third", {false, false, false, true, false}, {7}, {}},
                          {"each", {false, true, true, true, true}, {5, 6, 7, 8}, {5, 6, 8}}};
    const TemporaryProgramFolder folder;
    Database whole(folder.database());
    run_sql(folder.database(), "DELETE FROM rate WHERE rateid = 3");
    Database damaged(folder.database());
    for (const Case& c : cases) {
        EXPECT_EQ(rate_list(whole.rate(), c.ticks), c.expected) << c.name;
        EXPECT_EQ(rate_list(damaged.rate(), c.ticks), c.without_third) << c.name;
    }
}

}  // namespace
}  // namespace kelvar::test
