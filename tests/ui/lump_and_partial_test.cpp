// Journeys for the lump sum and the partial lump sum. Figures worked out with decimal arithmetic from
// the rules, for today 15 January 2020.

#include <qcustomplot.h>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include "core/numbers.h"
#include "tests/support/sql.h"
#include "tests/support/ui_harness.h"
#include "widgets/bar_chart.h"
#include "widgets/grid.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

class LumpSum : public UiTest {
public:
    void go_to_result(const char* rate_box) {
        click("optmethod_0");
        click("Cmdnext");
        click(rate_box);
        click("Cmdnext");
        ASSERT_EQ(screen_name(), u"frmlump"_s);
    }
};

TEST_F(LumpSum, AllFourRates) {
    go_to_method();
    go_to_result("chkrate_0");
    EXPECT_EQ(notes_shown, QStringList{u"frmclaim"_s});
    EXPECT_EQ(text_of("lblsub"), u"(Lump Sum Payment)"_s);
    EXPECT_EQ(text_of("lblfee"), u"$80"_s);
    EXPECT_EQ(text_of("lblfeenote"), u"Until a lump sum is paid, $50 of it a year is charged."_s);
    const std::pair<QString, QString> values[] = {{u"5%"_s, u"$256,285.85"_s},
                                                  {u"6%"_s, u"$257,566.90"_s},
                                                  {u"7%"_s, u"$258,854.30"_s},
                                                  {u"8%"_s, u"$260,148.11"_s}};
    auto* chart = find<BarChart>("grphlump");
    EXPECT_EQ(chart->findChild<QCustomPlot*>()->yAxis->tickVectorLabels().toList().join(u' '),
              u"$0 $50,000 $100,000 $150,000 $200,000 $250,000 $270,000"_s);
    const auto values_shown = [drawing = chart->findChild<QCustomPlot*>()] {
        QStringList texts;
        for (int item = 0; item < drawing->itemCount(); ++item) {
            if (drawing->item(item)->visible()) {
                texts << static_cast<QCPItemText*>(drawing->item(item))->text();
            }
        }
        return texts;
    };
    chart->setFocus();
    today = Date{std::chrono::year{2020} / 1 / 16};  // the visit began the day before
    for (const auto& [rate, value] : values) {
        choose("cmbrate", rate);
        EXPECT_EQ(text_of("lblstartvalue"), value);
        EXPECT_EQ(text_of("lbltotalvalue"), value);
        Recordset& distrib = module->database().distrib();
        EXPECT_EQ(distrib.text("totalvalue"), value.toStdString());
        EXPECT_EQ(distrib.text("rate"), rate.toStdString());
        EXPECT_EQ(distrib.number("startvalue"), read_number(value.toStdString()));
        // The chart shows every rate, whatever is chosen; arrow keys read it out.
        EXPECT_EQ(text_of("lblreadout"), rate + u": Total Pay Back (including  interest) "_s + value);
        press(Qt::Key_Right);
        EXPECT_EQ(text_of("lblreadout"), rate + u": Current Account Balance $250,000.00"_s);
        EXPECT_EQ(values_shown(), QStringList{u"$250,000"_s}) << "of the chosen bar alone";
        press(Qt::Key_Right);
    }
    EXPECT_EQ(notes_shown, QStringList{u"frmclaim"_s});
    EXPECT_TRUE(text_of("lblestimate").startsWith(u"Estimates for illustration, not guaranteed"_s));

    find<Grid>("grdvalues")->setFocus();
    press(Qt::Key_Up);  // a row of the table is a rate of the list
    EXPECT_EQ(find<QComboBox>("cmbrate")->currentText(), u"7%"_s);
    EXPECT_EQ(text_of("lblstartvalue"), u"$258,854.30"_s);
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(text_of("lblstartvalue"), u"$257,566.90"_s);
    EXPECT_EQ(find<Grid>("grdvalues")->selectionModel()->selectedRows().size(), 2);
}

TEST_F(LumpSum, ThisMonthHasNeitherGrowthNorFee) {
    go_to_method(u"06151950"_s, u"250000"_s, u"January"_s, u"2020"_s);
    click("optmethod_1");
    click("chkperiod_0");
    click("Cmdnext");
    click("optlength_0");
    enter("txtnumber", u"60"_s);
    click("Cmdnext");
    click("cmdprev");
    click("optlength_1");
    enter("txtfixamount", u"5000"_s);
    click("Cmdnext");
    click("cmdprev");
    click("cmdprev");
    go_to_result("chkrate_4");
    EXPECT_EQ(text_of("lblstartvalue"), u"$250,000.00"_s);
    EXPECT_EQ(module->scenario.fixed_amount, 0.0);
    EXPECT_EQ(module->database().distrib().text("payments"), "0") << "not those of another method";
}

// 10 dollars do not last 20 years of fees: nothing is shown beside the rate, nothing is written.
TEST_F(LumpSum, NothingLeft) {
    go_to_method(u"06151970"_s, u"10"_s, u"July"_s, u"2040"_s);
    go_to_result("chkrate_1");
    EXPECT_FALSE(find<BarChart>("grphlump")->isVisible());
    EXPECT_FALSE(find<QWidget>("cmdprint")->isEnabled());
    EXPECT_EQ(text_of("lblstartvalue"), QString());
    EXPECT_EQ(notes_shown, QStringList{});
    EXPECT_EQ(module->database().distrib().text("totalvalue"), "");
}

class Partial : public UiTest {
public:
    // Lump sum in July 2020, the rest monthly from October 2020.
    void go_to_length_with_partial(const char* box, const QString& typed) {
        go_to_method();
        click("optmethod_2");
        enter(box, typed);
        click("chkpartial_0");
        choose("cmbscnmonth", u"October"_s);
        click("Cmdnext");
        ASSERT_EQ(screen_name(), u"frmdist3"_s);
    }
    QString percentage() { return find<QComboBox>("cmbPercent")->currentText(); }
    void go_to_result() {
        click("Cmdnext");
        find<QCheckBox>("chkrate_1")->setChecked(true);
        find<QCheckBox>("chkrate_4")->setChecked(true);
        click("Cmdnext");
        ASSERT_EQ(screen_name(), u"frmparti"_s);
    }
    double cents(const QString& money) { return read_number(money.toStdString()); }
    void expect_sound_result(double lump_sum) {
        const auto rows = grid_rows();
        ASSERT_FALSE(rows.empty());
        EXPECT_EQ(rows, work_table_rows());
        EXPECT_EQ(rows.front()[2], text_of("lblscndvalue"));
        EXPECT_EQ(rows.back()[4], u"$0.00"_s);
        double total = lump_sum;
        for (const QStringList& row : rows) {
            total += cents(row[3]);
        }
        EXPECT_NEAR(cents(text_of("lbltotalvalue")), total, 0.005);
        EXPECT_EQ(module->database().distrib().number("partial"), lump_sum);
    }
};

TEST_F(Partial, LifeExpectancyAfterAnAmount) {
    go_to_length_with_partial("txtpartial", u"40000"_s);
    click("optlength_2");
    go_to_result();
    EXPECT_EQ(text_of("lblsub"), u"(Partial Lump Sum = Lump Sum Payment + Remaining Paid Monthly)"_s);
    EXPECT_EQ(text_of("lblstartvalue"), u"$256,270.90"_s);
    EXPECT_EQ(text_of("lblscnddate"), u"October, 2020"_s);
    EXPECT_EQ(text_of("lblscndvalue"), u"$218,993.40"_s);
    expect_sound_result(40000.0);
    Recordset& distrib = module->database().distrib();
    EXPECT_EQ(distrib.text("dsubtitle"), "Lump Sum  + Remaining Paid Monthly");
    EXPECT_EQ(distrib.text("scnddate"), "October, 2020");
    EXPECT_EQ(distrib.number("scndvalue"), 218993.40);
    const auto rows = grid_rows();
    today = Date{std::chrono::year{2020} / 1 / 16};  // the visit began the day before
    choose("cmbrate", u" 8%"_s);
    EXPECT_NE(grid_rows(), rows);
    choose("cmbrate", u" 5%"_s);
    EXPECT_EQ(grid_rows(), rows);
    expect_sound_result(40000.0);
    EXPECT_EQ(notes_shown, QStringList{u"frmclaim"_s});

    // 182 and 92 days at $80 a year. Earnings: what leads from today's balance to the second value.
    press(Qt::Key_E, Qt::AltModifier);
    const QAbstractItemModel* years = find<Grid>("grdyear")->model();
    QStringList lump;
    double paid = 0.0;
    for (int row = 0; row < years->rowCount(); ++row) {
        paid += cents(years->index(row, 6).data().toString());
    }
    for (int column = 0; column < years->columnCount(); ++column) {
        lump << years->index(0, column).data().toString();
    }
    EXPECT_EQ(lump.join(u' ').toStdString(),
              "2020 70 Lump sum $250,000.00 $9,053.45 $60.05 $40,000.00 $218,993.40");
    EXPECT_NEAR(paid, cents(text_of("lbltotalvalue")), 0.005);

    module->screens.show(ScreenId::frmlife);
    EXPECT_EQ(find<Grid>("grdlife")->currentIndex().data().toString(), u"70"_s);
    module->screens.close(ScreenId::frmlife);
    click("cmdmenu");
    module->screens.show(ScreenId::frmlife);
    EXPECT_FALSE(find<Grid>("grdlife")->selectionModel()->hasSelection()) << "nobody's age yet";
}

TEST_F(Partial, NumberAfterAPercentageThenChangedInputs) {
    go_to_length_with_partial("cmbPercent", u"12.5"_s);
    EXPECT_EQ(module->scenario.partial_amount, 31250.0);
    click("optlength_0");
    enter("txtnumber", u"60"_s);
    go_to_result();
    EXPECT_EQ(text_of("lblpartial"), u"$31,250.00"_s);
    EXPECT_EQ(grid_rows().size(), 60u);
    expect_sound_result(31250.0);

    for (int back = 0; back < 3; ++back) {
        click("cmdprev");
    }
    ASSERT_EQ(screen_name(), u"frmdist2"_s);
    enter("txtpartial", u"100000"_s);
    EXPECT_EQ(percentage(), u"40.00"_s);
    click("cmdprev");
    enter("txtcurvalue", u"200000"_s);
    click("Cmdnext");
    EXPECT_EQ(percentage(), u"50.00"_s) << "of the new balance";
    for (int on = 0; on < 3; ++on) {
        click("Cmdnext");
    }
    ASSERT_EQ(screen_name(), u"frmparti"_s);
    EXPECT_EQ(text_of("lblpartial"), u"$100,000.00"_s);
    expect_sound_result(100000.0);
    EXPECT_TRUE(take_messages().empty());
}

TEST_F(Partial, TabAndEnterLeadOnFromTheAmountToTheBoxes) {
    go_to_method();
    click("optmethod_2");
    type("40000\t");
    EXPECT_EQ(focus_name(), u"chkpartial_0"_s);
    EXPECT_EQ(percentage(), u"16.00"_s);
    EXPECT_EQ(find<QComboBox>("cmbPercent")->count(), 99);
    // A key that follows faster than the focus moves on to the boxes goes to them.
    type_into("txtpartial", u"50000"_s);
    QTest::keyClick(find<QLineEdit>("txtpartial"), Qt::Key_Tab);
    QTest::keyClick(window->windowHandle(), Qt::Key_Space);
    settle();
    EXPECT_TRUE(find<QAbstractButton>("chkpartial_0")->isChecked());
    find<QWidget>("cmbPercent")->setFocus(Qt::TabFocusReason);
    type("12.5\r");
    EXPECT_EQ(focus_name(), u"chkpartial_0"_s);
    EXPECT_EQ(find<QLineEdit>("txtpartial")->text(), u"31,250.00"_s);
    EXPECT_EQ(module->scenario.partial_percent, "12.5");
    enter("txtpartial", u"x"_s);
    EXPECT_EQ(take_messages(), std::vector<std::string>{"Invalid partial lump sum amount."});
    EXPECT_EQ(percentage(), QString()) << "of no amount";
    EXPECT_EQ(module->scenario.partial_percent, "");
    find<QWidget>("cmbPercent")->setFocus(Qt::TabFocusReason);
    type("100\r");
    EXPECT_EQ(take_messages().size(), 1U);
    EXPECT_EQ(focus_name(), u"cmbPercent"_s);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}) {
        press(key);
        EXPECT_EQ(focus_name(), u"cmbPercent"_s) << "others can be reached";
    }
    EXPECT_EQ(find<QLineEdit>("txtpartial")->text(), u"5,000.00"_s);
    EXPECT_EQ(module->scenario.partial_percent, "2");
    press(Qt::Key_Return);
    EXPECT_EQ(focus_name(), u"chkpartial_0"_s);
    find<QWidget>("cmbPercent")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_F4);
    QWidget* entries = QApplication::activePopupWidget()->focusWidget();
    QTest::keyClick(entries, Qt::Key_Down);
    QTest::keyClick(entries, Qt::Key_Return);
    settle();
    EXPECT_EQ(focus_name(), u"chkpartial_0"_s);
    EXPECT_EQ(module->scenario.partial_percent, "3");
    EXPECT_TRUE(find<QWidget>("focusring")->isVisible());
    for (const char* clicked : {"txtpartial", "chkpartial_1"}) {
        click("cmbPercent");
        click(clicked);
        EXPECT_EQ(focus_name(), QString::fromLatin1(clicked)) << "nothing was typed";
        type_into("cmbPercent", u"12.5"_s);
        click(clicked);
        EXPECT_EQ(focus_name(), QString::fromLatin1(clicked));
        EXPECT_EQ(module->scenario.partial_percent, "12.5");
    }
    type_into("cmbPercent", u"10"_s);
    press(Qt::Key_Backtab);
    EXPECT_EQ(focus_name(), u"txtpartial"_s);
    type_into("cmbPercent", u"25"_s);
    click("lblmethod_4");
    EXPECT_EQ(module->scenario.partial_amount, 62500.0);
    EXPECT_EQ(focus_name(), u"chkpartial_0"_s);
    type_into("cmbPercent", u"50"_s);
    click("txtpartial");
    EXPECT_EQ(module->scenario.partial_amount, 125000.0);
    type("3");
    EXPECT_EQ(find<QLineEdit>("txtpartial")->text(), u"3"_s) << "instead of 125,000.00";
}

TEST_F(Partial, RemainingPaymentsFollowTheFirstPaymentUntilTheyAreChosen) {
    go_to_method();
    click("optmethod_2");
    const auto month_after_going_back_to = [&](const QString& first_month, const QString& year) {
        click("cmdprev");
        choose("Cmbfrstyear", year);
        choose("Cmbfrstmonth", first_month);
        click("Cmdnext");
        return find<QComboBox>("cmbscnmonth")->currentText() +
               find<QComboBox>("cmbscnyear")->currentText();
    };
    EXPECT_EQ(find<QComboBox>("cmbscnmonth")->currentText(), u"August"_s);
    EXPECT_EQ(month_after_going_back_to(u"May"_s, u"2020"_s), u"June2020"_s);
    EXPECT_EQ(module->scenario.scenario_month, 6);
    const auto expect_cannot_be_chosen = [&](const QString& month) {
        const QString words =
            month + u", 2020 cannot be chosen; the other payments begin in December, 2020."_s;
        EXPECT_EQ(text_of("lblchanged"), words);
        for (const char* list : {"cmbscnmonth", "cmbscnyear"}) {
            EXPECT_EQ(find<QWidget>(list)->accessibleDescription(), words);
        }
    };
    choose("cmbscnmonth", u"October"_s);
    EXPECT_EQ(month_after_going_back_to(u"April"_s, u"2020"_s), u"October2020"_s);
    EXPECT_EQ(text_of("lblchanged"), QString());
    EXPECT_EQ(month_after_going_back_to(u"November"_s, u"2020"_s), u"December2020"_s);
    expect_cannot_be_chosen(u"October"_s);
    EXPECT_EQ(focus_name(), u"cmbscnmonth"_s);
    EXPECT_EQ(month_after_going_back_to(u"April"_s, u"2020"_s), u"October2020"_s);
    // A month typed before the year that offers it; 2021 has January to March.
    EXPECT_EQ(month_after_going_back_to(u"November"_s, u"2020"_s), u"December2020"_s);
    find<QWidget>("cmbscnmonth")->setFocus();
    type("March");
    expect_cannot_be_chosen(u"March"_s);
    type("December");
    EXPECT_EQ(text_of("lblchanged"), QString());
    type("March");
    choose("cmbscnmonth", u"December"_s);
    EXPECT_EQ(text_of("lblchanged"), QString());
    type("March\t2021");
    EXPECT_EQ(text_of("lblchanged"), QString());
    EXPECT_EQ(find<QComboBox>("cmbscnmonth")->currentText(), u"March"_s);
    EXPECT_EQ(find<QComboBox>("cmbscnyear")->currentText(), u"2021"_s);
    EXPECT_EQ(module->scenario.scenario_month, 3);
}

// The method counts the age by months, the participant data by days.
TEST_F(Partial, AgeShownStaysThatOfTheDay) {
    go_to_method(u"01201960"_s, u"250000"_s, u"January"_s, u"2020"_s);
    click("optmethod_2");
    enter("txtpartial", u"40000"_s);
    click("chkpartial_0");
    click("Cmdnext");
    EXPECT_EQ(module->scenario.current_age, 60);
    click("cmdprev");
    click("cmdprev");
    EXPECT_EQ(text_of("lblage"), u"59"_s);
}

TEST_F(Partial, RemainingPaymentsAreOfferedFromThePresentYearOn) {
    go_to_method();
    click("optmethod_2");
    EXPECT_EQ(find<QComboBox>("cmbscnyear")->currentText(), u"2020"_s);
    today = Date{std::chrono::year{2021} / 1 / 5};  // as on a machine that was left alone
    click("optmethod_3");
    press(Qt::Key_Return);
    click("optmethod_2");
    EXPECT_EQ(find<QComboBox>("cmbscnyear")->currentText(), u"2021"_s);
}

// Paid at 73, of divisor 26.5, which is also that of the rest from January 2021 on.
TEST_F(Partial, LeastAmountIsNamedWhereTheMinimumDistributionIsChecked) {
    const QString least = u"At least $9,433.97, this program's minimum for that year"_s;
    go_to_method(u"06151947"_s);
    click("optmethod_2");
    EXPECT_EQ(text_of("lblleastpartial"), QString());
    choose("cmbscnyear", u"2021"_s);
    EXPECT_EQ(text_of("lblleastpartial"), least);
    EXPECT_EQ(find<QWidget>("txtpartial")->accessibleDescription(), least);
    click("optmethod_1");
    EXPECT_EQ(text_of("lblleastpartial"), QString());
    click("optmethod_2");
    click("chkpartial_0");
    for (const QString& amount : {u"9433.96"_s, u"9433.97"_s}) {
        EXPECT_EQ(screen_name(), u"frmdist2"_s);
        EXPECT_EQ(text_of("lblleastpartial"), least);
        EXPECT_EQ(stands_out("lblleastpartial"), amount == u"9433.97"_s);
        enter("txtpartial", amount);
        EXPECT_FALSE(stands_out("lblleastpartial"));
        click("Cmdnext");
    }
    EXPECT_EQ(take_messages().size(), 1u);
    EXPECT_EQ(text_of("lblamountlimit"), u"At least $756.50 a month, more if the account grows"_s);
    click("cmdprev");
    click("cmdprev");
    enter("txtcurvalue", u"100000"_s);
    click("Cmdnext");
    EXPECT_EQ(text_of("lblleastpartial"),
              u"At least $3,773.59, this program's minimum for that year"_s);
}

// Past 70½, with the first payment in the last month that the plan allows.
TEST_F(Partial, NoMonthLeftIsSaid) {
    go_to_method(u"06151949"_s, u"250000"_s, u"March"_s, u"2021"_s);
    click("optmethod_2");
    EXPECT_EQ(find<QComboBox>("cmbscnmonth")->count(), 0);
    EXPECT_TRUE(text_of("lblchanged").startsWith(u"The first amount is paid in the last month"_s));
}

TEST_F(Partial, FixedAmountAndTheLimit) {
    go_to_length_with_partial("txtpartial", u"40000"_s);
    click("optlength_1");
    enter("txtfixamount", u"3000"_s);
    go_to_result();
    EXPECT_EQ(grid_rows().front()[3], u"$3,000.00"_s);
    expect_sound_result(40000.0);
    click("cmdprev");
    click("cmdprev");
    enter("txtfixamount", u"700"_s);
    go_to_result();
    EXPECT_EQ(take_messages().size(), 1u);
    EXPECT_FALSE(find<Grid>("grddist")->isVisible());
    EXPECT_EQ(text_of("lblscndvalue"), QString());
}

// All but a cent is paid out; the fee eats the cent before the second date.
TEST_F(Partial, AmountJustBelowTheBalanceLeavesNothing) {
    go_to_method(u"06151950"_s, u"250000"_s, u"January"_s, u"2020"_s);
    click("optmethod_2");
    enter("txtpartial", u"249999.99"_s);
    click("chkpartial_0");
    choose("cmbscnmonth", u"March"_s);
    click("Cmdnext");
    click("optlength_2");
    go_to_result();
    EXPECT_FALSE(find<Grid>("grddist")->isVisible());
    EXPECT_TRUE(text_of("lblcover").contains(u"nothing is left"_s));
    EXPECT_TRUE(work_table_rows().empty());
}

// Born in 1952: the life expectancy ends at 68.5 at the amount certain; the rest is paid from 70 on.
TEST_F(Partial, PaymentsBeyondLifeAreAskedAboutAndAFailedLookUpIsOnlyTold) {
    run_sql(folder.database(), "UPDATE lifexp SET multiple = 0.5; DELETE FROM lifexp WHERE age = 70");
    start_program();
    go_to_method(u"06151952"_s);
    click("optmethod_2");
    enter("txtpartial", u"100000"_s);
    click("chkpartial_0");
    choose("cmbscnyear", u"2022"_s);
    for (const bool enters_again : {true, false}) {
        answer_yes = enters_again;
        click("Cmdnext");
        EXPECT_EQ(take_messages(),
                  std::vector<std::string>{"Your selection will result in distribution payments beyond "
                                           "your life expectancy. Do you wish to re-enter your "
                                           "selection?"});
        EXPECT_EQ(module->scenario.answer, enters_again ? 1 : 0);
        EXPECT_EQ(screen_name(), enters_again ? u"frmdist2"_s : u"frmdist3"_s);
        EXPECT_EQ(focus_name() == u"cmbscnyear"_s, enters_again);
    }
    click("optlength_2");
    click("Cmdnext");
    EXPECT_EQ(take_messages(), std::vector<std::string>{"Your current age is invalid."});
    EXPECT_EQ(screen_name(), u"frmdrate"_s);
}

}  // namespace

}  // namespace kelvar::test
