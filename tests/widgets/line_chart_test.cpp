// The line chart: its places in words, by keys, pointer and screen reader, and on paper.

#include "widgets/line_chart.h"

#include <gtest/gtest.h>

#include <qcustomplot.h>
#include <QAccessible>
#include <QLabel>
#include <QPainter>
#include <QTest>
#include <set>

#include "tests/support/drawn_texts.h"
#include "widgets/theme.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

// Balances of four rates over six years; at the lowest rate the account is empty after three.
LineData balances() {
    LineData lines{.labels = {}, .sets = {}, .upper = 110.0, .whole = u"Balances"_s};
    for (int year = 2030; year < 2036; ++year) {
        lines.labels << QString::number(year);
    }
    lines.sets = {{u" 5%"_s, {100.0, 50.0, 0.0}},
                  {u" 6%"_s, {100.0, 80.0, 60.0, 40.0, 20.0, 0.0}},
                  {u" 8%"_s, {100.0, 90.0, 80.0, 60.0, 30.0, 0.0}},
                  {u"10%"_s, {100.0, 100.0, 90.0, 70.0, 40.0, 0.0}}};
    return lines;
}

class LineChartTest : public ::testing::Test {
protected:
    LineChartTest() {
        chart.show_lines(balances());
        chart.resize(700, 400);
        chart.show();
        chart.setFocus();
        QApplication::processEvents();
    }
    QString said() const { return chart.findChild<QLabel*>(u"lblreadout"_s)->text(); }

    LineChart chart{"grphlines", u"Balance at each year's end"_s};
};

TEST_F(LineChartTest, KeysGoFromYearToYearAndFromLineToLine) {
    chart.choose(1);
    const std::pair<Qt::Key, const char*> presses[] = {
        {Qt::Key_Left, "2030, 6%: $100.00"}, {Qt::Key_Up, "2030, 8%: $100.00"},
        {Qt::Key_Right, "2031, 8%: $90.00"}, {Qt::Key_Up, "2031, 10%: $100.00"},
        {Qt::Key_Up, "2031, 10%: $100.00"},  {Qt::Key_Down, "2031, 8%: $90.00"},
        {Qt::Key_Down, "2031, 6%: $80.00"},  {Qt::Key_Down, "2031, 5%: $50.00"},
        {Qt::Key_End, "2032, 5%: $0.00"},    {Qt::Key_Right, "2032, 5%: $0.00"},
        {Qt::Key_Up, "2032, 6%: $60.00"},    {Qt::Key_End, "2035, 6%: $0.00"},
        {Qt::Key_Down, "2035, 6%: $0.00"},   {Qt::Key_Home, "2030, 6%: $100.00"},
    };
    for (const auto& [key, words] : presses) {
        QTest::keyClick(&chart, key);
        EXPECT_EQ(said().toStdString(), words);
        QAccessibleInterface* element = QAccessible::queryAccessibleInterface(&chart);
        EXPECT_EQ(element->focusChild()->text(QAccessible::Name), said());
    }
    chart.choose(0);
    EXPECT_EQ(said(), u"2030, 5%: $100.00"_s);
}

TEST_F(LineChartTest, PointerSaysTheNearestValueOfWhatIsShownNow) {
    const auto* drawing = chart.findChild<QCustomPlot*>();
    const QRectF plot = drawing->axisRect()->rect().translated(drawing->pos());
    const auto point_at = [&](double year, double value) {
        const QPointF spot(plot.left() + plot.width() * (year + 0.5) / 6,
                           plot.bottom() - plot.height() * value / 110.0);
        QTest::mouseMove(&chart, spot.toPoint());
        QApplication::processEvents();
        return said().toStdString();
    };
    EXPECT_EQ(point_at(1.1, 53.0), "2031, 5%: $50.00");
    EXPECT_EQ(point_at(2.9, 68.0), "2033, 10%: $70.00");
    EXPECT_EQ(point_at(0.0, 100.0), "2030, 5%: $100.00") << "the very first";
    chart.clearFocus();
    LineData one = balances();
    one.sets.resize(1);
    chart.show_lines(one);
    EXPECT_EQ(said(), u"Balances"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&chart)->childCount(), 3);
    one.sets = {{u"5%"_s, {}}};
    chart.show_lines(one);
    chart.choose(0);
    chart.setFocus();
    QTest::keyClick(&chart, Qt::Key_Right);
    EXPECT_EQ(said(), u"Balances"_s) << "there is nothing to go to";
}

// Where there is no room for all, what lies beside an end of an axis gives way, and no line's name
// goes.
TEST_F(LineChartTest, EndsOfAxesAndLinesAreNamed) {
    auto* drawing = chart.findChild<QCustomPlot*>();
    for (int name = 0; name < 4; ++name) {
        EXPECT_TRUE(drawing->item(name)->visible()) << name;
    }
    LineData lines = balances();
    lines.labels.prepend(u"Lump Sum"_s);
    chart.show_lines(lines);
    chart.resize(300, 320);
    QApplication::processEvents();
    drawing = chart.findChild<QCustomPlot*>();
    EXPECT_EQ(drawing->yAxis->tickVectorLabels().toList().join(u' '), u"$0 $20 $40 $60 $80 $110"_s);
    EXPECT_EQ(drawing->xAxis->tickVectorLabels().toList().join(u' '), u"Lump\nSum 2030 2032 2035"_s);
}

// Words stay words, in the size that the width asks for, whatever the page's resolution is.
TEST_F(LineChartTest, PaperHasWordsUpToTheBound) {
    const QFont font = theme::paper_font(11.0);
    for (const double width : {900.0, 300.0}) {
        DrawnTexts paper(QSize(9000, 6000));
        paper.setDotsPerMeterX(10 * paper.dotsPerMeterX());
        paper.setDotsPerMeterY(10 * paper.dotsPerMeterY());
        QPainter painter(&paper);
        chart.paint_on_paper(painter, paper.rect(), width);
        painter.end();
        const double scale = paper.width() / width;
        std::set<QString> words;
        for (const auto& [text, place] : paper.texts) {
            EXPECT_TRUE(QRectF(paper.rect()).contains(place)) << text.toStdString();
            EXPECT_NEAR(place.height() / scale, QFontMetricsF(font).height(), 2.0)
                << text.toStdString();
            words.insert(text);
        }
        for (const QString& text : {u"$0"_s, u"$100"_s, u"2030"_s, u"2034"_s, u"5%"_s, u"10%"_s}) {
            EXPECT_TRUE(words.contains(text)) << text.toStdString() << " on " << width;
        }
        EXPECT_EQ(words.contains(u"$110"_s), width > 600.0) << "has it room?";
    }
}

// Each line alone, without colour.
TEST_F(LineChartTest, LinesAreToldApartWithoutColour) {
    std::set<QByteArray> looks;
    const auto look = [](const QImage& image) {
        const QImage grey = image.convertToFormat(QImage::Format_Grayscale8);
        return QByteArray(reinterpret_cast<const char*>(grey.constBits()), grey.sizeInBytes());
    };
    for (int alone = 0; alone < 4; ++alone) {
        LineData lines = balances();
        for (int set = 0; set < 4; ++set) {
            lines.sets[static_cast<std::size_t>(set)] = {
                u"rate"_s, set == alone ? std::vector{100.0, 50.0, 0.0} : std::vector<double>{}};
        }
        chart.show_lines(lines);
        QImage paper(900, 600, QImage::Format_RGB32);
        paper.fill(Qt::red);
        QPainter painter(&paper);
        chart.paint_on_paper(painter, paper.rect());
        painter.end();
        EXPECT_EQ(paper.pixelColor(0, 599), QColor(Qt::white));
        looks.insert(look(paper));
    }
    EXPECT_EQ(looks.size(), 4u);
}

}  // namespace

}  // namespace kelvar::test
