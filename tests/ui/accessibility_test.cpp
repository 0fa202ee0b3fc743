// What people who see little, use no mouse or a screen reader rely on; held for every screen.

#include <qcustomplot.h>
#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <cmath>
#include <set>

#include "output/report/print_buttons.h"
#include "tests/support/drawn_texts.h"
#include "tests/support/stations.h"
#include "widgets/chart.h"
#include "widgets/grid.h"
#include "widgets/theme.h"
#include "widgets/wrapping_radio_button.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

// A desktop with other fonts or colours, for as long as it lives.
class Desktop {
public:
    Desktop(double points, bool dark) {
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::Window, dark ? Qt::black : Qt::white);
        QFont font = QApplication::font();
        font.setPointSizeF(points);
        set(font, palette);
    }
    ~Desktop() { set(font_before_, palette_before_); }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

private:
    static void set(const QFont& font, const QPalette& palette) {
        QApplication::setFont(font);
        QApplication::setPalette(palette);
        theme::apply(*static_cast<QApplication*>(QCoreApplication::instance()));
    }

    QFont font_before_ = QApplication::font();
    QPalette palette_before_ = QApplication::palette();
};

std::string name_of(const QObject* object) {
    return object == nullptr ? "none" : object->objectName().toStdString();
}

class EveryScreen : public UiTest, public ::testing::WithParamInterface<Station> {
public:
    void SetUp() override {
        GetParam().go(*this);
        ASSERT_EQ(screen_name().toStdString(), GetParam().name);
        ASSERT_TRUE(take_messages().empty());
    }

    template <class Widget>
    QList<Widget*> visible() {
        QList<Widget*> all = window->visible_screen()->findChildren<Widget*>();
        all.removeIf([](const Widget* widget) { return !widget->isVisible(); });
        return all;
    }
};

// Options that exclude each other share one stop.
const QObject* tab_stop(QWidget* control) {
    const auto* option = qobject_cast<QAbstractButton*>(control);
    return option != nullptr && option->group() != nullptr && option->group()->exclusive()
               ? static_cast<const QObject*>(option->group())
               : control;
}

QImage surroundings(const QWidget* control) {
    const QRect place(control->mapTo(control->window(), QPoint()), control->size());
    return control->window()->grab(place.adjusted(-4, -4, 4, 4)).toImage();
}

TEST_P(EveryScreen, TabReachesEveryControlDownThePageAndTheFocusIsSeen) {
    std::set<const QObject*> expected;
    for (QWidget* control : visible<QWidget>()) {
        if (control->isEnabled() && (control->focusPolicy() & Qt::TabFocus) != 0 &&
            control->focusProxy() == nullptr && qobject_cast<QScrollArea*>(control) == nullptr) {
            expected.insert(tab_stop(control));
        }
    }
    std::set<const QObject*> reached;
    int upwards = 0;
    for (QWidget* control = window->focusWidget(); reached.insert(tab_stop(control)).second;
         control = window->focusWidget()) {
        const QImage with_focus = surroundings(control);
        if (const auto* ring = window->visible_screen()->findChild<QWidget*>(u"focusring"_s)) {
            EXPECT_EQ(ring->visibleRegion().boundingRect(), ring->rect())
                << "part of the ring around " << name_of(control) << " is cut off";
        }
        const QRect place(control->mapTo(window, QPoint()), control->size());
        press(Qt::Key_Tab);
        const QWidget* next = window->focusWidget();
        EXPECT_TRUE(next == control || surroundings(control) != with_focus)
            << name_of(control) << " shows no focus";
        upwards += next->mapTo(window, QPoint(0, next->height())).y() <= place.top() ? 1 : 0;
    }
    for (const QObject* control : expected) {
        EXPECT_TRUE(reached.contains(control))
            << name_of(control) << ' ' << control->metaObject()->className() << " is not reached";
    }
    EXPECT_LE(upwards, 1) << "only once round is upwards";
}

void expect_readable(QAccessibleInterface* element) {
    if (element == nullptr || element->state().invisible) {
        return;
    }
    const std::string name = name_of(element->object());
    if (QAccessibleTableInterface* table = element->tableInterface()) {
        auto* view = qobject_cast<QTableView*>(element->object());
        ASSERT_NE(view, nullptr) << name;
        EXPECT_FALSE(element->text(QAccessible::Name).isEmpty()) << name;
        ASSERT_EQ(table->rowCount(), view->model()->rowCount()) << name;
        for (int column = 0; column < view->model()->columnCount(); ++column) {
            const QString heading = view->model()->headerData(column, Qt::Horizontal).toString();
            EXPECT_EQ(table->columnDescription(column), heading);
            const bool headed = view->horizontalHeader()->isVisible();
            EXPECT_EQ(table->cellAt(0, column)->text(QAccessible::Name),
                      (headed ? heading + u": "_s : QString()) +
                          view->model()->index(0, column).data().toString());
        }
        return;
    }
    // What a reader has counted may be gone when it is asked for.
    EXPECT_EQ(element->child(element->childCount()), nullptr) << name;
    if (element->state().focusable) {
        EXPECT_FALSE(element->text(QAccessible::Name).isEmpty())
            << name << ", role " << element->role();
    }
    const QAccessible::Role role = element->role();
    const bool acts = !element->state().disabled;
    if (acts && (role == QAccessible::PushButton || role == QAccessible::RadioButton ||
                 role == QAccessible::CheckBox || role == QAccessible::ButtonMenu)) {
        ASSERT_NE(element->actionInterface(), nullptr) << name;
        EXPECT_FALSE(element->actionInterface()->actionNames().isEmpty()) << name;
    }
    for (int child = 0; child < element->childCount(); ++child) {
        expect_readable(element->child(child));
    }
}

// From the right: Close; Next or who comes next; Previous, also where there is no Next.
TEST_P(EveryScreen, ButtonsStandAtOnePlace) {
    const std::pair<const char*, QRect> places[] = {{"cmdhelp", QRect(24, 0, 64, 30)},
                                                    {"picprev", QRect(509, 0, 30, 30)},
                                                    {"Cmdnext", QRect(633, 0, 110, 30)},
                                                    {"cmdmenu", QRect(633, 0, 140, 30)},
                                                    {"cmdclose", QRect(781, 0, 64, 30)}};
    for (const auto& [name, place] : places) {
        const auto* button = window->visible_screen()->findChild<QWidget*>(QString::fromLatin1(name));
        if (button != nullptr) {
            const QPoint row = button->parentWidget()->mapTo(window, QPoint(0, button->y()));
            EXPECT_EQ(button->geometry(), place.translated(0, button->y())) << name;
            EXPECT_EQ(row.y(), window->height() - 39) << name;
        }
    }
}

TEST_P(EveryScreen, ScreenReadersGetANameForEveryControlAndTheCellsOfTables) {
    expect_readable(QAccessible::queryAccessibleInterface(window->visible_screen()));
}

class Dialogs : public UiTest {};

TEST_F(Dialogs, AreReadableAndHoldTheFocus) {
    QStringList seen;
    const auto expect_good_lines = [&](QDialog& note) {
        const QList<QLabel*> lines = note.findChildren<QLabel*>(QRegularExpression(u"lblnote_"_s));
        ASSERT_EQ(lines.size(), 7);
        for (const QLabel* line : lines) {
            const QFontMetricsF metrics(line->font());
            const auto characters = static_cast<double>(line->text().size());
            const double character = metrics.horizontalAdvance(line->text()) / characters;
            EXPECT_GE(metrics.xHeight(), QFontMetricsF(window->font()).xHeight() - 0.5);
            EXPECT_GE(line->width() / character, 75.0) << line->text().toStdString();
            EXPECT_LE(line->width() / character, 95.0) << line->text().toStdString();
        }
        const auto place = [&](const QWidget* widget, QPoint point) {
            return widget->mapTo(&note, point).y();
        };
        const auto* ok = note.findChild<QWidget*>(u"cmdok"_s);
        EXPECT_LE(place(ok, {}) - place(lines.last(), lines.last()->rect().bottomLeft()),
                  4 * theme::grid);
    };
    look_at_dialog = [&](QDialog& dialog) {
        seen << dialog.objectName();
        EXPECT_EQ(dialog.windowFlags() & (Qt::CustomizeWindowHint | Qt::WindowMinMaxButtonsHint),
                  Qt::CustomizeWindowHint)
            << "can be minimised or maximised";
        if (dialog.objectName() == u"frmmsg"_s && seen.size() == 1) {
            module->report("Nothing is told while a message is open.");
        }
        if (const auto* yes = dialog.findChild<QPushButton*>(u"cmdyes"_s)) {
            EXPECT_TRUE(yes->isDefault());
        }
        if (dialog.objectName() == u"frmclaim"_s) {
            expect_good_lines(dialog);
        }
        expect_readable(QAccessible::queryAccessibleInterface(&dialog));
        EXPECT_NE(dialog.focusWidget(), nullptr) << name_of(&dialog);
    };
    go_to_participant();
    click("Cmdnext");  // an empty balance: a message
    module->ask("Go on?");
    window->resize(1900, 1000);
    window->show(ScreenId::frmclaim);
    window->show(ScreenId::frmPortfolios);
    EXPECT_EQ(seen.join(u' ').toStdString(), "frmmsg frmmsg1 frmclaim frmPortfolios");
}

TEST_P(EveryScreen, PlacesOfAChartAreItsChildren) {
    for (Chart* chart : visible<Chart>()) {
        QAccessibleInterface* element = QAccessible::queryAccessibleInterface(chart);
        EXPECT_EQ(element->role(), QAccessible::Chart);
        ASSERT_EQ(element->childCount(), chart->places());
        chart->setFocus();
        press(Qt::Key_End);
        const int end = chart->selected();
        EXPECT_GT(end, 0);
        QAccessibleInterface* last = element->child(end);
        EXPECT_EQ(element->focusChild(), last);
        EXPECT_TRUE(last->state().focused);
        EXPECT_EQ(element->indexOfChild(last), end);
        EXPECT_EQ(last->text(QAccessible::Name), text_of("lblreadout"));
        EXPECT_FALSE(element->child(0)->state().focused);
        const QRect card = chart->rect();
        const QPoint edge(card.left(), card.center().y());
        EXPECT_EQ(chart->grab().toImage().pixelColor(edge), theme::colors().accent);
        press(Qt::Key_Tab);  // now the words are on the chart as a whole
        EXPECT_EQ(chart->grab().toImage().pixelColor(edge), theme::colors().border);
        EXPECT_EQ(text_of("lblreadout"), chart->accessibleDescription());
        for (int place = 0; place < chart->places(); ++place) {
            EXPECT_NE(text_of("lblreadout"), chart->sentence(place));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, EveryScreen, ::testing::ValuesIn(stations()), station_name);

// Neither labels nor values nor titles of a drawing lie on each other, nor outside.
void expect_texts_apart(QCustomPlot& drawing) {
    DrawnTexts drawn(drawing.size());
    QCPPainter painter(&drawn);
    drawing.toPainter(&painter, drawing.width(), drawing.height());
    const QRectF inside = QRectF(drawing.rect()).adjusted(-1.0, -1.0, 1.0, 1.0);
    EXPECT_GE(drawn.texts.size(), 5U);
    for (auto text = drawn.texts.begin(); text != drawn.texts.end(); ++text) {
        EXPECT_TRUE(inside.contains(text->place)) << text->text.toStdString();
        for (auto other = drawn.texts.begin(); other != text; ++other) {
            EXPECT_FALSE(text->place.intersects(other->place))
                << text->text.toStdString() << " lies on " << other->text.toStdString();
        }
    }
}

struct LargeDesktop {
    Desktop desktop{22.0, false};
};

// Twice the usual size of the texts, in a window that stays as large as it was.
class LargeText : private LargeDesktop, public EveryScreen {};

TEST_P(LargeText, IsNotClipped) {
    for (auto* buttons : window->visible_screen()->findChildren<PrintButtons*>()) {
        buttons->say(u"/home/"_s + QString(300, u'x') + u".pdf"_s);
        settle();
        EXPECT_TRUE(find<QLabel>("lblsaved")->isVisible());
    }
    EXPECT_EQ(window->visible_screen()->size(), QSize(869, 680));
    const QWidget* focus = window->focusWidget();
    EXPECT_TRUE(focus->inherits("QTableView") || focus->inherits("kelvar::Chart") ||
                focus->visibleRegion().boundingRect() == focus->rect())
        << name_of(focus) << " has the focus and is out of sight";
    for (const QScrollArea* area : visible<QScrollArea>()) {
        EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << "needs sideways scrolling";
    }
    for (const QLabel* label : visible<QLabel>()) {
        const QSize needed =
            label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
        EXPECT_TRUE(needed.width() <= label->width() && needed.height() <= label->height())
            << name_of(label) << ": " << label->text().toStdString();
    }
    for (QCustomPlot* drawing : visible<QCustomPlot>()) {
        expect_texts_apart(*drawing);
    }
    for (const QAbstractButton* button : visible<QAbstractButton>()) {
        EXPECT_GE(button->width(), button->minimumSizeHint().width()) << name_of(button);
        EXPECT_GE(button->height(), button->minimumSizeHint().height()) << name_of(button);
    }
}

// Of the tables, what matters most.
TEST_P(LargeText, ShowsRowsAndTheTotal) {
    for (Grid* grid : visible<Grid>()) {
        const int rows = grid->viewport()->height() / grid->rowHeight(0);
        EXPECT_EQ(grid->mapTo(window, QPoint()).x(), 12) << "the margin of every screen";
        EXPECT_GE(rows, grid->objectName() == u"grddist" ? 6 : std::min(4, grid->model()->rowCount()));
        if (grid->objectName() == u"grdcompare") {
            EXPECT_EQ(grid->horizontalHeader()->visualIndex(9), 3) << "what is paid in all";
            EXPECT_TRUE(
                grid->viewport()->rect().contains(grid->visualRect(grid->model()->index(0, 9))));
        }
        if (grid->objectName() == u"grddist") {
            const auto in_sight = [](QWidget* part, const QRect& place) {
                return part->visibleRegion().boundingRect().contains(place);
            };
            const auto third_row = [](Grid* of) { return of->visualRect(of->model()->index(2, 0)); };
            EXPECT_TRUE(in_sight(grid->viewport(), third_row(grid)));
            EXPECT_EQ(find<QComboBox>("cmbrate")->width(),
                      find<QComboBox>("cmbrate")->sizeHint().width());
            EXPECT_TRUE(in_sight(find<QLabel>("lblheadline"), find<QLabel>("lblheadline")->rect()));
            const int height = grid->height();
            grid->setCurrentIndex(grid->model()->index(6, 0));  // January, which has more to say
            settle();
            EXPECT_EQ(grid->height(), height);
            press(Qt::Key_E, Qt::AltModifier);
            settle();
            EXPECT_TRUE(in_sight(find<Grid>("grdyear")->viewport(), third_row(find<Grid>("grdyear"))));
        }
    }
}

// About 3 times the usual size, for such a display.
TEST_P(LargeText, CaptionsOfButtonsAreWholeOnASmallDisplay) {
    go_to_small_display();
    window->centralWidget()->setMinimumWidth(1);  // not what its pages would like
    settle();
    window->resize(620, 344);
    settle();
    for (const QPushButton* button : visible<QPushButton>()) {
        const int caption = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
        EXPECT_GE(button->width(), caption + theme::grid) << name_of(button);
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, LargeText, ::testing::ValuesIn(stations()), station_name);

double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

// What can be filled in or ticked has its outline, inside the colours that Contrast looks at.
TEST(Contrast, OutlinesAreDrawn) {
    for (const bool dark : {false, true}) {
        const Desktop desktop(11.0, dark);
        QCheckBox box;
        QRadioButton circle;
        QLineEdit edit;
        QComboBox list;
        QLineEdit grey;
        QRadioButton grey_circle;
        grey.setEnabled(false);
        grey_circle.setEnabled(false);
        for (QWidget* control :
             std::initializer_list<QWidget*>{&box, &circle, &edit, &list, &grey, &grey_circle}) {
            const QImage image = control->grab().toImage();
            int outlined = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QColor spot = image.pixelColor(x, y);
                    const QColor& line = theme::colors().outline;
                    const bool alike = std::abs(spot.red() - line.red()) < 30 &&
                                       std::abs(spot.blue() - line.blue()) < 30;
                    outlined += alike ? 1 : 0;
                }
            }
            EXPECT_GE(outlined, 8) << control->metaObject()->className() << (dark ? ", dark" : "");
        }
        const QImage sign = theme::picture(u"warning"_s, 24).toImage();
        EXPECT_EQ(sign.scaled(24, 24).pixelColor(12, 20), theme::colors().warning) << "no link";
    }
}

// The first and last columns of pixels in which anything is drawn.
struct Ink {
    int left;
    int right;
};

Ink ink(QWidget& widget, const QRect& part) {
    const QImage image = widget.grab(part).toImage();
    const int ground = qGray(image.pixel(0, 0));
    Ink ink{image.width(), -1};
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (std::abs(qGray(image.pixel(x, y)) - ground) > 60) {
                ink = {std::min(ink.left, x), x};
            }
        }
    }
    return ink;
}

TEST(Alignment, HeadingsOfAGridStandOverTheirCells) {
    for (const double points : {11.0, 22.0}) {
        const Desktop desktop(points, false);
        QStandardItemModel model(1, 2);
        Grid grid("grid", u"Numbers"_s);
        for (int column = 0; column < 2; ++column) {
            const auto side = column == 0 ? Qt::AlignLeft : Qt::AlignRight;
            model.setHorizontalHeaderItem(column, new QStandardItem(u"HH"_s));
            model.setItem(0, column, new QStandardItem(u"HH"_s));
            model.horizontalHeaderItem(column)->setTextAlignment(side | Qt::AlignVCenter);
            model.item(0, column)->setTextAlignment(side | Qt::AlignVCenter);
        }
        grid.setModel(&model);
        grid.resize(600, 300);
        grid.ensurePolished();
        for (int column = 0; column < 2; ++column) {
            QWidget* header = grid.horizontalHeader()->viewport();
            const QRect cell = grid.visualRect(model.index(0, column));
            const Ink above = ink(*header, QRect(cell.left(), 2, cell.width(), header->height() - 6));
            const Ink below = ink(*grid.viewport(), cell);
            const int slip = column == 0 ? above.left - below.left : above.right - below.right;
            EXPECT_LE(std::abs(slip), 1) << points << " pt, column " << column;
        }
    }
}

TEST(Alignment, CaptionsOfFramesStandOverTheirContents) {
    for (const double points : {11.0, 22.0}) {
        const Desktop desktop(points, false);
        for (const QString& caption : {u"Balance"_s, u"B&alance"_s, u"Balance in the account &now"_s}) {
            const std::unique_ptr<QGroupBox> frame(control::frame(caption, "frame"));
            auto* row = new QHBoxLayout(frame.get());
            auto* label = theme::label(u"Balance"_s, theme::Role::section);
            row->addWidget(label);
            frame->resize(600, 200);
            frame->ensurePolished();
            row->activate();
            const QRect inside = frame->rect().adjusted(5, 5, -5, -5);
            const Ink above = ink(*frame, {inside.topLeft(), QPoint(inside.right(), label->y() - 1)});
            const Ink below = ink(*frame, {QPoint(inside.left(), label->y()), inside.bottomRight()});
            EXPECT_LE(std::abs(above.left - below.left), 1)
                << points << " pt, " << caption.toStdString();
            EXPECT_TRUE(caption != label->text() ||
                        (above.left == below.left && above.right == below.right))
                << "all headings look alike";
        }
    }
}

TEST(Pictures, AreAsSharpAsTheFinestDisplay) {
    for (const QPixmap& picture :
         {theme::picture(u"kelvar"_s, 96), theme::legend_key(Qt::BDiagPattern)}) {
        EXPECT_EQ(picture.devicePixelRatio(), 2.0);
        EXPECT_EQ(picture.width(), 2.0 * picture.deviceIndependentSize().width());
    }
    EXPECT_EQ(theme::legend_key(Qt::SolidPattern).deviceIndependentSize(), QSizeF(16.0, 16.0));
}

// Options whose captions wrap are round, and drawn as the others are.
TEST(Alignment, AllOptionsLookAlike) {
    for (const bool dark : {false, true}) {
        for (const double points : {11.0, 22.0}) {
            const Desktop desktop(points, dark);
            for (const bool chosen : {false, true}) {
                QRadioButton plain(u"&Payments"_s);
                WrappingRadioButton wrapping(u"&Payments"_s, u"wrapping"_s);
                for (QRadioButton* option : {&plain, static_cast<QRadioButton*>(&wrapping)}) {
                    option->setChecked(chosen);
                    option->resize(500, wrapping.heightForWidth(500));
                }
                EXPECT_EQ(plain.grab().toImage(), wrapping.grab().toImage())
                    << points << " pt" << (dark ? ", dark" : "");
            }
        }
    }
}

// Level AA: 4.5 for texts, 3 for what is no text.
TEST(Contrast, IsEnoughInLightAndDark) {
    for (const bool dark : {false, true}) {
        const Desktop desktop(11.0, dark);
        const theme::Colors& c = theme::colors();
        const QPalette p = QApplication::palette();
        EXPECT_EQ(c.window.lightness() < 128, dark);
        struct Pair {
            const char* name;
            QColor one;
            QColor other;
            double least;
        };
        const Pair pairs[] = {
            {"text on window", c.text, c.window, 4.5},
            {"text on card", c.text, c.card, 4.5},
            {"text in field", c.text, c.field, 4.5},
            {"text in second row", c.text, p.color(QPalette::AlternateBase), 4.5},
            {"text on button", p.color(QPalette::ButtonText), p.color(QPalette::Button), 4.5},
            {"title", c.band_text, c.band, 4.5},
            {"note on window", c.note, c.window, 4.5},
            {"note on card", c.note, c.card, 4.5},
            {"note in field", c.note, c.field, 4.5},
            {"disabled on window", p.color(QPalette::Disabled, QPalette::WindowText), c.window, 4.5},
            {"disabled on card", p.color(QPalette::Disabled, QPalette::Text), c.card, 4.5},
            {"disabled on button", c.disabled, p.color(QPalette::Button), 4.5},
            {"link on window", c.accent, c.window, 4.5},
            {"link on card", c.accent, c.card, 4.5},
            {"default button, chosen row with the focus", c.on_filled, c.filled, 4.5},
            {"chosen row", c.text, c.selected, 4.5},
            {"changed amount in a chosen row", c.accent, c.selected, 4.5},
            {"changed amount", c.accent, p.color(QPalette::AlternateBase), 4.5},
            {"heading, strip, button under the pointer", c.text, c.quiet, 4.5},
            {"bar beside a chosen row", c.accent, c.selected, 3.0},
            {"border of a button", c.outline, c.card, 3.0},
            {"bars and focus ring", c.accent, c.field, 3.0},
            {"chosen bar", c.chosen, c.accent, 1.5},
            {"chosen bar on card", c.chosen, c.card, 3.0},
            {"first line", c.lines[0], c.card, 4.5},
            {"second line", c.lines[1], c.card, 4.5},
            {"third line", c.lines[2], c.card, 4.5},
            {"fourth line", c.lines[3], c.card, 4.5},
            {"box to fill in on card", c.outline, c.card, 3.0},
            {"circle on window", c.outline, c.window, 3.0},
            {"signs of messages", c.accent, c.window, 3.0},
            {"sign of a warning", c.warning, c.window, 3.0},
        };
        for (const Pair& pair : pairs) {
            EXPECT_GE(contrast(pair.one, pair.other), pair.least)
                << pair.name << (dark ? ", dark" : ", light");
        }
    }
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21.0, 0.01);
}

}  // namespace

}  // namespace kelvar::test
