// Tables of the screens: choosing rows, copying them, marks, and what other programs get.

#include <gtest/gtest.h>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>

#include "tests/support/temporary_program_folder.h"
#include "widgets/grid.h"
#include "widgets/record_table_model.h"
#include "widgets/table_model.h"
#include "widgets/table_text.h"
#include "widgets/text_table_model.h"
#include "widgets/theme.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

TEST(TableText, IsWhatOtherProgramsRead) {
    TextTableModel model({{u"Payment  #"_s}, {u"Amount, \"net\""_s}, {u"Month"_s, Qt::AlignLeft}},
                         nullptr);
    model.show_rows({{{u"1"_s}, {u"$1,734.30"_s, u"1734.30"_s}, {u"July"_s}},
                     {{u"2\n3"_s}, {u"-$5.00"_s, u"-5.00"_s}, {u"a \"b\", <c>\r\nd é"_s}}});
    EXPECT_EQ(csv(model).toStdString(),
              "Payment #,\"Amount, \"\"net\"\"\",Month\r\n1,1734.30,July\r\n"
              "\"2\n3\",-5.00,\"a \"\"b\"\", <c>\r\nd \xC3\xA9\"\r\n");
    EXPECT_EQ(tab_separated(model, {0}).toStdString(),
              "Payment #\tAmount, \"net\"\tMonth\n1\t$1,734.30\tJuly\n");
    const std::string html = html_table(model, {1}).toStdString();
    EXPECT_NE(html.find("<th align=\"right\">Payment #</th>"), std::string::npos) << html;
    EXPECT_NE(html.find("<td align=\"left\">a &quot;b&quot;, &lt;c&gt;"), std::string::npos) << html;
    EXPECT_EQ(html.find("July"), std::string::npos) << "row 0 was not asked for";
    EXPECT_EQ(model.index(0, 1).data(Qt::AccessibleTextRole), u"Amount, \"net\": $1,734.30"_s);
}

class GridTest : public ::testing::Test {
protected:
    GridTest() {
        std::vector<std::vector<TextTableModel::Cell>> rows(20);
        for (std::size_t row = 0; row < rows.size(); ++row) {
            rows[row] = {{QString::number(row)}, {u"$%1.00"_s.arg(100 + row / 2)}};
        }
        model.show_rows(std::move(rows));
        grid.setModel(&model);
        grid.resize(600, 300);
        grid.show();
        grid.setFocus();
    }

    // First entries of the lines that Ctrl+C puts on the clipboard, with "/" between.
    QString copied() {
        QApplication::clipboard()->clear();
        QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
        QStringList firsts;
        for (const QString& line : QApplication::clipboard()->text().split(u'\n')) {
            firsts << line.section(u'\t', 0, 0);
        }
        return firsts.join(u'/');
    }

    TextTableModel model{{{u"Row"_s}, {u"Amount"_s}}, nullptr};
    Grid grid{"grid", u"Numbers"_s};
};

TEST_F(GridTest, RowsChosenByKeysAndPointerAreCopiedInTheOrderOfTheGrid) {
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&grid, key, modifiers);
    };
    const auto click = [this](int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, modifiers,
                          grid.visualRect(model.index(row, 1)).center());
    };
    grid.setCurrentIndex({});
    EXPECT_EQ(copied(), u""_s) << "nothing is current";
    grid.selectionModel()->setCurrentIndex(model.index(4, 0), QItemSelectionModel::NoUpdate);
    EXPECT_EQ(copied(), u"Row/4/"_s) << "the current row, where none is chosen";
    click(3);
    click(6, Qt::ControlModifier);
    click(1, Qt::ControlModifier);
    EXPECT_EQ(copied(), u"Row/1/3/6/"_s);
    click(3);
    click(5, Qt::ShiftModifier);
    EXPECT_EQ(copied(), u"Row/3/4/5/"_s);
    press(Qt::Key_7);  // typing goes to a row, and from there on
    EXPECT_EQ(copied(), u"Row/7/"_s);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(copied(), u"Row/7/8/"_s);
    press(Qt::Key_Up, Qt::ShiftModifier);
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(copied(), u"Row/6/7/"_s);
    press(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(grid.selectionModel()->selectedRows().size(), 8);
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(grid.selectionModel()->selectedRows().size(), 13);
    press(Qt::Key_PageUp, Qt::ShiftModifier);
    EXPECT_LT(grid.selectionModel()->selectedRows().size(), 13);
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(copied(), u"Row/19/"_s) << "the row is chosen, not only current";
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(copied(), u"Row/0/"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(copied().startsWith(u"Row/0/1/"_s) && copied().endsWith(u"/18/19/"_s));
    EXPECT_EQ(
        QApplication::clipboard()->mimeData()->html(),
        html_table(model, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19}));
    press(Qt::Key_Down);
    EXPECT_EQ(grid.selectionModel()->selectedRows().size(), 1);
}

TEST_F(GridTest, NoRowIsCutInHalf) {
    for (const int height : {200, 250, 263, 300, 331}) {
        grid.resize(600, height);
        const int room = grid.viewport()->height();
        const int rows = room / grid.rowHeight(0);
        EXPECT_LT(room - rows * grid.rowHeight(0), rows)
            << height << ": less than a pixel for each row";
        const QImage shown = grid.viewport()->grab().toImage();
        for (int y = rows * grid.rowHeight(0); y < room; ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                ASSERT_EQ(shown.pixelColor(x, y), grid.palette().color(QPalette::Base)) << height;
            }
        }
    }
    const QModelIndex last_in_sight = grid.indexAt(QPoint(1, grid.viewport()->height() - 2));
    grid.setCurrentIndex(last_in_sight);
    grid.resize(600, 200);
    QApplication::processEvents();
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.visualRect(last_in_sight)));
}

TEST_F(GridTest, ASentenceOverJoinedCellsBeginsAtTheLeftAndWraps) {
    model.show_rows(
        {{{u"Nothing"_s}, {}}, {{u"Too long a sentence for one line of this table"_s}, {}}});
    grid.join_cells(0, 0);
    grid.join_cells(1, 0);
    grid.show_all_rows();
    grid.resize(200, 300);
    EXPECT_GE(grid.rowHeight(1), grid.rowHeight(0) + grid.fontMetrics().height());
    EXPECT_EQ(grid.height(), grid.maximumHeight()) << "of both";
    EXPECT_EQ(grid.verticalScrollBar()->maximum(), 0);
    const QRect right_half(100, 0, 90, grid.rowHeight(0));
    const QImage empty = grid.viewport()->grab(right_half).toImage();
    EXPECT_EQ(empty, QImage(empty).scaled(1, 1).scaled(empty.size())) << "all of one colour";
}

TEST_F(GridTest, MenuCopiesAndChoosesAll) {
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(10, 10), QPoint(10, 10));
    QApplication::sendEvent(&grid, &asked);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_A);
    QTest::keyClick(&grid, Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_C);
    EXPECT_EQ(QApplication::clipboard()->text().count(u'\n'), 21);
}

// Every fifth row begins a group and has another age than expected.
TEST(GridMarks, PartGroupsByALineAndSayWhatChanged) {
    const TemporaryProgramFolder folder;
    Database database(folder.database());
    const Recordset& lifexp = database.lifexp();
    RecordTableModel model(
        lifexp,
        {field_column(lifexp, "age", u"Age"_s), money_column(lifexp, "multiple", u"$"_s, "$0.00")},
        nullptr);
    model.set_marks(0, [](const Recordset&, std::size_t row) {
        return RecordTableModel::RowMarks{.new_group = row % 5 == 0, .changed = row % 5 == 0};
    });
    model.show_rows(0, 20);
    Grid grid("grid", u"Ages"_s);
    grid.setModel(&model);
    grid.resize(400, 500);
    grid.ensurePolished();
    const QString age = model.index(5, 0).data().toString();
    EXPECT_EQ(model.index(5, 0).data(Qt::AccessibleTextRole), u"Age: "_s + age + u", changed"_s);
    EXPECT_EQ(model.index(4, 0).data(Qt::AccessibleTextRole).toString().count(u','), 0);
    EXPECT_FALSE(model.index(0, 0).data(new_group_role).toBool()) << "nothing is above it";
    EXPECT_EQ(u"$"_s + model.index(5, 1).data(plain_role).toString(), model.index(5, 1).data());
    for (const bool selected : {false, true}) {
        if (selected) {
            grid.selectAll();
        }
        const QImage image = grid.viewport()->grab().toImage();
        const auto line = [&](int row) {
            const int top = grid.rowViewportPosition(row);
            return image.pixel(2, top) != image.pixel(2, top + 2);
        };
        EXPECT_TRUE(line(5) && line(10)) << selected;
        EXPECT_FALSE(line(0) || line(4) || line(6)) << selected;
    }
}

TEST(GridHeadings, AreShortenedBeforeItScrolls) {
    TextTableModel model({{u"Payments Remaining"_s}, {u"Year"_s}}, nullptr);
    model.show_rows({{{u"9"_s}, {u"2026"_s}}});
    Grid grid("grid", u"Numbers"_s);
    grid.setModel(&model);
    const auto columns_at = [&](int width) {
        grid.resize(width, 300);
        grid.grab();
        return grid.horizontalHeader()->length();
    };
    const int narrow = grid.fontMetrics().horizontalAdvance(u"Remaining Year"_s);
    EXPECT_GT(columns_at(2 * narrow), narrow);
    EXPECT_LE(columns_at(narrow), narrow);
    EXPECT_EQ(grid.horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::ToolTipRole), u"Payments Remaining"_s);
}

// Texts stay whole while the columns move closer, and only then is there something to scroll.
TEST_F(GridTest, ColumnsMoveCloserBeforeTheyScroll) {
    const auto scrolls = [this](int width) {
        grid.resize(width, 300);
        QApplication::processEvents();
        return grid.horizontalScrollBar()->maximum() > 0;
    };
    int width = 600;
    while (!grid.property("close").toBool() && width > 0) {
        EXPECT_FALSE(scrolls(--width));
    }
    const int last_comfortable = width + 1;
    while (!scrolls(width) && width > 0) {
        --width;
    }
    EXPECT_GE(last_comfortable - width, 2 * theme::grid);
    EXPECT_FALSE(scrolls(last_comfortable) || grid.property("close").toBool());
}

}  // namespace

}  // namespace kelvar::test
