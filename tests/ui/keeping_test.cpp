// A participant is saved to a file, left, and opened again; what comes back is compared with what was
// typed, by the work tables.

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDropEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <filesystem>
#include <fstream>

#include "core/numbers.h"
#include "engine/projection.h"
#include "engine/result_texts.h"
#include "input/rules/entries.h"
#include "tests/support/sql.h"
#include "tests/support/ui_harness.h"
#include "widgets/text.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

class Keeping : public UiTest {
public:
    Keeping() { save_as = path(u"Ann"_s); }

    QString path(const QString& name) {
        return to_qt((folder.path() / "").string()) + name + u".kelvar"_s;
    }

    void go_on() { click("Cmdnext"); }
    // From the method on, where `enter_method` and `enter_length` click and type.
    void go_to_result(const std::function<void()>& enter_method,
                      const std::function<void()>& enter_length, const char* rate) {
        go_to_method(u"06151950"_s);
        enter_method();
        go_on();
        if (screen_name() == u"frmdist3"_s) {
            enter_length();
            go_on();
        }
        click(rate);
        go_on();
    }
    void save() { press(Qt::Key_S, Qt::ControlModifier); }
    void open() { press(Qt::Key_O, Qt::ControlModifier); }

    std::vector<std::string> work_tables() {
        std::vector<std::string> rows = sql_rows(folder.database(), "SELECT * FROM schedule");
        const auto heading = sql_rows(folder.database(), "SELECT * FROM distrib");
        rows.insert(rows.end(), heading.begin(), heading.end());
        return rows;
    }
};

TEST_F(Keeping, WhatWasTypedComesBackToTheCent) {
    const auto monthly = [this] {
        click("optmethod_1");
        click("chkperiod_0");
    };
    const auto partial = [this](const char* box, const QString& text) {
        click("optmethod_2");
        enter(box, text);
        click("chkpartial_1");
        choose("cmbscnyear", u"2021"_s);
        choose("cmbscnmonth", u"February"_s);
    };
    const auto length = [this](const char* option, const char* box, const QString& text) {
        click(option);
        enter(box, text);
    };
    struct Case {
        const char* name;
        std::function<void()> method, length;
        const char* rate;
    };
    const Case cases[] = {
        {"lump sum", [&] { click("optmethod_0"); }, [] {}, "chkrate_2"},
        {"number", monthly, [&] { length("optlength_0", "txtnumber", u"118"_s); }, "chkrate_0"},
        {"amount", monthly, [&] { length("optlength_1", "txtfixamount", u"2500.5"_s); }, "chkrate_1"},
        {"life", monthly, [&] { click("optlength_2"); }, "chkrate_0"},
        {"joint life", monthly,
         [&] {
             click("optlength_2");
             click("oplifeexp_1");
             enter("mskbenebirth", u"06151970"_s);
         },
         "chkrate_4"},
        {"percentage", [&] { partial("cmbPercent", u"12.5"_s); }, [&] { click("optlength_2"); },
         "chkrate_0"},
        {"dollars", [&] { partial("txtpartial", u"40000"_s); },
         [&] { length("optlength_0", "txtnumber", u"12"_s); }, "chkrate_3"}};
    for (const Case& c : cases) {
        start_program();
        module->database().empty_work_tables();  // as opening does
        go_to_result(c.method, c.length, c.rate);
        ASSERT_TRUE(take_messages().empty()) << c.name;
        auto* rates = find<QComboBox>("cmbrate");
        rates->setCurrentIndex(rates->count() - 1);
        emit rates->activated(rates->count() - 1);
        const auto typed = work_tables();
        const QString screen = screen_name();
        save();
        EXPECT_EQ(window->windowTitle(), u"Ann.kelvar[*] - Kelvar"_s);
        EXPECT_EQ(QFileInfo(save_as).permissions() & ~(QFile::ReadUser | QFile::WriteUser),
                  QFile::ReadOwner | QFile::WriteOwner);
        EXPECT_TRUE(text_of("lblsaved").startsWith(u"Saved to "_s));
        const QString rate = rates->currentText();
        click("cmdprev");
        click("Cmdnext");  // as ever, at the first rate again
        EXPECT_EQ(find<QComboBox>("cmbrate")->currentIndex(), 0);

        start_program();
        go_to_menu();
        click("cmdopen");
        EXPECT_EQ(screen_name(), screen) << c.name;
        EXPECT_EQ(find<QComboBox>("cmbrate")->currentText(), rate) << c.name;
        EXPECT_EQ(work_tables(), typed) << c.name;
        const Entries entries = window->entered();
        const Entered by_rules = kelvar::enter(entries, module->database(), today);
        EXPECT_FALSE(by_rules.refused) << c.name;
        EXPECT_EQ(text_of("lbltotalvalue").toStdString(),
                  money_text(project(by_rules.scenario, *entries.shown_rate, today).total_paid))
            << c.name;
        QTest::qWait(250);
        EXPECT_FALSE(window->isWindowModified()) << c.name;
        EXPECT_TRUE(take_messages().empty()) << c.name;
        std::filesystem::remove(save_as.toStdString());
    }
}

TEST_F(Keeping, WhatIsRefusedTodayStopsAtItsScreen) {
    go_to_rates();
    click("chkrate_0");
    save();
    struct Case {
        const char* name;
        Date day;
        const char* sql;
        QString screen, focus;
        const char* message;
    };
    using namespace std::chrono_literals;
    for (const Case& c :
         {Case{"month that has passed", 2020y / 8 / 3, "", u"frmdist1"_s, u"Cmbfrstmonth"_s,
               "Invalid month that you wish to begin payments."},
          Case{"rate that is gone", 2020y / 1 / 16, "DELETE FROM rate WHERE rateid = 2", u"frmdrate"_s,
               u"chkrate_0"_s, "Select one or more annual rate of return."}}) {
        today = c.day;
        run_sql(folder.database(), c.sql);
        start_program();
        go_to_menu();
        open();
        EXPECT_EQ(take_messages(), std::vector<std::string>{c.message}) << c.name;
        EXPECT_EQ(screen_name(), c.screen) << c.name;
        EXPECT_EQ(focus_name(), c.focus) << c.name;
    }
    click("Cmdnext");  // with the rates that are left
    EXPECT_EQ(screen_name(), u"frmperio"_s);
}

TEST_F(Keeping, WhatComesAfterARefusalWaitsForIt) {
    go_to_rates();
    click("chkrate_3");
    save();
    today = Date{std::chrono::year{2020} / 8 / 3};
    start_program();
    go_to_menu();
    open();
    EXPECT_EQ(find<QLineEdit>("txtcurvalue")->text(), u"250,000.00"_s);
    save();
    for (int step = 0; step < 4; ++step) {
        click("Cmdnext");
    }
    EXPECT_EQ(screen_name(), u"frmperio"_s);
    EXPECT_EQ(text_of("lblfrstdate"), u"August, 2020"_s);
    EXPECT_EQ(find<QComboBox>("cmbrate")->currentText(), u" 7%"_s);
}

TEST_F(Keeping, NothingOfOneParticipantStaysForTheNext) {
    go_to_participant();
    find<QLineEdit>("txtname")->insert(u"Ann\u0085 Example\n"_s);
    EXPECT_EQ(module->scenario.name, "Ann Example") << "without control characters";
    module->visit.choices.emplace_back();
    click("cmdprev");
    EXPECT_EQ(module->scenario.name, "");
    EXPECT_TRUE(module->visit.choices.empty()) << "the menu begins afresh";
    start_program();
    go_to_rates();
    click("chkrate_0");
    click("Cmdnext");
    click("cmdmenu");
    EXPECT_EQ(work_tables(), std::vector<std::string>{std::string(13, ' ')});
    EXPECT_EQ(module->scenario.lookup_age, 0);
    EXPECT_EQ(module->scenario.birth_date, no_date);
    EXPECT_TRUE(take_messages().empty()) << "nobody is asked who has saved nothing";
}

TEST_F(Keeping, ChangesOfAFileAreAskedAboutBeforeTheyAreLost) {
    go_to_participant();
    enter("txtname", u"Ann Example"_s);
    enter("txtcurvalue", u"250000"_s);
    save();
    const std::string question = "Save the changes to Ann.kelvar?";
    click("cmdprev");
    EXPECT_TRUE(take_messages().empty()) << "nothing has changed";
    EXPECT_EQ(window->windowTitle(), u"Kelvar"_s);
    open();
    enter("txtcurvalue", u"260000"_s);
    QTest::qWait(250);
    EXPECT_TRUE(window->isWindowModified());
    escapes_questions = true;
    click("cmdprev");
    EXPECT_EQ(screen_name(), u"frmdist1"_s);
    window->QMainWindow::close();
    click("cmdclose");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(take_messages(), std::vector<std::string>(3, question));
    escapes_questions = false;
    click("cmdprev");  // No
    open();
    EXPECT_EQ(find<QLineEdit>("txtcurvalue")->text(), u"250,000.00"_s);
    enter("txtcurvalue", u"270000"_s);
    answer_yes = true;
    open();
    EXPECT_EQ(find<QLineEdit>("txtcurvalue")->text(), u"250,000.00"_s) << "read before it was saved";
    EXPECT_EQ(take_messages(), std::vector<std::string>(2, question));
    open();
    EXPECT_EQ(find<QLineEdit>("txtcurvalue")->text(), u"270,000.00"_s);
}

TEST_F(Keeping, AFileThatIsNoneChangesNothing) {
    std::ofstream(path(u"Bad"_s).toStdString()) << "{\"format\": 2}\n";
    window->open_file(path(u"Bad"_s));
    EXPECT_TRUE(take_messages().empty()) << "the title comes first";
    go_to_participant();
    const auto told = take_messages();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(
        told[0].ends_with("\"format\" in line 1 must be 1, the only format that this version of "
                          "Kelvar reads."))
        << told[0];
    enter("txtcurvalue", u"250000"_s);
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(path(u"Bad"_s))});
    auto* box = find<QWidget>("txtcurvalue");
    for (QWidget* target : {box, static_cast<QWidget*>(window)}) {
        QDragEnterEvent over(QPoint(), Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
        over.ignore();
        QApplication::sendEvent(target, &over);
        EXPECT_TRUE(target == box || over.isAccepted()) << "the window takes it";
    }
    QDialog dialog(window);
    dialog.setModal(true);
    look_at_dialog = [&](QDialog&) {
        QDragEnterEvent over(QPoint(), Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
        over.ignore();
        QApplication::sendEvent(window, &over);
        EXPECT_FALSE(over.isAccepted()) << "over a dialog nothing is opened";
    };
    dialog.exec();
    look_at_dialog = [](QDialog&) {};
    QDropEvent drop(QPointF(), Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &drop);
    EXPECT_EQ(take_messages(), told);
    EXPECT_EQ(find<QLineEdit>("txtcurvalue")->text(), u"250,000.00"_s);
}

}  // namespace

}  // namespace kelvar::test
