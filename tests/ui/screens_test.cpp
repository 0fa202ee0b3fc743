// What holds for every screen and for the program around them.

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <filesystem>
#include <fstream>

#include <SQLiteCpp/SQLiteCpp.h>

#include "shell/application.h"
#include "tests/support/ui_harness.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

class ScreenTest : public UiTest {
public:
    // Tab visits each control once, in reading order, and each has a name for a screen reader.
    void expect_keyboard_complete() {
        std::vector<QWidget*> expected;
        for (auto* widget : window->visible_screen()->findChildren<QWidget*>()) {
            const bool control = qobject_cast<QAbstractButton*>(widget) != nullptr ||
                                 qobject_cast<QLineEdit*>(widget) != nullptr ||
                                 qobject_cast<QComboBox*>(widget) != nullptr ||
                                 qobject_cast<QTableView*>(widget) != nullptr;
            // Of a group of options Tab reaches the chosen one, arrows the others.
            const auto* option = qobject_cast<QRadioButton*>(widget);
            const bool other_option = option != nullptr && option->group() != nullptr &&
                                      option->group()->checkedButton() != nullptr &&
                                      !option->isChecked();
            const bool reachable = widget->isVisible() && widget->isEnabled() && !other_option &&
                                   (widget->focusPolicy() & Qt::TabFocus) != 0;
            if (control && reachable && qobject_cast<QComboBox*>(widget->parentWidget()) == nullptr) {
                expected.push_back(widget);
            }
        }
        ASSERT_FALSE(expected.empty());
        QWidget* first = expected.front();
        first->setFocus(Qt::TabFocusReason);
        for (QWidget* widget : expected) {
            EXPECT_EQ(focus_name(), widget->objectName()) << screen_name().toStdString();
            const auto* button = qobject_cast<QAbstractButton*>(widget);
            EXPECT_FALSE(widget->accessibleName().isEmpty() &&
                         (button == nullptr || button->text().isEmpty()))
                << widget->objectName().toStdString();
            press(Qt::Key_Tab);
        }
        EXPECT_EQ(focus_name(), first->objectName()) << "Tab does not come round";
    }
};

TEST_F(ScreenTest, AreKeyboardComplete) {
    expect_keyboard_complete();
    click("Cmdnext");
    expect_keyboard_complete();
    click("Cmdnext");
    expect_keyboard_complete();
    enter("mskbirth", u"06151950"_s);
    enter("txtcurvalue", u"250000"_s);
    click("Cmdnext");
    click("optmethod_1");
    expect_keyboard_complete();
    click("chkperiod_1");
    click("Cmdnext");
    click("optlength_2");
    expect_keyboard_complete();
    click("Cmdnext");
    expect_keyboard_complete();
    click("chkrate_3");
    click("Cmdnext");
    ASSERT_EQ(screen_name(), u"frmperio"_s);
    expect_keyboard_complete();
}

TEST_F(ScreenTest, HaveTheStandardSize) {
    EXPECT_EQ(window->windowTitle(), u"Kelvar"_s);
    EXPECT_EQ(window->visible_screen()->size(), QSize(869, 680));
    EXPECT_EQ(module->scenario.main_offset_x, window->x());
}

TEST_F(ScreenTest, TitleLabelLeavesTheTitleOpenUnderTheMenu) {
    click("lblkelv");
    EXPECT_EQ(screen_name(), u"frmdist"_s);
    window->hide(ScreenId::frmdist);
    EXPECT_EQ(screen_name(), u"frmkelvd"_s);
    click("Cmdnext");
    EXPECT_EQ(screen_name(), u"frmdist"_s);
}

TEST_F(ScreenTest, CloseEndsTheProgram) {
    go_to_rates();
    click("cmdclose");
    EXPECT_FALSE(window->isVisible());
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
    for (const char* name : {"optmethod_0", "optmethod_2", "optmethod_3"}) {
        EXPECT_EQ(find<QWidget>(name)->isEnabled(), false) << name << " has no screen to lead to yet";
    }
}

TEST_F(ScreenTest, MissingHelpFileGivesOneMessage) {
    click("Cmdnext");
    click("cmdhelp");
    const auto messages = take_messages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].find(module->scenario.help_file), std::string::npos);
    EXPECT_EQ(screen_name(), u"frmdist"_s);
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

}  // namespace

}  // namespace kelvar::test
