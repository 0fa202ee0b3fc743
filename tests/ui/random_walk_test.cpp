// A user who clicks, types and pastes anything anywhere. Nothing is expected of the figures here, only
// that the program stays in order: no fault, no screen without a focus, no hourglass left behind, work
// tables as the record sets have them. KELVAR_WALK_EVENTS says how many events; the sanitizers take
// many more than a quick test run.

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <random>

#include "tests/support/sql.h"
#include "tests/support/stations.h"
#include "widgets/text.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

const QStringList texts{u"06151950"_s,
                        u"06/15/2003"_s,
                        u"02302000"_s,
                        u"250000"_s,
                        u"1,234.56"_s,
                        u"-5"_s,
                        u"0"_s,
                        u"12"_s,
                        u"828"_s,
                        u"1e400"_s,
                        u"99999999999999"_s,
                        u"$"_s,
                        u"nan"_s,
                        u"abc"_s,
                        u"½ü\n\t\0x"_s,
                        QString(5000, u'9'),
                        u"  7  "_s,
                        QString()};
constexpr int typed_texts = 14;  // from the front; the others can only be pasted
const QStringList menu_entries{u"P&DF..."_s,
                               u"&CSV..."_s,
                               u"Participant &As...\tCtrl+Shift+S"_s,
                               u"Pre&view..."_s,
                               u"Print with &Options..."_s,
                               u"&Everything"_s,
                               u"S&ummary Only"_s,
                               u"&Copy"_s,
                               u"Select &All"_s,
                               QString()};
constexpr Qt::Key keys[] = {Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Return,    Qt::Key_Escape,
                            Qt::Key_Space,    Qt::Key_Up,      Qt::Key_Down,      Qt::Key_Left,
                            Qt::Key_Right,    Qt::Key_Home,    Qt::Key_End,       Qt::Key_PageUp,
                            Qt::Key_PageDown, Qt::Key_Delete,  Qt::Key_Backspace, Qt::Key_F4,
                            Qt::Key_F1,       Qt::Key_A,       Qt::Key_7};

class RandomWalk : public UiTest, public ::testing::WithParamInterface<Station> {
public:
    RandomWalk() {
        for (const auto& report : std::filesystem::directory_iterator(KELVAR_REPORTS)) {
            std::filesystem::copy(report, folder.path());
        }
    }

    int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(random_); }

    void one_event() {
        answer_yes = below(2) == 0;
        escapes_questions = below(3) == 0;
        const char* const file = below(2) == 0 ? "walk.pdf" : "walk.kelvar";
        save_as = below(3) == 0 ? to_qt((folder.path() / file).string()) : QString();
        menu_entry = menu_entries.at(below(static_cast<int>(menu_entries.size())));
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* top = popup != nullptr ? popup : window;
        QWidget* focus = top->focusWidget() != nullptr ? top->focusWidget() : top;
        switch (below(10)) {
            case 0:
            case 1:
            case 2:
            case 3:
                click_somewhere(top);
                break;
            case 4:
                QTest::keyClicks(focus, texts.at(below(typed_texts)));
                break;
            case 5:
                QGuiApplication::clipboard()->setText(texts.at(below(static_cast<int>(texts.size()))));
                QTest::keyClick(focus, Qt::Key_V, Qt::ControlModifier);
                break;
            case 6:
                QTest::keyClick(focus, static_cast<Qt::Key>(Qt::Key_A + below(26)), Qt::AltModifier);
                break;
            case 7:
                QTest::keyClick(focus, Qt::Key_Tab);
                break;
            case 8:
                if (below(10) == 0) {
                    QTest::keyClick(focus, below(2) == 0 ? Qt::Key_S : Qt::Key_O, Qt::ControlModifier);
                }
                break;
            default:
                QTest::keyClick(focus, keys[below(static_cast<int>(std::size(keys)))]);
                break;
        }
    }

    // What must hold whenever the program waits for its user.
    void expect_order() {
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        const QWidget* focus = window->focusWidget();
        ASSERT_NE(focus, nullptr);
        ASSERT_TRUE(focus->isVisible() && focus->isEnabled())
            << focus->objectName().toStdString() << " on " << screen_name().toStdString();
        const std::size_t rows = module->database().schedule().RecordCount();
        EXPECT_EQ(sql_rows(folder.database(), "SELECT count(*) FROM schedule"),
                  std::vector{std::to_string(rows)});
    }

private:
    void click_somewhere(QWidget* top) {
        const QList<QWidget*> all = top->findChildren<QWidget*>();
        QList<QWidget*> visible;
        for (QWidget* widget : all) {
            if (widget->isVisible() && !widget->size().isEmpty()) {
                visible << widget;
            }
        }
        QWidget* widget = visible.isEmpty() ? top : visible.at(below(static_cast<int>(visible.size())));
        const QPoint spot(below(widget->width()), below(widget->height()));
        if (below(8) == 0) {
            QTest::mouseDClick(widget, Qt::LeftButton, {}, spot);
        } else {
            QTest::mouseClick(widget, below(10) == 0 ? Qt::RightButton : Qt::LeftButton, {}, spot);
        }
    }

    std::mt19937 random_{static_cast<unsigned>(qEnvironmentVariableIntValue("KELVAR_WALK_SEED"))};
};

TEST_P(RandomWalk, LeavesTheProgramInOrder) {
    const int all_events = qEnvironmentVariableIntValue("KELVAR_WALK_EVENTS");
    const int events = (all_events > 0 ? all_events : 600) / static_cast<int>(stations().size());
    constexpr int events_in_a_row = 400;  // then back to the station, else all walks end at the menu
    for (int done = 0; done < events && !HasFatalFailure(); ++done) {
        if (done % events_in_a_row == 0 || !window->isVisible()) {
            start_program();
            GetParam().go(*this);
            ASSERT_EQ(screen_name().toStdString(), GetParam().name);
        }
        one_event();
        const bool user_waits = below(4) == 0;  // for the program to catch up, before acting again
        if (!user_waits) {
            continue;
        }
        settle();
        if (window->isVisible()) {
            expect_order();
        }
    }
    settle();
    (void)take_messages();
}

INSTANTIATE_TEST_SUITE_P(Screens, RandomWalk, ::testing::ValuesIn(stations()), station_name);

}  // namespace

}  // namespace kelvar::test
