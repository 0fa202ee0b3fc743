// Results that are kept, set side by side, and entered again. Figures worked out with decimal
// arithmetic from the rules, for today 15 January 2020.

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "tests/support/ui_harness.h"
#include "widgets/grid.h"
#include "widgets/text.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

class KeptResults : public UiTest {
public:
    // From the method on: a lump sum, or payments over life or of a number.
    void keep(const char* method, const QString& number = {}) {
        click(method);
        if (method == std::string_view("optmethod_1")) {
            if (!find<QCheckBox>("chkperiod_0")->isChecked()) {
                click("chkperiod_0");
            }
            click("Cmdnext");
            click(number.isEmpty() ? "optlength_2" : "optlength_0");
            if (!number.isEmpty()) {
                enter("txtnumber", number);
            }
        }
        click("Cmdnext");
        if (!find<QCheckBox>("chkrate_1")->isChecked()) {
            click("chkrate_1");
        }
        click("Cmdnext");
        click("cmdkeep");
    }
    void back_to_method() {
        while (screen_name() != u"frmdist2"_s) {
            click("cmdprev");
        }
    }
    QStringList column(int column) {
        const QAbstractItemModel* rows = find<Grid>("grdchoices")->model();
        QStringList texts;
        for (int row = 0; row < rows->rowCount(); ++row) {
            texts << rows->index(row, column).data().toString();
        }
        return texts;
    }
};

TEST_F(KeptResults, StandSideBySideAndAreEnteredAgain) {
    go_to_method();
    click("cmdprev");
    enter("txtname", u"Ann"_s);
    click("Cmdnext");
    keep("optmethod_0");
    EXPECT_EQ(text_of("lblsaved"), u"Kept as 1: lump sum at 5%."_s);
    click("cmdkeep");
    EXPECT_EQ(text_of("lblsaved"), u"Kept already as 1: lump sum at 5%."_s);
    back_to_method();
    keep("optmethod_1");
    back_to_method();
    keep("optmethod_1", u"180"_s);
    EXPECT_EQ(find<QPushButton>("cmdchoices")->text(), u"Ch&oices (3)"_s);
    save_as = to_qt((folder.path() / "three.kelvar").string());
    press(Qt::Key_S, Qt::ControlModifier);
    click("cmdchoices");
    EXPECT_EQ(column(10), (QStringList{u"$256,285.85"_s, u"$578,796.05"_s, u"$381,185.29"_s}));
    EXPECT_EQ(column(5), (QStringList{u""_s, u"349"_s, u"180"_s}));
    EXPECT_TRUE(text_of("lbleven").startsWith(
        u"Paid so far, choice 1 (lump sum $256,285.85 in July, 2020) is ahead until "_s))
        << text_of("lbleven").toStdString();
    const QString participant = save_as;
    save_as = to_qt((folder.path() / "choices.csv").string());
    menu_entry = u"&CSV..."_s;
    click("cmdsave");
    QFile csv(save_as);
    ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
    EXPECT_EQ(
        csv.readAll().replace("\r\n", "\n").toStdString(),
        "Choice,Rate,Lump Sum,First,Last Full Year,No.,Ends,Age,Earnings,Fees,"
        "Total Paid\n"
        "1: lump sum,5%,256285.85,,,,7/2020,70,6310.79,24.93,256285.85\n"
        "2: monthly over life,5%,,734.30,3090.02,349,7/2049,99,331157.41,2361.42,578796.05\n"
        "3: 180 monthly payments,5%,,1423.73,2944.19,180,6/2035,85,132419.24,1233.97,381185.29\n");
    save_as = participant;
    click("chkfall");
    EXPECT_EQ(column(0)[1], u"after a fall of 20%"_s);
    EXPECT_EQ(column(0).size(), 6);
    press(Qt::Key_Space);
    find<Grid>("grdchoices")->setFocus();
    press(Qt::Key_Down);
    choose("cmbprices", u"3%"_s);
    EXPECT_TRUE(text_of("lblprices").startsWith(u"At 3% a year, what $1.00 buys today takes $"_s));
    find<Grid>("grdchoices")->setFocus();
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_TRUE(column(0)[0].startsWith(u"1: monthly over "_s));
    EXPECT_EQ(find<Grid>("grdchoices")->currentIndex().row(), 0) << "goes with it";
    press(Qt::Key_Delete);
    EXPECT_EQ(column(0), (QStringList{u"1: lump sum"_s, u"2: 180 monthly payments"_s}));
    press(Qt::Key_Down);
    click("chkfall");
    EXPECT_EQ(find<Grid>("grdchoices")->currentIndex().row(), 2) << "the same choice";
    find<Grid>("grdchoices")->setFocus();
    press(Qt::Key_End);
    press(Qt::Key_Return);
    EXPECT_EQ(screen_name(), u"frmperio"_s);
    EXPECT_EQ(text_of("lbltotalvalue"), u"$381,185.29"_s);
    EXPECT_EQ(module->scenario.name, "Ann");
    click("cmdkeep");
    EXPECT_EQ(text_of("lblsaved"), u"Kept already as 2: 180 monthly payments at 5%."_s);
    click("cmdchoices");
    press(Qt::Key_O, Qt::ControlModifier);  // over a screen that no step leads to
    EXPECT_EQ(take_messages().size(), 1U) << "choices have changed";
    back_to_method();
    click("cmdprev");
    EXPECT_EQ(find<QLineEdit>("txtcurvalue")->text(), u"250,000.00"_s);
    EXPECT_TRUE(take_messages().empty());

    start_program();
    go_to_menu();
    press(Qt::Key_O, Qt::ControlModifier);
    click("cmdchoices");
    EXPECT_EQ(column(0).size(), 3) << "as the file has them";
    click("cmdprev");
    click("cmdmenu");
    EXPECT_TRUE(module->visit.choices.empty());
}

TEST_F(KeptResults, AreSixAndSayWhyOneHasNoFigures) {
    go_to_method();
    keep("optmethod_1");
    for (int number = 100; number < 105; ++number) {
        back_to_method();
        keep("optmethod_1", QString::number(number));
    }
    back_to_method();
    keep("optmethod_0");
    const auto refused = take_messages();
    ASSERT_EQ(refused.size(), 1U);
    EXPECT_TRUE(refused[0].ends_with("\n6: 104 monthly payments at 5%")) << refused[0];
    today = Date{std::chrono::year{2020} / 8 / 1};
    click("cmdchoices");
    EXPECT_EQ(column(2)[5], u"Invalid month that you wish to begin payments."_s);
    find<Grid>("grdchoices")->setFocus();
    for (int kept = 6; kept > 0; --kept) {
        press(Qt::Key_Delete);
    }
    EXPECT_TRUE(find<QLabel>("lbleven")->isVisible()) << "says that nothing is kept";
}

}  // namespace

}  // namespace kelvar::test
