// What holds for every screen and for the program around them.

#include <unistd.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMouseEvent>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <filesystem>
#include <fstream>

#include <SQLiteCpp/SQLiteCpp.h>

#include "shell/application.h"
#include "tests/support/ui_harness.h"
#include "widgets/message_dialog.h"
#include "widgets/theme.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

class ScreenTest : public UiTest {
public:
    // Tab visits exactly these controls of the visible screen, in reading order, and comes round; each
    // has a name for a screen reader.
    void expect_tab_order(QStringList names) {
        SCOPED_TRACE(screen_name().toStdString());
        find<QWidget>(names.front().toLatin1())->setFocus(Qt::TabFocusReason);
        QStringList visited;
        for (qsizetype i = 0; i < names.size(); ++i) {
            visited << focus_name();
            const QWidget* widget = window->focusWidget();
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            EXPECT_FALSE(widget->accessibleName().isEmpty() &&
                         (button == nullptr || button->text().isEmpty()))
                << visited.back().toStdString();
            press(Qt::Key_Tab);
        }
        EXPECT_EQ(visited.join(u' ').toStdString(), names.join(u' ').toStdString());
        EXPECT_EQ(focus_name(), names.front());
    }
};

TEST_F(ScreenTest, TabFollowsTheReadingOrder) {
    const QStringList row{u"cmdhelp"_s, u"cmdsave"_s, u"picprev"_s, u"cmdprev"_s,
                          u"Cmdnext"_s, u"picnext"_s, u"cmdclose"_s};
    const QStringList print{u"cmdhelp"_s, u"cmdsave"_s, u"cmdprint"_s, u"cmdprintmenu"_s};
    const QStringList chart{u"cmdchart"_s, u"pichart"_s};
    const QStringList back{u"picprev"_s, u"cmdprev"_s, u"cmdclose"_s};
    expect_tab_order({u"lblkelv"_s, u"Cmdnext"_s, u"picnext"_s, u"cmdclose"_s});
    click("Cmdnext");
    expect_tab_order({u"pictime"_s, u"Picmethod"_s, u"piclengt"_s, u"piclast"_s, u"cmdchart"_s,
                      u"cmdopen"_s, u"cmdhelp"_s, u"Cmdnext"_s, u"picnext"_s, u"cmdclose"_s});
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    QApplication::sendEvent(window->focusWidget(), &held);
    EXPECT_EQ(screen_name(), u"frmdist"_s) << "Enter still held from the title";
    click("Cmdnext");
    EXPECT_EQ(focus_name(), u"mskbirth"_s);
    enter("mskbirth", u"06151950"_s);
    enter("txtcurvalue", u"250000"_s);
    expect_tab_order(QStringList{u"mskbirth"_s, u"txtcurvalue"_s, u"Cmbfrstmonth"_s, u"Cmbfrstyear"_s,
                                 u"txtname"_s} +
                     row);
    click("Cmdnext");
    EXPECT_EQ(focus_name(), u"optmethod_0"_s);
    click("optmethod_2");
    expect_tab_order(QStringList{u"optmethod_2"_s, u"txtpartial"_s, u"cmbPercent"_s, u"chkpartial_0"_s,
                                 u"chkpartial_1"_s, u"chkpartial_2"_s, u"chkpartial_3"_s,
                                 u"cmbscnmonth"_s, u"cmbscnyear"_s} +
                     row);
    click("optmethod_1");
    expect_tab_order(QStringList{u"optmethod_1"_s, u"chkperiod_0"_s, u"chkperiod_1"_s, u"chkperiod_2"_s,
                                 u"chkperiod_3"_s} +
                     row);
    click("chkperiod_1");
    click("Cmdnext");
    EXPECT_EQ(text_of("lblstep"), u"Step 3 of 4"_s);
    click("optlength_0");
    expect_tab_order(QStringList{u"optlength_0"_s, u"txtnumber"_s, u"grdlife"_s} + row);
    click("optlength_2");
    click("oplifeexp_1");
    expect_tab_order(QStringList{u"optlength_2"_s, u"oplifeexp_1"_s, u"mskbenebirth"_s, u"grdlife1"_s} +
                     row);
    click("oplifeexp_0");
    click("Cmdnext");
    expect_tab_order(QStringList{u"chkrate_0"_s, u"chkrate_1"_s, u"chkrate_2"_s, u"chkrate_3"_s,
                                 u"chkrate_4"_s, u"picrate_3"_s, u"picrate_2"_s, u"picrate_1"_s,
                                 u"picrate_0"_s, u"picnote"_s} +
                     row);
    click("chkrate_3");
    click("Cmdnext");
    EXPECT_FALSE(find<QWidget>("cmdcompare")->isEnabled());
    click("cmdprev");
    click("chkrate_4");
    click("Cmdnext");
    const QStringList result = QStringList{u"cmbrate"_s, u"cmdcompare"_s, u"cmdkeep"_s, u"summary"_s};
    const QStringList result_back{u"picprev"_s, u"cmdprev"_s, u"cmdmenu"_s, u"cmdclose"_s};
    expect_tab_order(result + QStringList{u"optview_0"_s, u"grddist"_s} + print + chart + result_back);
    click("optview_1");
    expect_tab_order(result + QStringList{u"optview_1"_s, u"grdyear"_s} + print + chart + result_back);
    click("cmdcompare");
    expect_tab_order(
        QStringList{u"grdcompare"_s, u"chkfall"_s, u"chkzero"_s, u"cmbprices"_s, u"grphcompare"_s} +
        print + back);
    click("cmdprev");
    click("cmdchart");
    expect_tab_order(QStringList{u"summary"_s, u"optchart_0"_s, u"grphsche"_s} + print + back);
}

TEST_F(ScreenTest, HaveTheStandardSizeUnlessTheDisplayIsSmaller) {
    EXPECT_EQ(window->windowTitle(), u"Kelvar"_s);
    EXPECT_EQ(window->visible_screen()->size(), QSize(869, 680));
    EXPECT_EQ(window->minimumSizeHint(), QSize(869, 680));
    EXPECT_EQ(module->scenario.main_offset_x, window->x());
    const QRect small = QGuiApplication::screens().at(1)->availableGeometry();
    window->windowHandle()->setScreen(QGuiApplication::screens().at(1));
    EXPECT_LT(window->minimumSizeHint().height(), small.height());
    window->resize(small.size() - QSize(10, 40));
    go_to_participant();
    for (const char* control : {"lbltitle", "Cmdnext", "cmdclose"}) {
        const auto* shown = find<QWidget>(control);
        EXPECT_EQ(shown->visibleRegion().boundingRect(), shown->rect()) << control;
    }
    enter("mskbirth", u"06151950"_s);
    enter("txtcurvalue", u"250000"_s);
    click("Cmdnext");
    click("optmethod_2");
    window->resize(small.size() - QSize(10, 40));
    settle();
    const QScrollBar* scrolled =
        window->visible_screen()->findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_GT(scrolled->maximum(), 0);
    find<QWidget>("cmdclose")->setFocus();  // below what scrolls
    press(Qt::Key_PageDown);
    const int below = scrolled->value();
    EXPECT_GT(below, 0);
    press(Qt::Key_PageUp);
    EXPECT_LT(scrolled->value(), below);
}

// What was in a box is gone with the first key, unless a click has set the cursor.
TEST_F(ScreenTest, TypingReplacesWhatABoxHeld) {
    go_to_participant();
    type("06151950\t250000\r");
    ASSERT_EQ(screen_name(), u"frmdist2"_s);
    press(Qt::Key_P, Qt::AltModifier);
    type("300000\t");
    EXPECT_EQ(find<QLineEdit>("txtcurvalue")->text(), u"300,000.00"_s);
    EXPECT_EQ(module->scenario.present_value, 300000.0);
    press(Qt::Key_B, Qt::AltModifier);
    press(Qt::Key_End);
    press(Qt::Key_B, Qt::AltModifier);  // the focus is there already
    type("400000");
    press(Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(find<QLineEdit>("txtcurvalue")->text(), u"400,000.00"_s);
    type("5/1/49\t");
    EXPECT_EQ(find<QLineEdit>("mskbirth")->text(), u"05/01/1949"_s);
    click("txtcurvalue");
    EXPECT_FALSE(find<QLineEdit>("txtcurvalue")->hasSelectedText());
    EXPECT_TRUE(take_messages().empty());
    type_into("txtcurvalue", u"0"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(take_messages().size(), 1U);
    EXPECT_EQ(find<QLineEdit>("txtcurvalue")->selectedText(), u"0.00"_s);
    press(Qt::Key_D, Qt::AltModifier);
    QGuiApplication::clipboard()->setText(u"5/7/49"_s);
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Tab);
    auto* birth = find<QLineEdit>("mskbirth");
    EXPECT_EQ(birth->text(), u"05/07/1949"_s);
    menu_entry = u"&Paste\tCtrl+V"_s;
    for (const QString& pasted : {u"1/2/1950"_s, u"1951"_s}) {
        QGuiApplication::clipboard()->setText(pasted);
        birth->setCursorPosition(0);
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, birth->mapToGlobal(QPoint()));
        QApplication::sendEvent(birth, &menu);
        EXPECT_EQ(birth->text(), u"01/02/1950"_s) << "a whole date or nothing";
    }
    // A key pressed before the message of the box before is there goes to nothing.
    type_into("mskbirth", u"13011950"_s);
    QTest::keyClick(birth, Qt::Key_Tab);
    QTest::keyClick(window->windowHandle(), Qt::Key_2);
    EXPECT_EQ(take_messages().size(), 1U);
    EXPECT_EQ(birth->text(), u"13/01/1950"_s);
    type("2");
    EXPECT_EQ(birth->displayText(), u"2_/__/____"_s);
    QTest::keyClick(birth, Qt::Key_3, Qt::AltModifier);  // no text, also where it leads nowhere
    EXPECT_EQ(birth->displayText(), u"2_/__/____"_s);
}

TEST_F(ScreenTest, ChosenOptionLeadsToWhereItsEntryIsTyped) {
    go_to_method();
    EXPECT_FALSE(text_of("lblquiet").isEmpty()) << "Next is grey";
    press(Qt::Key_A, Qt::AltModifier);
    type("100000\t");
    EXPECT_EQ(module->scenario.partial_amount, 100000.0);
    EXPECT_EQ(text_of("lblquiet"), QString());
    click("chkperiod_1");  // grey until its method is chosen
    EXPECT_EQ(focus_name(), u"optmethod_1"_s);
    EXPECT_EQ(module->scenario.method, partial_lump_sum);
    EXPECT_EQ(module->scenario.partial_amount, 100000.0);
    EXPECT_FALSE(find<QAbstractButton>("chkperiod_1")->isChecked());
    press(Qt::Key_Space);
    EXPECT_EQ(module->scenario.method, periodic_payments);
    click("txtpartial");
    EXPECT_EQ(focus_name(), u"optmethod_2"_s);
    EXPECT_EQ(module->scenario.method, periodic_payments);
    click("chkperiod_0");
    // Chosen where the focus does not go along, as by a screen reader.
    find<QAbstractButton>("optmethod_2")->click();
    find<QWidget>("chkpartial_0")->setFocus();
    find<QAbstractButton>("optmethod_1")->click();
    EXPECT_EQ(focus_name(), u"optmethod_1"_s);
    click("Cmdnext");
    press(Qt::Key_U, Qt::AltModifier);
    type("120");
    EXPECT_EQ(find<QLineEdit>("txtnumber")->text(), u"120"_s);
    for (const auto& [grey, option] :
         {std::pair{"txtfixamount", u"optlength_1"_s}, {"oplifeexp_1", u"optlength_2"_s}}) {
        click(grey);
        EXPECT_EQ(focus_name(), option);
        EXPECT_EQ(module->scenario.length_option, by_number_of_payments);
        EXPECT_FALSE(module->scenario.joint_life);
    }
    EXPECT_TRUE(take_messages().empty());
}

// Also where it was chosen before, and the focus stays on the option.
TEST_F(ScreenTest, WhatAnOptionOpensAndWhatIsSaidOfAListIsInSight) {
    go_to_small_display();
    window->resize(869, 500);
    go_to_length();
    const auto in_sight = [this](const char* name) {
        const auto* opened = find<QWidget>(name);
        return opened->visibleRegion().boundingRect() == opened->rect();
    };
    click("optlength_2");
    click("oplifeexp_1");
    EXPECT_TRUE(in_sight("frame3"));
    click("optlength_0");
    EXPECT_FALSE(find<QWidget>("frame3")->isVisible());
    press(Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(in_sight("frame3"));
    click("cmdprev");
    click("cmdprev");
    window->resize(869, 380);
    for (const char* name : {"mskbirth", "Cmbfrstmonth"}) {
        settle();
        find<QWidget>(name)->setFocus();
    }
    EXPECT_TRUE(in_sight("lbllatest"));
    const int width_beside_bar = find<QWidget>("framtime")->width();
    window->resize(869, 680);
    settle();
    EXPECT_EQ(find<QScrollArea>("page")->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(find<QWidget>("framtime")->width(), width_beside_bar) << "a frame jumped";
}

TEST_F(ScreenTest, WhatBelongsToAnOptionStandsInItsCardBelowItsText) {
    const auto place = [this](const char* name) {
        const auto* widget = find<QWidget>(name);
        return QRect(widget->mapTo(window, QPoint()), widget->size());
    };
    const auto expect_below = [&](const char* option, const std::vector<const char*>& names) {
        auto* button = find<QRadioButton>(option);
        EXPECT_EQ(button->parentWidget()->objectName(), u"card"_s);
        QStyleOptionButton shown;
        shown.initFrom(button);
        const QRect text =
            button->style()->subElementRect(QStyle::SE_RadioButtonContents, &shown, button);
        for (const char* name : names) {
            EXPECT_EQ(place(name).left(), place(option).left() + text.left()) << name;
        }
    };
    go_to_method();
    expect_below("optmethod_1", {"chkperiod_0"});
    expect_below("optmethod_2", {"lblmethod_0", "chkpartial_0", "lblmethod_1"});
    EXPECT_LE(place("lblmethod_0").top() - place("txtpartial").bottom(), theme::grid) << "a hole";
    click("cmdprev");
    click("Cmdnext");
    click("optmethod_1");
    click("chkperiod_0");
    click("Cmdnext");
    expect_below("optlength_0", {"txtnumber", "lblnumberlimit"});
    expect_below("optlength_1", {"lblamountlimit"});
    expect_below("optlength_2", {"Label1", "oplifeexp_0", "lblspouselimit"});
    EXPECT_EQ(place("lblnumberlimit").top() - place("txtnumber").bottom() - 1, 6);
    EXPECT_LT(place("txtnumber").width(), place("txtfixamount").width() / 2);
}

TEST_F(ScreenTest, EnterIsNextAfterANoteAndNoOtherScreenWakesOnTheWay) {
    go_to_length();
    click("optlength_2");
    QStringList woken;
    connect(qApp, &QApplication::focusChanged, window, [&](QWidget*, const QWidget* now) {
        for (; now != nullptr; now = now->parentWidget()) {
            woken << now->objectName();
        }
    });
    click("Cmdnext");
    ASSERT_EQ(screen_name(), u"frmdrate"_s);
    click("cmdprev");
    ASSERT_EQ(screen_name(), u"frmdist3"_s);
    EXPECT_FALSE(woken.contains(u"frmdist2"_s));
    click("Cmdnext");
    click("picnote");
    press(Qt::Key_Return);
    EXPECT_EQ(screen_name(), u"frmdrate"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(take_messages(), std::vector<std::string>{"Select one or more annual rate of return."});
}

TEST_F(ScreenTest, AllStandsForTheFourRates) {
    go_to_method();
    click("optmethod_0");
    click("Cmdnext");
    EXPECT_EQ(text_of("lblstep"), u"Step 3 of 3"_s);
    const auto ticks = [&] {
        std::string all;
        for (const char* box : {"chkrate_0", "chkrate_1", "chkrate_2", "chkrate_3", "chkrate_4"}) {
            all += find<QAbstractButton>(box)->isChecked() ? 'x' : '-';
        }
        return all;
    };
    for (const auto& [box, expected] : {std::pair{"chkrate_0", "xxxxx"},
                                        {"chkrate_2", "-x-xx"},
                                        {"chkrate_2", "-xxxx"},
                                        {"chkrate_0", "xxxxx"},
                                        {"chkrate_0", "-----"}}) {
        click(box);
        EXPECT_EQ(ticks(), expected) << box;
    }
    EXPECT_EQ(find<QWidget>("chkrate_0")->width(), find<QWidget>("chkrate_0")->sizeHint().width());
    click("cmdprev");
    EXPECT_EQ(screen_name(), u"frmdist2"_s) << "a lump sum has no length";
}

// Typing goes on while the message comes up.
TEST(Message, TakesNoKeyInItsFirstHalfSecond) {
    MessageDialog message(MessageDialog::Kind::message, u"Not so fast."_s, nullptr);
    message.show();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space}) {
        QTest::keyClick(&message, key);
        EXPECT_TRUE(message.isVisible()) << key;
    }
    QTest::keyClick(&message, Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(message.isVisible());
    QTest::qWait(600);
    QTest::keyClick(&message, Qt::Key_Return);
    EXPECT_FALSE(message.isVisible());
}

TEST_F(ScreenTest, TitleLabelLeavesTheTitleOpenUnderTheMenu) {
    click("lblkelv");
    EXPECT_EQ(screen_name(), u"frmdist"_s);
    window->hide(ScreenId::frmdist);
    EXPECT_EQ(screen_name(), u"frmkelvd"_s);
    click("Cmdnext");
    EXPECT_EQ(screen_name(), u"frmdist"_s);
}

TEST_F(ScreenTest, BirthDateAndEnterOfferTheYears) {
    go_to_participant();
    click("mskbirth");
    type("06151990");
    press(Qt::Key_Return);
    EXPECT_EQ(take_messages(), std::vector<std::string>{"Invalid present value of the account."});
    EXPECT_EQ(focus_name(), u"txtcurvalue"_s);
    EXPECT_EQ(find<QComboBox>("Cmbfrstyear")->count(), 42);  // 2020 to 2061
}

// The list that the mouse opened has the focus by then; the box is left all the same.
TEST_F(ScreenTest, ClickIntoAListTakesOverTheBoxBefore) {
    go_to_participant();
    type_into("txtcurvalue", u"250000"_s);
    click("mskbirth");
    EXPECT_EQ(find<QLineEdit>("txtcurvalue")->text(), u"250,000.00"_s);
    type_into("mskbirth", u"06151990"_s);
    click("Cmbfrstmonth");
    EXPECT_EQ(find<QComboBox>("Cmbfrstyear")->count(), 42);  // 2020 to 2061
    EXPECT_EQ(text_of("lblage"), u"29"_s);
    type_into("mskbirth", u"13011950"_s);
    click("Cmbfrstmonth");
    EXPECT_EQ(take_messages(), std::vector<std::string>{"Invalid birth date."});
    EXPECT_EQ(focus_name(), u"mskbirth"_s);
}

// The first click of the two was on the screen before.
TEST_F(ScreenTest, DoubleClickActsOnce) {
    for (const char* name : {"pictime", "lbltime"}) {
        start_program();
        click("Cmdnext");
        const auto* control = find<QWidget>(name);
        const QPoint spot = control->mapTo(window, control->rect().center());
        start_program();
        QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, spot);
        settle();
        EXPECT_EQ(screen_name(), u"frmdist"_s) << name;
        EXPECT_EQ(focus_name(), u"Cmdnext"_s) << name;
    }
    start_program();
    go_to_length();
    auto* next = find<QPushButton>("Cmdnext");
    const QPointF spot = next->rect().center();
    for (const auto type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, spot, next->mapToGlobal(spot), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(next, &event);
    }
    EXPECT_TRUE(take_messages().empty());
    EXPECT_EQ(screen_name(), u"frmdist3"_s);
    EXPECT_EQ(focus_name(), u"optlength_0"_s);
}

TEST_F(ScreenTest, CloseEndsTheProgram) {
    go_to_rates();
    press(Qt::Key_Escape);  // nothing where one types
    EXPECT_EQ(screen_name(), u"frmdrate"_s);
    click("cmdclose");
    EXPECT_FALSE(window->isVisible());
    start_program();
    go_to_participant();
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
    start_program();
    go_to_participant();
    static_cast<QWidget*>(window)->close();  // as the button of the window does
    EXPECT_EQ(window->visible_screen(), nullptr);
}

TEST_F(ScreenTest, FrequencyBoxesAllowOneTick) {
    go_to_method();
    click("optmethod_1");
    for (const auto& [box, frequency] :
         {std::pair{"chkperiod_0", 12}, {"chkperiod_3", 1}, {"chkperiod_1", 4}, {"chkperiod_2", 2}}) {
        click(box);
        EXPECT_EQ(module->scenario.frequency, frequency) << box;
    }
    click("chkperiod_2");
    EXPECT_EQ(module->scenario.frequency, 0);
}

TEST_F(ScreenTest, AmountOfAMethodThatIsGivenUpIsNotComplainedAbout) {
    go_to_method();
    click("optmethod_2");
    enter("txtpartial", u"50000"_s);
    EXPECT_EQ(find<QComboBox>("cmbPercent")->currentText(), u"20.00"_s);
    for (const QString& text : {u"abc"_s, u"900000"_s, QString()}) {
        type_into("txtpartial", text);
        click("optmethod_0");
        EXPECT_TRUE(take_messages().empty()) << text.toStdString();
        EXPECT_EQ(module->scenario.partial_amount, 0.0);
        EXPECT_EQ(module->scenario.partial_percent, "");
        click("optmethod_2");
    }
    EXPECT_EQ(find<QComboBox>("cmbPercent")->currentText(), QString()) << "of the amount before";
    find<QComboBox>("cmbPercent")->setFocus();
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_2, Qt::Key_Period, Qt::Key_5}) {
        press(key);
    }
    click("optmethod_1");
    click("optmethod_2");
    EXPECT_EQ(module->scenario.partial_amount, 31250.0);
    EXPECT_TRUE(take_messages().empty());
}

TEST_F(ScreenTest, RolloverOnlyShowsItsNote) {
    go_to_rates();
    click("cmdprev");
    click("cmdprev");
    for (const bool by_mouse : {true, false}) {
        if (by_mouse) {
            click("optmethod_3");
        } else {
            click("optmethod_2");
            press(Qt::Key_Backtab);
            press(Qt::Key_Down);
        }
        EXPECT_EQ(screen_name(), u"frmderrmsg"_s);
        // Reaches the note, whichever way led to it; what was hidden must not wake before its screen
        // does.
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
        for (const QPushButton* next : window->findChildren<QPushButton*>(u"Cmdnext"_s)) {
            EXPECT_FALSE(next->isVisible());
        }
        settle();
        EXPECT_EQ(screen_name(), u"frmdist2"_s);
    }
    EXPECT_FALSE(find<QWidget>("Cmdnext")->isEnabled());
    EXPECT_TRUE(text_of("lblquiet").contains(u"rollover"_s));
    EXPECT_FALSE(find<QWidget>("chkperiod_0")->isEnabled());
    QTest::mouseClick(find<QRadioButton>("optmethod_3"), Qt::LeftButton);
    click("optmethod_1");  // faster than the note
    EXPECT_EQ(screen_name(), u"frmdist2"_s);
    EXPECT_TRUE(find<QWidget>("Cmdnext")->isEnabled());
}

TEST_F(ScreenTest, MissingHelpFileGivesOneMessage) {
    click("Cmdnext");
    click("cmdhelp");
    const auto messages = take_messages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].find(module->scenario.help_file), std::string::npos);
    EXPECT_EQ(screen_name(), u"frmdist"_s);
}

TEST_F(ScreenTest, FailureWhileStoringEndsTheProgramAndLeavesNoHalfSchedule) {
    go_to_rates();
    click("chkrate_1");
    SQLite::Database(folder.database().string(), SQLite::OPEN_READWRITE)
        .exec(
            "CREATE TRIGGER full_disk BEFORE INSERT ON schedule WHEN NEW.number = 100 "
            "BEGIN SELECT RAISE(ABORT, 'no room'); END");
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // a fork would have no threads to draw with
    EXPECT_EXIT(
        {
            QTimer::singleShot(0, this, [this] { click("Cmdnext"); });
            _exit(Application::exec());
        },
        ::testing::ExitedWithCode(1), "run-time error: .*vestoraq.mdb: no room");
    EXPECT_TRUE(work_table_rows().empty());
}

// The real program, in a folder of its own, with a database that cannot be used.
TEST(StartUp, FailureNamesTheFileAndExitsWith1) {
    struct Case {
        const char* name;
        std::function<void(const std::filesystem::path&)> spoil;
    };
    const auto sql = [](const char* statement) {
        return [statement](const std::filesystem::path& file) {
            SQLite::Database(file.string(), SQLite::OPEN_READWRITE).exec(statement);
        };
    };
    const Case cases[] = {
        {"missing", [](const auto& file) { std::filesystem::remove(file); }},
        {"empty", [](const auto& file) { std::filesystem::resize_file(file, 0); }},
        {"foreign", [](const auto& file) { std::ofstream(file) << "This is no database at all."; }},
        {"read-only",
         [](const auto& file) {
             std::filesystem::permissions(file, std::filesystem::perms::owner_read);
         }},
        {"without a table", sql("DROP TABLE joinlife")},
        {"without its heading row", sql("DELETE FROM distrib")},
        {"with a rate as a text", sql("UPDATE rate SET rate = '5,5' WHERE rateid = 1")},
    };
    for (const Case& c : cases) {
        const TemporaryProgramFolder folder;
        const std::filesystem::path program = folder.path() / "kelvar";
        std::filesystem::copy_file(KELVAR_PROGRAM, program);
        c.spoil(folder.database());
        QProcess process;  // inherits the offscreen platform
        process.start(QString::fromStdString(program.string()), QStringList());
        ASSERT_TRUE(process.waitForFinished(20000)) << c.name;
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << c.name;
        EXPECT_EQ(process.exitCode(), 1) << c.name;
        const std::string error = process.readAllStandardError().toStdString();
        EXPECT_NE(error.find(folder.database().string()), std::string::npos) << c.name << ": " << error;
        EXPECT_EQ(error.find("run-time error"), error.rfind("run-time error"))
            << c.name << ": " << error;
    }
}

// A program that is open has painted its window, which the toolkit tells when it is asked to.
TEST(StartUp, OneProgramAtATimeInAFolder) {
    const TemporaryProgramFolder folder;
    const std::filesystem::path program = folder.path() / "kelvar";
    std::filesystem::copy_file(KELVAR_PROGRAM, program);
    const auto start = [&](QProcess& process) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_LOGGING_RULES"_s, u"qt.widgets.painting=true"_s);
        process.setProcessEnvironment(environment);
        process.setReadChannel(QProcess::StandardError);
        process.start(QString::fromStdString(program.string()), QStringList());
    };
    const auto expect_open = [&](QProcess& process) {
        start(process);
        QByteArray told;
        while (!told.contains("Flushing") && process.waitForReadyRead(20000)) {
            told += process.readAll();
        }
        EXPECT_TRUE(told.contains("Flushing")) << told.toStdString();
    };
    QProcess first;
    expect_open(first);
    QProcess second;
    start(second);
    ASSERT_TRUE(second.waitForFinished(20000));
    EXPECT_EQ(second.exitCode(), 1);
    EXPECT_TRUE(second.readAll().contains("already open"));
    EXPECT_EQ(first.state(), QProcess::Running);
    first.kill();
    ASSERT_TRUE(first.waitForFinished(20000));
    expect_open(second);
    second.kill();
    ASSERT_TRUE(second.waitForFinished(20000));
}

}  // namespace

}  // namespace kelvar::test
