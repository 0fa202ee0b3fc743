// Every way to a note or table leads there and back again.

#include <SQLiteCpp/SQLiteCpp.h>
#include <QGroupBox>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QToolButton>

#include "shell/notes/note_screens.h"
#include "tests/support/ui_harness.h"
#include "widgets/theme.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

class Notes : public UiTest {
public:
    void there_and_back(const char* button, const char* screen, const char* back) {
        const QString from = screen_name();
        click(button);
        EXPECT_EQ(screen_name(), QString::fromLatin1(screen)) << button;
        click(back);
        EXPECT_EQ(screen_name(), from) << back;
    }
};

TEST_F(Notes, LeadThereAndBack) {
    click("Cmdnext");
    EXPECT_EQ(find<QLabel>("lbltime")->palette().color(QPalette::WindowText), theme::colors().accent);
    const int row = find<QWidget>("navigation")->height();
    click("pictime");
    EXPECT_EQ(find<QWidget>("navigation")->height(), row);
    click("cmdok");
    there_and_back("pictime", "frmtimin", "cmdok");
    there_and_back("lbltime", "frmtimin", "cmdok");  // the words beside the picture
    there_and_back("Picmethod", "frmethod", "cmdok");
    there_and_back("piclengt", "frmlengt", "cmdok");
    there_and_back("piclast", "frmvang", "cmdprev");
    click("cmdchart");
    there_and_back("Cmdnext", "frmvang1", "picprev");
    click("picnext");
    ASSERT_EQ(screen_name(), u"frmvang1"_s);
    there_and_back("Cmdnext", "frmlife", "cmdprev");
    there_and_back("pichart", "frmlife", "picprev");
}

TEST_F(Notes, OnTheRatesScreen) {
    go_to_rates();
    there_and_back("picnote", "frmdnote", "cmdnoteok");
    there_and_back("lblnote", "frmdnote", "cmdnoteok");
    click("picrate_2");
    EXPECT_EQ(module->scenario.portfolio_index, 2);
    click("lblport_0");
    EXPECT_EQ(module->scenario.portfolio_index, 0);
    EXPECT_EQ(notes_shown, (QStringList{u"frmPortfolios"_s, u"frmPortfolios"_s}));
    EXPECT_EQ(screen_name(), u"frmdrate"_s);

    // Nothing but a left click on the words opens it.
    auto* words = find<QLabel>("lblport_3");
    auto* other = find<QLabel>("lblport_1");
    const QPoint outside(5, words->height() + 30);
    QTest::mouseClick(words, Qt::RightButton, {}, QPoint(5, 5));
    QTest::mousePress(words, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseRelease(words, Qt::LeftButton, {}, outside);
    QTest::mousePress(other, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseRelease(words, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(notes_shown.size(), 2);
    QTest::mouseClick(words, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(notes_shown.size(), 3);
    EXPECT_EQ(module->scenario.portfolio_click_x,
              words->mapTo(window->visible_screen(), QPoint(5, 5)).x());

    EXPECT_EQ(find<QToolButton>("picrate_1")->accessibleDescription(),
              u"Fixed Income Funds - 40%, Equity Funds - 60%"_s);
}

// Wherever the user pointed, the note stays on the screen; it spells the name that the overview
// misspells.
TEST_F(Notes, OnePortfolioStaysOnTheScreen) {
    module->scenario.portfolio_index = 2;
    module->scenario.portfolio_click_x = 100.0;
    module->scenario.portfolio_click_y = 200.0;
    for (const QPoint place : {QPoint(20, 30), QPoint(45, 60)}) {
        window->move(place);  // the note goes with it
        settle();
        EXPECT_EQ(frmPortfolios(*module, window).pos(), window->pos() + QPoint(100, 100));
    }
    for (const double far : {-5000.0, 5000.0}) {
        module->scenario.portfolio_click_x = far;
        module->scenario.portfolio_click_y = far;
        const frmPortfolios note(*module, window);
        EXPECT_TRUE(window->screen()->availableGeometry().contains(note.pos()));
        EXPECT_EQ(note.findChild<QGroupBox*>(u"framPort_2"_s)->title(),
                  u"Moderately Low Return/Risk Portfolio"_s);
    }
}

TEST_F(Notes, DurationTableSaysACellInWords) {
    for (const char* button : {"Cmdnext", "piclast", "Cmdnext"}) {
        click(button);
    }
    auto* table = find<QTableView>("grdduration");
    EXPECT_EQ(table->viewport()->height(), table->model()->rowCount() * table->rowHeight(0));
    const auto say = [&](const QString& withdrawal, const QString& rate) {
        for (int row = 1; row < table->model()->rowCount(); ++row) {
            for (int column = 1; column < table->model()->columnCount(); ++column) {
                if (table->model()->index(row, 0).data() == withdrawal &&
                    table->model()->index(0, column).data() == rate) {
                    table->setCurrentIndex(table->model()->index(row, column));
                }
            }
        }
        return text_of("lblcell").toStdString();
    };
    EXPECT_EQ(say(u"10%"_s, u"6%"_s),
              "Taking out 10% of today's balance each year, earning 6%: about 15 years");
    EXPECT_EQ(say(u"5%"_s, u"8%"_s),
              "Taking out 5% of today's balance each year, earning 8%: would not run out");
    table->setCurrentIndex(table->model()->index(0, 3));
    EXPECT_EQ(text_of("lblcell"), QString());
}

TEST_F(Notes, ShowTheirBeginningAndThatThereIsMore) {
    click("Cmdnext");
    click("piclast");
    const auto scrolled = [this] { return find<QScrollArea>("page")->verticalScrollBar(); };
    const auto more_below = [this] { return find<QLabel>("lblmorebelow")->isVisible(); };
    EXPECT_TRUE(more_below());
    go_to_small_display();
    const int page = scrolled()->pageStep();
    press(Qt::Key_PageDown);
    EXPECT_LT(scrolled()->value(), page - window->fontMetrics().height()) << "a row was cut off";
    EXPECT_TRUE(more_below());
    scrolled()->setValue(scrolled()->maximum());
    EXPECT_FALSE(more_below());
    press(Qt::Key_PageUp);
    EXPECT_GT(scrolled()->value(), scrolled()->maximum() - page);
    click("Cmdnext");
    ASSERT_EQ(focus_name(), u"grdduration"_s);
    EXPECT_GT(scrolled()->maximum(), 0);
    EXPECT_LE(scrolled()->value(), theme::grid) << "opens at its instructions";
}

TEST_F(Notes, LifeTableShowsTheWholeTableInItsOwnOrder) {
    module->scenario.lookup_age = 69;  // of the participant before
    for (const char* button : {"Cmdnext", "piclast", "Cmdnext", "Cmdnext"}) {
        click(button);
    }
    const auto* table = find<QTableView>("grdlife");
    const QAbstractItemModel* rows = table->model();
    EXPECT_EQ(table->currentIndex().row(), 51);
    EXPECT_TRUE(table->rect().contains(table->visualRect(table->currentIndex())));
    EXPECT_EQ(rows->rowCount(), 105);
    EXPECT_EQ(rows->index(0, 0).data().toString(), u"120"_s);
    EXPECT_EQ(rows->index(51, 1).data().toString(), u"19.6"_s);
    EXPECT_EQ(rows->index(51, 2).data().toString(), u"88.6"_s);
    auto* grid = find<QTableView>("grdlife");
    grid->setCurrentIndex(rows->index(3, 2));
    press(Qt::Key_7);
    press(Qt::Key_2);
    EXPECT_EQ(grid->currentIndex(), rows->index(48, 0));
}

}  // namespace

}  // namespace kelvar::test
