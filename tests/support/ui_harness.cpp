#include "tests/support/ui_harness.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QAbstractItemModel>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QWindow>

#include "core/numbers.h"
#include "widgets/message_dialog.h"
#include "widgets/text.h"

namespace kelvar::test {

using namespace Qt::StringLiterals;

UiTest::UiTest() {
    qApp->installEventFilter(this);
    start_program();
}

void UiTest::start_program() {
    end_program();
    program = std::make_unique<Program>(folder.path(), [this] { return today; });
    window = &program->window();
    module = &program->module();
    program->open();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
}

UiTest::~UiTest() {
    qApp->removeEventFilter(this);
    end_program();
    settle();
}

void UiTest::end_program() {
    window = nullptr;
    module = nullptr;
    // Closed screens, as the event loop deletes them when the program ends.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    program.reset();
}

bool UiTest::eventFilter(QObject* watched, QEvent* event) {
    auto* note = qobject_cast<QDialog*>(watched);
    if (note != nullptr && event->type() == QEvent::Show) {
        QTimer::singleShot(0, note, [this, note] { look_at_dialog(*note); });
    }
    const bool is_message = qobject_cast<MessageDialog*>(watched) != nullptr;
    if (note != nullptr && !is_message && event->type() == QEvent::Show) {
        notes_shown << note->objectName();
        QTimer::singleShot(0, note, [this, note] {
            if (auto* box = qobject_cast<QMessageBox*>(note)) {
                auto* file_dialog = qobject_cast<QDialog*>(box->parentWidget());
                if (QAbstractButton* overwrite = box->button(QMessageBox::Yes)) {
                    overwrite->click();
                } else {  // there is no such file
                    box->accept();
                    QTimer::singleShot(0, file_dialog, &QDialog::reject);
                }
            } else if (qobject_cast<QFileDialog*>(note) != nullptr && !save_as.isEmpty()) {
                save(note);
            } else if (note->isVisible() &&
                       (note->objectName() != QLatin1String("printprogress") || cancel_prints)) {
                QTest::keyClick(note, Qt::Key_Escape);
            }
        });
    }
    auto* menu = qobject_cast<QMenu*>(watched);
    if (menu != nullptr && event->type() == QEvent::Show) {
        QTimer::singleShot(0, menu, [this, menu] { choose_from(menu); });
    }
    auto* dialog = qobject_cast<MessageDialog*>(watched);
    if (dialog != nullptr && event->type() == QEvent::Show) {
        messages_.push_back(to_utf8(dialog->findChild<QLabel*>(QStringLiteral("lblmsg"))->text()));
        const bool question = dialog->objectName() == QLatin1String("frmmsg1");
        const char* button = !question ? "cmdok" : answer_yes ? "cmdyes" : "cmdNo";
        QTimer::singleShot(0, dialog, [dialog, button, escapes = question && escapes_questions] {
            if (escapes) {
                dialog->reject();  // Escape itself is not taken so soon
                return;
            }
            QTest::mouseClick(dialog->findChild<QPushButton*>(QString::fromLatin1(button)),
                              Qt::LeftButton);
        });
    }
    return false;
}

void UiTest::save(QDialog* file_dialog) {
    auto* name = file_dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
    name->setText(save_as);
    QTest::keyClick(name, Qt::Key_Return);
}

void UiTest::choose_from(QMenu* menu) {
    for (QAction* action : menu->actions()) {
        if (!menu_entry.isEmpty() && action->text() == menu_entry) {
            menu->setActiveAction(action);
            QTest::keyClick(menu, Qt::Key_Return);
            return;
        }
    }
    menu->close();
}

std::vector<std::string> UiTest::take_messages() {
    settle();
    return std::exchange(messages_, {});
}

void UiTest::settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // No window manager here gives the focus back when a message has closed.
    if (window != nullptr && window->isVisible() && !window->isActiveWindow()) {
        window->activateWindow();
    }
    QCoreApplication::processEvents();
}

QString UiTest::focus_name() const {
    const QWidget* focus = window->focusWidget();
    return focus == nullptr ? QString() : focus->objectName();
}

QString UiTest::text_of(const char* label) {
    const QString text = find<QLabel>(label)->text();
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

bool UiTest::stands_out(const char* label) {
    return find<QLabel>(label)->font().bold();
}

void UiTest::click(const char* name) {
    auto* control = find<QWidget>(name);
    // An option's caption can end before the middle of the control.
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(10, control->height() / 2));
    settle();
}

void UiTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window->focusWidget(), key, modifiers);
    settle();
}

void UiTest::type(const char* characters) {
    for (const char* character = characters; *character != '\0'; ++character) {
        QTest::keyClick(window->focusWidget(), *character);
        settle();
    }
}

void UiTest::type_into(const char* name, const QString& text) {
    auto* box = find<QWidget>(name);
    box->setFocus(Qt::TabFocusReason);
    QTest::keySequence(box, QKeySequence::SelectAll);
    QTest::keyClick(box, Qt::Key_Delete);
    for (const QChar character : text) {
        QTest::keyClick(box, character.toLatin1());
    }
    settle();
}

void UiTest::enter(const char* name, const QString& text) {
    type_into(name, text);
    if (window->focusWidget() == find<QWidget>(name)) {
        press(Qt::Key_Tab);
    }
}

void UiTest::choose(const char* list, const QString& entry) {
    auto* box = find<QComboBox>(list);
    const int index = box->findText(entry);
    ASSERT_GE(index, 0) << list << " does not offer " << entry.toStdString();
    box->setCurrentIndex(index);
    emit box->activated(index);  // as by a user, also where the entry was chosen already
    settle();
}

void UiTest::go_to_small_display() {
    QScreen* small = QGuiApplication::screens().at(1);
    window->windowHandle()->setScreen(small);
    settle();
    window->resize(small->size() - QSize(10, 40));
    settle();
}

void UiTest::go_to_menu() {
    window->close(ScreenId::frmkelvd);
    window->show(ScreenId::frmdist);
    settle();
}

void UiTest::go_to_participant() {
    go_to_menu();
    click("Cmdnext");
    ASSERT_EQ(screen_name(), QLatin1String("frmdist1"));
}

void UiTest::go_to_method(const QString& birth, const QString& value, const QString& month,
                          const QString& year) {
    go_to_participant();
    enter("mskbirth", birth);
    enter("txtcurvalue", value);
    choose("Cmbfrstyear", year);
    choose("Cmbfrstmonth", month);
    click("Cmdnext");
    ASSERT_EQ(screen_name(), QLatin1String("frmdist2"));
}

void UiTest::go_to_length() {
    go_to_method();
    click("optmethod_1");
    click("chkperiod_0");
    click("Cmdnext");
    ASSERT_EQ(screen_name(), QLatin1String("frmdist3"));
}

void UiTest::go_to_rates() {
    go_to_length();
    click("optlength_2");
    click("Cmdnext");
    ASSERT_EQ(screen_name(), QLatin1String("frmdrate"));
}

std::vector<QStringList> UiTest::grid_rows() {
    const QAbstractItemModel* model = find<QTableView>("grddist")->model();
    std::vector<QStringList> rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column) {
            cells << model->index(row, column).data().toString();
        }
        rows.push_back(cells);
    }
    return rows;
}

std::vector<QStringList> UiTest::work_table_rows() {
    const SQLite::Database file(folder.database().string());
    SQLite::Statement select(file,
                             "SELECT number, remaining, startbalance, payment, remainbalance, "
                             "Month, Year FROM schedule ORDER BY number");
    const auto money = [&](int column, const char* pattern) {
        return to_qt(format_number(select.getColumn(column).getDouble(), pattern));
    };
    std::vector<QStringList> rows;
    while (select.executeStep()) {
        rows.push_back({QString::number(select.getColumn(0).getInt()),
                        QString::number(select.getColumn(1).getInt()), money(2, "$###,###,##0.00"),
                        money(3, "$###,##0.00"), money(4, "$###,###,##0.00"),
                        to_qt(select.getColumn(5).getString()),
                        to_qt(select.getColumn(6).getString())});
    }
    return rows;
}

}  // namespace kelvar::test
