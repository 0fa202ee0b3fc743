// Journeys through the real widgets for periodic payments, checked against the rules and the tables.
// Figures worked out with decimal arithmetic from the rules.

#include <sys/resource.h>

#include <qcustomplot.h>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <cmath>
#include <csignal>

#include "core/numbers.h"
#include "tests/support/sql.h"
#include "tests/support/ui_harness.h"
#include "widgets/grid.h"
#include "widgets/text.h"
#include "widgets/theme.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

class Periodic : public UiTest {
public:
    void tick_rates_and_go(std::initializer_list<const char*> boxes) {
        ASSERT_EQ(screen_name(), u"frmdrate"_s);
        for (const char* box : boxes) {
            click(box);
        }
        click("Cmdnext");
        ASSERT_EQ(screen_name(), u"frmperio"_s);
    }

    double money(const QString& cell) { return read_number(cell.toStdString()); }

    // What must hold for any schedule on screen, whatever its figures.
    void expect_sound_schedule() {
        const std::vector<QStringList> rows = grid_rows();
        ASSERT_FALSE(rows.empty());
        EXPECT_EQ(rows, work_table_rows());
        EXPECT_EQ(rows.back()[4], u"$0.00"_s);
        EXPECT_EQ(rows.back()[1], u"0"_s);
        EXPECT_EQ(rows.front()[2], text_of("lblstartvalue"));
        EXPECT_EQ(text_of("lblnumber").toInt(), static_cast<int>(rows.size()));
        double total = 0.0;
        for (const QStringList& row : rows) {
            total += money(row[3]);
        }
        EXPECT_NEAR(total, money(text_of("lbltotalvalue")), 0.005);
    }

    bool covered() { return !find<Grid>("grddist")->isVisible(); }
};

// Born 06/15/1950, 250,000.00, payments from July 2020: 182 days of growth to July 15,
// divisor 29.1.
TEST_F(Periodic, LifeExpectancyAtTwoRates) {
    go_to_rates();
    tick_rates_and_go({"chkrate_1", "chkrate_4"});
    EXPECT_EQ(text_of("lblsub"), u"(Periodic Payments - Monthly)"_s);
    EXPECT_EQ(text_of("lblfrstdate"), u"July, 2020"_s);
    EXPECT_EQ(text_of("lblcurvalue"), u"$250,000.00"_s);
    EXPECT_EQ(text_of("lblfee"), u"$80"_s);
    EXPECT_EQ(find<QComboBox>("cmbrate")->itemText(1), u" 8%"_s);

    EXPECT_EQ(text_of("lblstartvalue"), u"$256,270.90"_s);
    EXPECT_EQ(text_of("lblnumber"), u"349"_s);
    const std::vector<QStringList> rows = grid_rows();
    EXPECT_EQ(rows[0][3], u"$734.30"_s);
    EXPECT_EQ(rows[6][5] + rows[6][6], u"January2021"_s);
    for (std::size_t i = 1; i + 1 < rows.size(); ++i) {
        const bool january = rows[i][5] == u"January"_s;
        EXPECT_EQ(rows[i][3] != rows[i - 1][3], january) << "payment " << i + 1;
    }
    expect_sound_schedule();
    auto* grid = find<Grid>("grddist");
    grid->setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(grid->currentIndex().row(), 348);
    press(Qt::Key_Home);
    EXPECT_EQ(grid->currentIndex().row(), 0);
    grid->setCurrentIndex(grid->model()->index(2, 3));
    for (const Qt::Key key : {Qt::Key_2, Qt::Key_0, Qt::Key_3, Qt::Key_0}) {
        press(key);
    }
    EXPECT_EQ(grid->currentIndex().row(), 114);  // January 2030
    const std::string headings =
        "Payment #\tPayments Remaining\tBeginning Balance\tAmount\tRemaining "
        "Balance\tMonth\tYear\n";
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              headings + rows[114].join(u'\t').toStdString() + "\n");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().count(u'\n'), 1 + 349);
    press(Qt::Key_Home);
    press(Qt::Key_PageDown);
    EXPECT_GT(grid->currentIndex().row(), 0);

    // One value after the other can be copied; those without a text are passed over.
    find<QWidget>("summary")->setFocus(Qt::TabFocusReason);
    for (const char* value : {"lblcurvalue", "lblfrstdate", "lblstartvalue", "lblnumber"}) {
        press(Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QGuiApplication::clipboard()->text(), text_of(value));
        EXPECT_TRUE(find<QWidget>("summary")->accessibleName().endsWith(text_of(value)));
        press(Qt::Key_Down);
    }

    choose("cmbrate", u" 8%"_s);
    EXPECT_EQ(text_of("lblstartvalue"), u"$260,133.15"_s);
    expect_sound_schedule();
    EXPECT_EQ(module->database().distrib().text("rate"), " 8%");
    EXPECT_EQ(module->database().distrib().text("totalvalue"), text_of("lbltotalvalue").toStdString());

    // Midnight passes, and even the month: this visit goes on with the day on which it began.
    today = Date{std::chrono::year{2020} / 2 / 1};
    choose("cmbrate", u" 5%"_s);
    EXPECT_EQ(grid_rows(), rows);
    EXPECT_EQ(text_of("lblstartvalue"), u"$256,270.90"_s);
    expect_sound_schedule();
    EXPECT_TRUE(take_messages().empty());
}

// The same, asked what, why, where the money goes, what the other rates would do, and who is next.
TEST_F(Periodic, SaysWhatAndWhyAndComparesTheRates) {
    go_to_rates();
    tick_rates_and_go({"chkrate_1", "chkrate_4"});
    EXPECT_EQ(
        text_of("lblheadline"),
        u"Estimate at 5%, over your minimum distribution years: $734.30 a month from July, 2020, $753.06 from January, 2021, then a new amount each January; last payment July, 2049, age 99."_s);
    const QString first = text_of("lblexplain");
    EXPECT_TRUE(first.startsWith(u"Payment 1, July, 2020: $256,270.90 ÷ 349 payments = $734.30."_s));
    auto* grid = find<Grid>("grddist");
    grid->setFocus();
    type("2021");
    EXPECT_EQ(
        text_of("lblexplain"),
        u"Payment 7, January, 2021: $258,300.14 ÷ 343 payments (342 to come and this one) = $753.06. The $257,547.08 left grows by $1,095.94 in 31 days, less $6.79 fee: $258,636.23."_s);
    EXPECT_GE(grid->viewport()->height() / grid->rowHeight(0), 8) << "rows to be seen";
    const auto amount_read_out = [&](int row) {
        return grid->model()->index(row, 3).data(Qt::AccessibleTextRole).toString();
    };
    EXPECT_EQ(amount_read_out(5), u"Amount: $734.30"_s);
    EXPECT_EQ(amount_read_out(6), u"Amount: $753.06, changed"_s);

    press(Qt::Key_E, Qt::AltModifier);
    const QAbstractItemModel* years = find<Grid>("grdyear")->model();
    ASSERT_EQ(years->rowCount(), 31);
    EXPECT_EQ(years->index(30, 4).data().toString(), u"-$0.06"_s) << "rounding, as the ledger has it";
    QString last = text_of("lblstartvalue");
    double fees = 39.89;  // up to the first payment
    for (int row = 0; row < 30; ++row) {
        const auto cell = [&](int column) { return years->index(row, column).data().toString(); };
        EXPECT_EQ(cell(3), last);
        EXPECT_EQ(
            std::lround((money(cell(3)) + money(cell(4)) - money(cell(5)) - money(cell(6))) * 100),
            std::lround(money(cell(7)) * 100));
        fees += money(cell(5));
        last = cell(7);
    }
    EXPECT_EQ(last, u"$0.00"_s);
    EXPECT_NEAR(fees, 2361.42, 0.001);
    find<Grid>("grdyear")->setCurrentIndex(years->index(9, 0));
    choose("cmbrate", u" 8%"_s);
    EXPECT_EQ(find<Grid>("grdyear")->currentIndex().row(), 9) << "the chosen year stays";
    choose("cmbrate", u" 5%"_s);
    EXPECT_EQ(
        text_of("lblledger"),
        u"$250,000.00 today + $331,157.41 earned − $2,361.42 fees − $578,796.05 paid to you + $0.06 rounding = $0.00 left. Of this, before the first payment: $6,310.79 earned, $39.89 fees."_s);

    menu_entry = u"&CSV..."_s;
    save_as = to_qt((folder.path() / "years.csv").string());
    click("cmdsave");
    QFile saved(save_as);
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readLine(),
              "Year,Age at Last Payment,Payments,Beginning Balance,Earnings,Fees,Paid,Ending "
              "Balance\r\n");
    EXPECT_EQ(saved.readLine(), "2020,70,6,256270.90,5380.85,33.53,4405.80,257212.42\r\n");
    save_as = to_qt(folder.database().string());
    click("cmdsave");
    const std::vector<std::string> refused = take_messages();
    ASSERT_EQ(refused.size(), 1U);
    EXPECT_TRUE(refused[0].starts_with("Nothing was saved.\n\nThe file ")) << refused[0];

    std::signal(SIGXFSZ, SIG_IGN);
    rlimit room{};
    getrlimit(RLIMIT_FSIZE, &room);
    const rlimit full{100, room.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    save_as = saved.fileName();
    const qint64 whole = saved.size();
    click("cmdsave");
    setrlimit(RLIMIT_FSIZE, &room);
    EXPECT_EQ(take_messages().size(), 1U);
    EXPECT_EQ(QFileInfo(saved.fileName()).size(), whole) << "the file from before is still there";

    click("cmdcompare");
    EXPECT_EQ(focus_name(), u"grdcompare"_s);
    const QAbstractItemModel* rates = find<Grid>("grdcompare")->model();
    ASSERT_EQ(rates->rowCount(), 2);
    const QString shown[] = {u"5%"_s,        u"$256,270.90"_s, u"$734.30"_s, u"$3,090.02"_s,
                             u"349"_s,       u"7/2049"_s,      u"99"_s,      u"$331,157.41"_s,
                             u"$2,361.42"_s, u"$578,796.05"_s};
    for (int column = 0; column < rates->columnCount(); ++column) {
        EXPECT_EQ(rates->index(0, column).data().toString(), shown[column]);
    }
    EXPECT_TRUE(
        text_of("lblspread")
            .contains(
                u"If it earned 8% every year instead of 5%, you would be paid $470,471.64 more"_s));
    EXPECT_EQ(find<Grid>("grdcompare")->mapTo(window, QPoint()).x(), 24)
        << "the margin of every screen";
    const QString total_at_8 = rates->index(1, 9).data().toString();
    today = Date{std::chrono::year{2020} / 1 / 16};  // the comparison is of the day of the result
    press(Qt::Key_Down);
    click("chkfall");
    click("chkzero");
    EXPECT_EQ(rates->rowCount(), 6);
    EXPECT_EQ(find<Grid>("grdcompare")->currentIndex().row(), 2) << "8% stays chosen";
    find<Grid>("grdcompare")->setFocus();
    press(Qt::Key_Return);
    ASSERT_EQ(screen_name(), u"frmperio"_s);
    EXPECT_EQ(find<QComboBox>("cmbrate")->currentText(), u" 8%"_s);
    EXPECT_EQ(text_of("lbltotalvalue"), total_at_8);
    EXPECT_TRUE(find<Grid>("grdyear")->isVisible()) << "the view stays";
    press(Qt::Key_W, Qt::AltModifier);
    EXPECT_EQ(screen_name(), u"frmdist"_s);
    EXPECT_EQ(module->scenario.present_value, 0.0);
}

TEST_F(Periodic, FixedAmountThatLasts) {
    go_to_length();
    click("optlength_1");
    enter("txtfixamount", u"2,500"_s);
    EXPECT_EQ(find<QLineEdit>("txtfixamount")->text(), u"2500.00"_s);
    EXPECT_EQ(
        text_of("lblamountlimit"),
        u"At least $715.93 a month, more if the account grows. To end in time it takes $1,382.51 a month at 5% and $1,908.40 at 8%. Entered: $2,500.00"_s);
    enter("txtfixamount", u"250000.01"_s);
    EXPECT_EQ(
        text_of("lblamountlimit"),
        u"At least $715.93 a month, more if the account grows. To end in time it takes $1,382.51 a month at 5% and $1,908.40 at 8%. Entered: $250,000.01, above the balance; $250,000.00 counts"_s);
    click("Cmdnext");
    click("cmdprev");
    EXPECT_EQ(find<QLineEdit>("txtfixamount")->text(), u"250000.00"_s) << "no more than there is";
    EXPECT_TRUE(text_of("lblamountlimit").endsWith(u". Entered: $250,000.00, the balance"_s));
    enter("txtfixamount", u"2,500"_s);
    click("Cmdnext");
    tick_rates_and_go({"chkrate_1"});
    const std::vector<QStringList> rows = grid_rows();
    EXPECT_EQ(rows[0][3], u"$2,500.00"_s);
    EXPECT_EQ(rows[rows.size() - 2][3], u"$2,500.00"_s);
    EXPECT_LE(money(rows.back()[3]), 2500.0);
    expect_sound_schedule();
    EXPECT_EQ(module->database().distrib().number("fixamount"), 2500.0);
}

// 1,400 a month empties the account in time at 5%, but at 7% and more it outlasts the life
// expectancy.
TEST_F(Periodic, FixedAmountThatOutlastsLife) {
    const std::string limit =
        "Because of the assumed rate of return you selected, the total number of payments in this "
        "scenario "
        "exceeds your life-expectancy / minimum distribution years. Please increase the fixed "
        "dollar "
        "distribution amount or change the assumed rate of return.";
    go_to_length();
    click("optlength_1");
    enter("txtfixamount", u"1400"_s);
    click("Cmdnext");
    tick_rates_and_go({"chkrate_1", "chkrate_3", "chkrate_4"});
    EXPECT_TRUE(take_messages().empty());
    const std::vector<QStringList> at_5 = grid_rows();
    expect_sound_schedule();

    choose("cmbrate", u" 7%"_s);
    EXPECT_EQ(take_messages(), std::vector{limit});
    EXPECT_TRUE(covered());
    for (const char* label : {"lblstartvalue", "lbltotalvalue", "lblnumber"}) {
        EXPECT_EQ(text_of(label), QString()) << label;
    }
    // The heading still belongs to the last schedule that was shown.
    EXPECT_EQ(module->database().distrib().text("rate"), " 5%");

    // A higher rate is refused with the same words and nothing computed.
    const std::vector<QStringList> stored = work_table_rows();
    choose("cmbrate", u" 8%"_s);
    EXPECT_EQ(take_messages(), std::vector{limit});
    EXPECT_EQ(work_table_rows(), stored);

    // Picking it once more is told once more.
    choose("cmbrate", u" 8%"_s);
    EXPECT_EQ(take_messages(), std::vector{limit});

    choose("cmbrate", u" 5%"_s);
    EXPECT_FALSE(covered());
    EXPECT_EQ(grid_rows(), at_5);
    expect_sound_schedule();
    choose("cmbrate", u" 7%"_s);
    EXPECT_EQ(take_messages(), std::vector{limit});
    EXPECT_EQ(work_table_rows(), at_5) << "nothing computed either";

    click("cmdcompare");
    const auto strong_lines = [this] {
        const auto* drawing = find<QWidget>("grphcompare")->findChild<QCustomPlot*>();
        int strong = 0;
        for (int line = 0; line < drawing->graphCount(); ++line) {
            strong += drawing->graph(line)->pen().widthF() > 3.0 ? 1 : 0;
        }
        return strong;
    };
    EXPECT_EQ(strong_lines(), 0) << "at 7% there is no line";
    press(Qt::Key_Up);
    EXPECT_EQ(strong_lines(), 1) << "that of 5%";
    press(Qt::Key_Down);
    EXPECT_EQ(strong_lines(), 0);
}

TEST_F(Periodic, NumberOfPaymentsThenPreviousAndAnotherNumber) {
    go_to_length();
    click("optlength_0");
    enter("txtnumber", u"-24.4"_s);
    EXPECT_EQ(find<QLineEdit>("txtnumber")->text(), u"24"_s);
    click("Cmdnext");
    tick_rates_and_go({"chkrate_0"});
    EXPECT_EQ(find<QComboBox>("cmbrate")->count(), 4);
    EXPECT_EQ(grid_rows().size(), 24u);
    expect_sound_schedule();

    click("cmdprev");
    EXPECT_TRUE(find<QCheckBox>("chkrate_0")->isChecked());
    click("picprev");
    EXPECT_EQ(find<QLineEdit>("txtnumber")->text(), u"24"_s);
    enter("txtnumber", u"1"_s);
    click("picnext");
    click("picnext");
    EXPECT_EQ(grid_rows().size(), 1u);
    EXPECT_EQ(grid_rows()[0][3], text_of("lblstartvalue"));
    expect_sound_schedule();
}

// The box of a rate without a row is grey, also when all are ticked.
TEST_F(Periodic, RatesWithoutARowArePassedOver) {
    run_sql(folder.database(), "DELETE FROM rate WHERE rateid = 2");
    start_program();
    go_to_length();
    click("optlength_0");
    enter("txtnumber", u"24"_s);
    click("Cmdnext");
    EXPECT_FALSE(find<QCheckBox>("chkrate_2")->isEnabled());
    EXPECT_EQ(find<QCheckBox>("chkrate_3")->text(),
              u"&7%_____________Moderately High Return/Risk Portfolio"_s);
    click("chkrate_0");
    EXPECT_FALSE(find<QCheckBox>("chkrate_2")->isChecked());
    click("Cmdnext");
    EXPECT_EQ(find<QComboBox>("cmbrate")->count(), 3);
    run_sql(folder.database(), "DELETE FROM rate");
    start_program();
    go_to_rates();
    EXPECT_FALSE(find<QCheckBox>("chkrate_0")->isEnabled());
}

// Ten payments, four, two and one a year.
TEST_F(Periodic, ChartSaysTheYearUnderThePointer) {
    go_to_length();
    click("optlength_0");
    enter("txtnumber", u"10"_s);
    struct Case {
        const char* box;
        QString payments, period;
        std::vector<QString> years;
    };
    const Case cases[] = {{"chkperiod_1",
                           u"Quarterly Payments"_s,
                           u"(July, 2020 - October, 2022)"_s,
                           {u"2020: Total paid $51,254.18"_s, u"2021: Total paid $105,269.04"_s,
                            u"2022: Total paid $114,702.34"_s}},
                          {"chkperiod_2",
                           u"Semi-Annual Payments"_s,
                           u"(July, 2020 - January, 2025)"_s,
                           {u"2020: Total paid $25,627.09"_s, u"2021: Total paid $52,553.44"_s,
                            u"2022: Total paid $55,417.84"_s, u"2023: Total paid $58,511.90"_s,
                            u"2024: Total paid $61,959.74"_s, u"2025: Total paid $33,293.36"_s}},
                          {"chkperiod_3",
                           u"Annual Payments"_s,
                           u"(July, 2020 - July, 2029)"_s,
                           {u"2020: Total paid $25,627.09"_s, u"2021: Total paid $26,932.04"_s,
                            u"2022: Total paid $28,302.78"_s, u"2023: Total paid $29,742.36"_s,
                            u"2024: Total paid $31,258.09"_s, u"2025: Total paid $32,844.61"_s,
                            u"2026: Total paid $34,508.48"_s, u"2027: Total paid $36,250.97"_s,
                            u"2028: Total paid $38,074.58"_s, u"2029: Total paid $39,946.56"_s}}};
    for (const Case& c : cases) {
        while (screen_name() != u"frmdist2"_s) {
            click("cmdprev");
        }
        click(c.box);
        click("Cmdnext");
        click("Cmdnext");
        find<QCheckBox>("chkrate_1")->setChecked(true);
        tick_rates_and_go({});
        click("cmdchart");
        EXPECT_EQ(text_of("lblfrequency"), c.payments);
        EXPECT_EQ(text_of("lblperiod"), c.period);
        auto* chart = find<QWidget>("grphsche");
        auto* drawing = chart->findChild<QCustomPlot*>();
        const QRectF plot = drawing->axisRect()->rect().translated(drawing->pos());
        const double slot = plot.width() / static_cast<double>(c.years.size());
        for (std::size_t year = 0; year < c.years.size(); ++year) {
            for (const double part : {0.1, 0.5, 0.9}) {
                const QPointF spot(plot.left() + slot * (static_cast<double>(year) + part),
                                   plot.center().y());
                QTest::mouseMove(chart, spot.toPoint());
                settle();
                EXPECT_EQ(text_of("lblreadout"), c.years[year]);
            }
            EXPECT_EQ(drawing->plottable(0)->interface1D()->dataMainValue(static_cast<int>(year)),
                      money(c.years[year].section(u' ', -1)));
        }
        find<QWidget>("grphsche")->setFocus();
        for (const Qt::Key key : {Qt::Key_End, Qt::Key_Right}) {
            press(key);
            EXPECT_EQ(text_of("lblreadout"), c.years.back());
        }
    }
}

// Spouse 15 years younger: joint divisor of ages 70 and 54 (the spouse's birthday is in
// August), 33.8.
TEST_F(Periodic, JointLife) {
    go_to_length();
    click("optlength_2");
    EXPECT_TRUE(find<QWidget>("grdlife")->isVisible());
    EXPECT_EQ(text_of("lbllifelimit"), u"349 monthly payments"_s);
    const auto expect_own_row_in_view = [&] {
        auto* table = find<QTableView>("grdlife");
        ASSERT_EQ(table->selectionModel()->selectedRows().size(), 1);
        const QModelIndex own = table->selectionModel()->selectedRows().front();
        EXPECT_EQ(own.data().toString(), u"70"_s);
        EXPECT_TRUE(table->viewport()->rect().contains(table->visualRect(own)));
    };
    expect_own_row_in_view();
    find<QWidget>("oplifeexp_0")->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(text_of("lbllifelimit"), QString());
    EXPECT_EQ(find<QScrollArea>("page")->verticalScrollBar()->maximum(), 0);
    EXPECT_TRUE(find<QWidget>("grdlife1")->isVisible());
    EXPECT_FALSE(find<QWidget>("grdlife")->isVisible());
    EXPECT_EQ(focus_name(), u"mskbenebirth"_s);
    EXPECT_EQ(find<QTableView>("grdlife1")->model()->rowCount(), 2343);
    const QString births =
        u"More than ten years younger: born after 01/14/1961; at least 35: born up to 01/14/1985"_s;
    EXPECT_EQ(text_of("lblspouselimit"), births);
    for (const QString& next : {u"optlength_1"_s, u"oplifeexp_1"_s}) {
        enter("mskbenebirth", u"01141961"_s);
        EXPECT_EQ(take_messages().size(), 1U);
        expect_own_row_in_view();
        click(next.toLatin1());
        EXPECT_EQ(stands_out("lblspouselimit"), next == u"oplifeexp_1"_s) << "until another date";
        click("optlength_2");
        click("oplifeexp_1");
    }
    enter("mskbenebirth", u"08201965"_s);
    EXPECT_FALSE(stands_out("lblspouselimit"));
    EXPECT_EQ(text_of("lbllifelimit"), u"405 monthly payments"_s);
    EXPECT_EQ(find<QWidget>("mskbenebirth")->accessibleDescription(),
              u"405 monthly payments. "_s + births);
    const auto* pairs = find<QTableView>("grdlife1");
    EXPECT_EQ(pairs->currentIndex().siblingAtColumn(0).data().toString(), u"70"_s);
    EXPECT_EQ(pairs->currentIndex().siblingAtColumn(1).data().toString(), u"54"_s);
    EXPECT_TRUE(pairs->rect().contains(pairs->visualRect(pairs->currentIndex())));
    // The table that had the focus goes away without a click, as for a screen reader; it must not
    // have the focus again when one comes back.
    find<QWidget>("grdlife1")->setFocus();
    find<QAbstractButton>("oplifeexp_0")->click();
    click("Cmdnext");
    click("cmdprev");
    EXPECT_TRUE(window->focusWidget()->isVisible()) << focus_name().toStdString();
    click("oplifeexp_1");
    click("Cmdnext");
    EXPECT_TRUE(take_messages().empty());
    tick_rates_and_go({"chkrate_2"});
    EXPECT_EQ(module->scenario.spouse_lookup_age, 54);
    EXPECT_NEAR(module->scenario.life_expectancy_age, 70 + 33.8, 1e-9);
    EXPECT_EQ(text_of("lblnumber"), u"405"_s);
    expect_sound_schedule();
}

// By the divisors 29.1 at 70, 27.4 at 72, and 19.6 at 69 of the single life table.
TEST_F(Periodic, LimitsFollowEveryChangeAndAreThoseOfNext) {
    const auto expect_limits = [&](const QString& most, const QString& least) {
        EXPECT_EQ(text_of("lblnumberlimit"), u"At most "_s + most);
        EXPECT_TRUE(text_of("lblamountlimit").startsWith(u"At least "_s + least));
        EXPECT_EQ(text_of("lbllifelimit"), most);
        EXPECT_EQ(find<QWidget>("txtnumber")->accessibleDescription(), u"At most "_s + most);
        EXPECT_EQ(find<QWidget>("txtfixamount")->accessibleDescription(), text_of("lblamountlimit"));
    };
    const auto change = [&](const char* box, const QString& typed) {
        click("cmdprev");
        click("cmdprev");
        enter(box, typed);
        click("Cmdnext");
        click("Cmdnext");
    };
    go_to_length();
    expect_limits(u"349 monthly payments"_s, u"$715.93 a month"_s);
    click("cmdprev");
    click("chkperiod_3");
    click("Cmdnext");
    expect_limits(u"29 annual payments"_s, u"$8,591.07 a year"_s);
    change("txtcurvalue", u"100000"_s);
    expect_limits(u"29 annual payments"_s, u"$3,436.43 a year"_s);
    change("mskbirth", u"06151948"_s);
    expect_limits(u"27 annual payments"_s, u"$3,649.64 a year"_s);
    click("optlength_0");
    type("28\r");
    EXPECT_EQ(take_messages().size(), 1u);
    EXPECT_TRUE(stands_out("lblnumberlimit"));
    type("2");
    EXPECT_FALSE(stands_out("lblnumberlimit"));
    type("8\r");
    EXPECT_TRUE(stands_out("lblnumberlimit"));
    EXPECT_EQ(take_messages().size(), 1u);
    click("optlength_1");
    EXPECT_FALSE(stands_out("lblnumberlimit")) << "another one is chosen";
    for (const QString& amount : {u"3649.63"_s, u"3649.64"_s}) {
        EXPECT_EQ(screen_name(), u"frmdist3"_s);
        EXPECT_EQ(stands_out("lblamountlimit"), amount == u"3649.64"_s);
        enter("txtfixamount", amount);
        EXPECT_FALSE(stands_out("lblamountlimit"));
        click("Cmdnext");
    }
    EXPECT_EQ(take_messages().size(), 1u);
    EXPECT_EQ(screen_name(), u"frmdrate"_s);
    // A birthday passes while the screen is open, in the month of the first payment.
    click("cmdprev");
    change("mskbirth", u"01201950"_s);
    click("cmdprev");
    click("cmdprev");
    choose("Cmbfrstmonth", u"January"_s);
    click("Cmdnext");
    click("Cmdnext");
    expect_limits(u"19 annual payments"_s, u"$5,102.05 a year"_s);
    today = Date{std::chrono::year{2020} / 1 / 21};
    enter("txtfixamount", u"1"_s);
    click("Cmdnext");
    EXPECT_EQ(take_messages().size(), 1u);
    expect_limits(u"29 annual payments"_s, u"$3,436.43 a year"_s);
}

TEST_F(Periodic, KeyboardAlone) {
    press(Qt::Key_Return);  // title
    press(Qt::Key_Return);  // menu
    ASSERT_EQ(focus_name(), u"mskbirth"_s);
    type("6");
    press(Qt::Key_Slash);
    type("15");
    type("50");
    press(Qt::Key_Tab);
    EXPECT_EQ(find<QLineEdit>("mskbirth")->text(), u"06/15/1950"_s);
    ASSERT_EQ(focus_name(), u"txtcurvalue"_s);
    type("250000");
    press(Qt::Key_Tab);
    ASSERT_EQ(focus_name(), u"Cmbfrstmonth"_s);
    type("jul");
    EXPECT_EQ(text_of("lblage"), u"70"_s);
    press(Qt::Key_Return);
    ASSERT_EQ(screen_name(), u"frmdist2"_s);
    press(Qt::Key_S, Qt::AltModifier);
    press(Qt::Key_Y, Qt::AltModifier);
    press(Qt::Key_Return);
    ASSERT_EQ(screen_name(), u"frmdist3"_s);
    press(Qt::Key_L, Qt::AltModifier);
    press(Qt::Key_Return);
    ASSERT_EQ(screen_name(), u"frmdrate"_s);
    press(Qt::Key_5, Qt::AltModifier);
    press(Qt::Key_N, Qt::AltModifier);
    ASSERT_EQ(screen_name(), u"frmperio"_s);
    EXPECT_EQ(text_of("lblnumber"), u"349"_s);
    EXPECT_TRUE(take_messages().empty());
}

TEST_F(Periodic, ReturnToTheMenuStartsAfresh) {
    go_to_rates();
    tick_rates_and_go({"chkrate_1"});
    for (const char* screen : {"frmdrate", "frmdist3", "frmdist2", "frmdist1", "frmdist"}) {
        click("cmdprev");
        ASSERT_EQ(screen_name(), QString::fromLatin1(screen));
    }
    EXPECT_EQ(module->scenario.method, no_method);
    EXPECT_EQ(module->scenario.present_value, 0.0);
    click("Cmdnext");
    EXPECT_EQ(find<QLineEdit>("txtcurvalue")->text(), QString());
    EXPECT_EQ(find<QLineEdit>("mskbirth")->displayText(), u"__/__/____"_s);
    EXPECT_EQ(find<QComboBox>("Cmbfrstyear")->count(), 0) << "of the date of birth before";
    EXPECT_EQ(text_of("lbllatest") + text_of("lblage"), QString());
    // A menu that starts afresh beside an open screen takes nothing from what its box still holds.
    enter("mskbirth", u"06151950"_s);
    window->close(ScreenId::frmdist);
    window->show(ScreenId::frmdist);
    window->show(ScreenId::frmdist1);
    EXPECT_EQ(find<QLineEdit>("mskbirth")->text(), u"06/15/1950"_s);
    EXPECT_EQ(find<QComboBox>("Cmbfrstyear")->count(), 2);
    EXPECT_EQ(text_of("lblage"), u"69"_s);
}

// The fee eats a tiny account before payments begin.
TEST_F(Periodic, NothingLeftAtTheFirstPayment) {
    go_to_method(u"06151960"_s, u"100"_s, u"July"_s, u"2025"_s);
    click("optmethod_1");
    click("chkperiod_3");
    click("Cmdnext");
    click("optlength_2");
    click("Cmdnext");
    tick_rates_and_go({"chkrate_1"});
    EXPECT_TRUE(covered());
    EXPECT_TRUE(text_of("lblcover").contains(u"nothing is left in the account"_s));
    EXPECT_TRUE(work_table_rows().empty());
    EXPECT_TRUE(take_messages().empty());
}

TEST_F(Periodic, BalanceIsReadBackAsShown) {
    go_to_participant();
    for (const auto& [typed, shown] :
         {std::pair{u"-25000"_s, u"25,000.00"_s}, std::pair{u" 1,234,567.891 "_s, u"1,234,567.89"_s},
          std::pair{u"$9999999999999.99"_s, u"9,999,999,999,999.99"_s}}) {
        enter("txtcurvalue", typed);
        EXPECT_EQ(find<QLineEdit>("txtcurvalue")->text(), shown);
        EXPECT_EQ(module->scenario.present_value, money(shown));
    }
}

// No heading of a few letters is shortened, and what matters most is in sight.
TEST_F(Periodic, BillionsFitTheTables) {
    go_to_method(u"04151966"_s, u"9900000000"_s, u"March"_s, u"2027"_s);
    click("optmethod_1");
    click("chkperiod_0");
    click("Cmdnext");
    click("optlength_0");
    enter("txtnumber", u"120"_s);
    click("Cmdnext");
    tick_rates_and_go({"chkrate_0"});
    const auto expect_room = [this](const char* name) {
        auto* grid = find<Grid>(name);
        settle();
        EXPECT_EQ(grid->horizontalScrollBar()->maximum(), 0) << name;
        for (int column = 0; column < grid->model()->columnCount(); ++column) {
            const QString heading = grid->model()->headerData(column, Qt::Horizontal).toString();
            for (const QString& word : heading.split(u' ')) {
                EXPECT_TRUE(word.size() > 6 || QFontMetrics(grid->font()).horizontalAdvance(word) <
                                                   grid->columnWidth(column) - theme::grid)
                    << name << ": " << word.toStdString();
            }
        }
    };
    expect_room("grddist");
    press(Qt::Key_E, Qt::AltModifier);
    expect_room("grdyear");
    auto* last_line = find<QLabel>("lblestimate");
    EXPECT_EQ(last_line->visibleRegion().boundingRect(), last_line->rect()) << "the page scrolled";
    click("cmdcompare");
    auto* rates = find<Grid>("grdcompare");
    const auto in_sight = [&](int column) {
        return rates->viewport()->rect().contains(rates->visualRect(rates->model()->index(0, column)));
    };
    EXPECT_TRUE(in_sight(3) && in_sight(9)) << "what is paid in all stands beside the first amount";
    EXPECT_EQ(rates->model()->headerData(9, Qt::Horizontal), u"Total Paid"_s) << "the last for others";
    for (int column = 1; column < 10; ++column) {
        press(Qt::Key_Right);
    }
    EXPECT_TRUE(in_sight(8)) << "fees";
}

TEST_F(Periodic, LatestYearOffersJanuaryToMarch) {
    go_to_participant();
    EXPECT_EQ(text_of("lbllatest"), QString());
    EXPECT_EQ(text_of("lblbirthlimit"), u"Age 16 to 100: born after 01/14/1919, up to 01/14/2004"_s);
    enter("mskbirth", u"01152004"_s);
    EXPECT_EQ(take_messages().size(), 1U);
    EXPECT_TRUE(stands_out("lblbirthlimit"));
    enter("mskbirth", u"06151940"_s);
    EXPECT_FALSE(stands_out("lblbirthlimit"));
    EXPECT_EQ(
        text_of("lbllatest"),
        u"This program lets payments begin up to March, 2021. The deadline of March, 2011 has passed."_s);
    enter("mskbirth", u"06151950"_s);
    auto* months = find<QComboBox>("Cmbfrstmonth");
    EXPECT_EQ(text_of("lbllatest"), u"This program lets payments begin up to March, 2021."_s);
    EXPECT_EQ(months->accessibleDescription(), text_of("lbllatest"));
    choose("Cmbfrstmonth", u"July"_s);
    choose("Cmbfrstyear", u"2021"_s);
    EXPECT_EQ(months->count(), 3);
    EXPECT_EQ(months->currentText(), u"January"_s);
    EXPECT_EQ(text_of("lblchanged"),
              u"The first payment was changed from July, 2021 to January, 2021."_s);
    EXPECT_EQ(module->scenario.over_72_flag, 1);
    EXPECT_EQ(text_of("lblage"), u"70"_s);
    choose("Cmbfrstyear", u"2020"_s);
    EXPECT_EQ(months->count(), 12);
    EXPECT_EQ(months->currentText(), u"July"_s);
    EXPECT_EQ(text_of("lblchanged"), QString());
    EXPECT_EQ(module->scenario.over_72_flag, 0);
}

// Younger by mistake, so that later years were offered.
TEST_F(Periodic, CorrectedBirthDateSaysWhatItChanged) {
    today = Date{std::chrono::year{2020} / 7 / 15};
    go_to_participant();
    enter("mskbirth", u"06151960"_s);
    enter("txtcurvalue", u"250000"_s);
    choose("Cmbfrstyear", u"2025"_s);
    choose("Cmbfrstmonth", u"July"_s);
    enter("mskbirth", u"06151950"_s);
    EXPECT_EQ(text_of("lblchanged"), u"The first payment was changed from July, 2025 to July, 2020."_s);
    EXPECT_TRUE(take_messages().empty());
    enter("mskbirth", u"06151960"_s);
    EXPECT_EQ(find<QComboBox>("Cmbfrstyear")->currentText(), u"2025"_s);
    EXPECT_EQ(text_of("lblchanged"), QString());
    EXPECT_EQ(text_of("lbllatest"), u"This program lets payments begin up to March, 2031."_s);
    for (const QString& no_birth : {QString(), u"02301960"_s}) {
        enter("mskbirth", no_birth);
        choose("Cmbfrstmonth", u"July"_s);
        EXPECT_EQ(text_of("lbllatest") + text_of("lblage"), QString());
        enter("mskbirth", u"06151960"_s);
        EXPECT_EQ(text_of("lbllatest"), u"This program lets payments begin up to March, 2031."_s);
        EXPECT_EQ(text_of("lblage"), u"65"_s);
    }
    EXPECT_EQ(take_messages().size(), 1u);
    // Corrected just before Next, which stays where year or month have become another one.
    for (const auto& [year, now] :
         {std::pair{u"2025"_s, u"July, 2020"_s}, {u"2021"_s, u"January, 2021"_s}}) {
        enter("mskbirth", u"06151960"_s);
        choose("Cmbfrstyear", year);
        type_into("mskbirth", u"06151950"_s);
        click("Cmdnext");
        EXPECT_EQ(screen_name(), u"frmdist1"_s);
        EXPECT_EQ(focus_name(), u"Cmbfrstmonth"_s);
        EXPECT_EQ(text_of("lblchanged"),
                  u"The first payment was changed from July, %1 to %2."_s.arg(year, now));
        const auto* words = find<QWidget>("lblchanged");
        EXPECT_EQ(words->visibleRegion().boundingRect(), words->rect());
        EXPECT_TRUE(
            find<QWidget>("Cmbfrstmonth")->accessibleDescription().endsWith(text_of("lblchanged")));
    }
    click("Cmdnext");
    EXPECT_EQ(screen_name(), u"frmdist2"_s);
    click("cmdprev");
    enter("mskbirth", u"06151960"_s);
    // A month that has passed becomes the present one, and is that still when one comes back.
    choose("Cmbfrstyear", u"2020"_s);
    choose("Cmbfrstmonth", u"March"_s);
    EXPECT_EQ(find<QComboBox>("Cmbfrstmonth")->currentText(), u"July"_s);
    EXPECT_EQ(text_of("lblchanged"), u"March, 2020 has passed; payments can begin in July, 2020."_s);
    choose("Cmbfrstyear", u"2021"_s);
    EXPECT_EQ(find<QComboBox>("Cmbfrstmonth")->currentText(), u"March"_s);
    EXPECT_FALSE(find<QWidget>("lblchanged")->isVisible());
    choose("Cmbfrstyear", u"2020"_s);
    click("Cmdnext");
    click("cmdprev");
    EXPECT_EQ(find<QComboBox>("Cmbfrstmonth")->currentText(), u"July"_s);
    EXPECT_EQ(text_of("lblage"), u"60"_s);
}

// The birthday in the payment month counts as reached for the look-up, but not for the kind of
// table.
TEST_F(Periodic, TableIsThatOfTheAgeWithTheOwnRowMarked) {
    const auto expect_table = [&](const QString& kind, const QString& formula, const QString& years,
                                  const QString& oldest, const QString& youngest, int rows) {
        const QAbstractItemModel* table = find<QTableView>("grdlife")->model();
        EXPECT_EQ(text_of("lblgridtext2"), kind);
        EXPECT_EQ(text_of("lblgridtext5"), formula);
        EXPECT_EQ(table->headerData(2, Qt::Horizontal).toString(), years);
        ASSERT_EQ(table->rowCount(), rows);
        EXPECT_EQ(table->index(0, 0).data().toString(), oldest);
        EXPECT_EQ(table->index(rows - 1, 0).data().toString(), youngest);
    };
    const auto marked = [&] {
        QStringList ages;
        for (const QModelIndex& row : find<QTableView>("grdlife")->selectionModel()->selectedRows()) {
            ages << row.data().toString();
        }
        return ages.join(u' ');
    };
    go_to_method(u"06151950"_s, u"250000"_s, u"June"_s, u"2020"_s);
    click("optmethod_1");
    click("chkperiod_0");
    click("Cmdnext");
    expect_table(u"SINGLE LIFE EXPECTANCY"_s, u"*Life Expectancy=age+divisor"_s, u"LIFE EXPECTANCY"_s,
                 u"69"_s, u"16"_s, 54);
    EXPECT_EQ(marked(), QString()) << "it stands in the other table";
    EXPECT_EQ(text_of("lblgridtext4"), u"Age looked up: 70"_s);
    EXPECT_EQ(text_of("lblothertable"), u"This age is looked up in the minimum distribution table."_s);
    click("cmdprev");
    click("cmdprev");
    choose("Cmbfrstmonth", u"July"_s);
    click("Cmdnext");
    click("Cmdnext");
    expect_table(u"MINIMUM DISTRIBUTION"_s, u"*Minimum Distribution Years=age+divisor"_s,
                 u"MIN. DIST. YRS."_s, u"120"_s, u"70"_s, 51);
    EXPECT_EQ(marked(), u"70"_s);
    EXPECT_FALSE(find<QWidget>("lblothertable")->isVisible());
    click("cmdprev");
    click("cmdprev");
    enter("mskbirth", u"06151960"_s);
    click("Cmdnext");
    click("Cmdnext");
    EXPECT_EQ(marked(), u"60"_s);
    EXPECT_FALSE(find<QWidget>("lblothertable")->isVisible());
}

}  // namespace

}  // namespace kelvar::test
