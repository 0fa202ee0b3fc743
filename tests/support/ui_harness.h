// The whole program in one process, driven through its controls by their names, on the offscreen
// platform: own database, fixed date, messages answered as they appear.
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "main/program.h"
#include "shell/screen.h"
#include "tests/support/temporary_program_folder.h"

class QDialog;
class QMenu;

namespace kelvar::test {

class UiTest : public ::testing::Test, public QObject {
public:
    UiTest();
    ~UiTest() override;

    // Starts the program at its title screen; again after it was ended.
    void start_program();

    // Today for the program; takes effect at once.
    Date today{std::chrono::year{2020} / 1 / 15};
    // How yes/no messages are answered.
    bool answer_yes = false;
    bool escapes_questions = false;  // answers none
    // Where a PDF is saved when the program asks; empty cancels.
    QString save_as;
    // Whether prints that take so long that they show how far they are get cancelled.
    bool cancel_prints = false;
    // Entry of the next menus that is chosen; empty closes them.
    QString menu_entry;
    // Looks at every dialog, messages among them, while it is shown.
    std::function<void(QDialog&)> look_at_dialog = [](QDialog&) {};
    // Names of the modal notes shown, each closed with Escape.
    QStringList notes_shown;
    // Texts of the messages and questions shown since the last call.
    std::vector<std::string> take_messages();

    // To a display of 683 by 384, which is 1366 by 768 at twice the size.
    void go_to_small_display();
    // From the title screen to the menu, the participant screen, the method screen, and so on; without
    // the moment that the title's Next takes.
    void go_to_menu();
    void go_to_participant();
    void go_to_method(const QString& birth = QStringLiteral("06151950"),
                      const QString& value = QStringLiteral("250000"),
                      const QString& month = QStringLiteral("July"),
                      const QString& year = QStringLiteral("2020"));
    void go_to_length();
    void go_to_rates();

    // The control with this object name on the visible screen; the test fails when there is none.
    template <class Control>
    Control* find(const char* name) {
        auto* control = window->visible_screen()->findChild<Control*>(QString::fromLatin1(name));
        EXPECT_NE(control, nullptr) << name;
        return control;
    }
    QString screen_name() const { return window->visible_screen()->objectName(); }
    QString focus_name() const;
    QString text_of(const char* label);
    bool stands_out(const char* label);

    void click(const char* name);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // The keys of these characters, one by one, for whatever has the focus.
    void type(const char* characters);
    // Puts the focus on the box, replaces what it holds and leaves it with Tab.
    void enter(const char* name, const QString& text);
    // The same without leaving it.
    void type_into(const char* name, const QString& text);
    void choose(const char* list, const QString& entry);
    void settle();  // runs what is waiting in the event loop

    // The schedule as the grid shows it, and as the work table holds it in the grid's patterns.
    std::vector<QStringList> grid_rows();
    std::vector<QStringList> work_table_rows();

    TemporaryProgramFolder folder;
    std::unique_ptr<Program> program;
    MainWindow* window = nullptr;  // of the program
    Module1* module = nullptr;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void end_program();
    void save(QDialog* file_dialog);
    void choose_from(QMenu* menu);

    std::vector<std::string> messages_;
};

}  // namespace kelvar::test
