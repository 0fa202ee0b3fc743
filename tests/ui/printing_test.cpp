// Charts and printing, driven through the screens; every print goes to a PDF file.

#include <qcustomplot.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <QAction>
#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPageRanges>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QThread>
#include <QToolBar>
#include <QToolButton>
#include <csignal>
#include <filesystem>
#include <fstream>

#include "output/report/print_job.h"
#include "output/report/report.h"
#include "shell/saved_file.h"
#include "tests/support/sql.h"
#include "tests/support/ui_harness.h"
#include "widgets/bar_chart.h"
#include "widgets/grid.h"
#include "widgets/text.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

class Printing : public UiTest {
public:
    Printing() {
        for (const auto& report : std::filesystem::directory_iterator(KELVAR_REPORTS)) {
            std::filesystem::copy(report, folder.path());
        }
        save_as = to_qt((folder.path() / "out.pdf").string());
        look_at_dialog = [this](QDialog& dialog) {
            if (qobject_cast<QFileDialog*>(&dialog) != nullptr) {
                offered = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text();
                offered_by = dialog.windowTitle();
                offered_in = static_cast<QFileDialog&>(dialog).directory().absolutePath();
                EXPECT_FALSE(find<QLabel>("lblsaved")->isVisible());
            }
            if (auto* preview = qobject_cast<QPrintPreviewDialog*>(&dialog)) {
                previewed = preview->printer()->pageLayout().orientation();
                if (print_from_preview) {
                    preview->printer()->setPageSize(QPageSize(QPageSize::A4));
                }
            }
            for (QAction* action : dialog.findChildren<QAction*>()) {
                if (print_from_preview && action->text() == u"Print") {
                    action->trigger();
                }
            }
        };
    }
    ~Printing() override {
        QFile history(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                      u"/QtProject.conf"_s);
        const bool there = history.open(QIODevice::ReadOnly);
        EXPECT_FALSE(there && history.readAll().contains(folder.path().c_str()));
    }
    bool print_from_preview = false;
    QPageLayout::Orientation previewed = QPageLayout::Portrait;
    // The name, the title and the folder of the last file dialog.
    QString offered;
    QString offered_by;
    QString offered_in;

    // The line about the saved file is there, as long as its place allows, and whole to a screen
    // reader.
    void expect_saved_line() {
        auto* line = find<QLabel>("lblsaved");
        EXPECT_TRUE(line->isVisible());
        EXPECT_EQ(line->accessibleName(), u"Saved to "_s + save_as);
        EXPECT_EQ(line->text(), line->accessibleName());
    }

    void go_to_result(const char* rate = "chkrate_1") {
        click("Cmdnext");
        click(rate);
        click("Cmdnext");
    }
    void go_to_partial_result() {
        go_to_method();
        click("optmethod_2");
        enter("txtpartial", u"100000"_s);
        click("chkpartial_0");
        choose("cmbscnmonth", u"October"_s);
        click("Cmdnext");
        click("optlength_0");
        enter("txtnumber", u"30"_s);
        go_to_result();
        ASSERT_EQ(screen_name(), u"frmparti"_s);
    }

    // Pages of the file that Print wrote; 0 when there is none.
    QByteArray saved() const {
        QFile file(save_as);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    int printed_pages() {
        const auto pages = static_cast<int>(saved().count("/Type /Page >>"));
        QFile::remove(save_as);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        return pages;
    }
};

TEST_F(Printing, PeriodicChartAndReports) {
    go_to_rates();
    click("chkrate_1");
    click("chkrate_2");
    click("Cmdnext");
    const auto rows = work_table_rows();
    click("cmdprint");
    EXPECT_EQ(printed_pages(), 11);  // two of the summary, 349 rows and their 30 sums
    EXPECT_EQ(offered, u"Periodic Payments 5% 2020-01-15.pdf"_s);
    EXPECT_EQ(offered_by, u"No printer is set up - save as PDF"_s);
    expect_saved_line();
    click("cmdcompare");
    click("cmdprint");
    EXPECT_EQ(printed_pages(), 1);
    EXPECT_EQ(offered, u"Periodic Payments Comparison 2020-01-15.pdf"_s);
    menu_entry = u"Pre&view..."_s;
    click("cmdprintmenu");
    EXPECT_EQ(previewed, QPageLayout::Landscape);
    click("cmdprev");
    choose("cmbrate", u" 6%"_s);
    EXPECT_FALSE(find<QLabel>("lblsaved")->isVisible());
    choose("cmbrate", u" 5%"_s);
    // Somebody else stores something in between; what the screen shows is printed, and stored again.
    const auto heading = [this] {
        return sql_rows(folder.database(), "SELECT dtitle, rate, totalvalue FROM distrib");
    };
    run_sql(
        folder.database(),
        "DELETE FROM schedule WHERE number > 9; UPDATE distrib SET totalvalue = '$1.00', rate = ''");
    click("cmdprint");
    EXPECT_EQ(printed_pages(), 11);
    EXPECT_EQ(work_table_rows(), rows);
    EXPECT_EQ(heading(), std::vector<std::string>{"Periodic Payments - Monthly  5% $578,796.05"});
    find<QWidget>("cmbrate")->setFocus();
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(printed_pages(), 11);
    click("pichart");
    EXPECT_EQ(screen_name(), u"frmcperi"_s);
    EXPECT_EQ(text_of("lbltitle"), u"Periodic Payments - Monthly (Over Life Expectancy)"_s);
    EXPECT_EQ(text_of("lblfrequency"), u"Monthly Payments"_s);
    EXPECT_EQ(text_of("lblperiod"), u"(July, 2020 - July, 2049)"_s);
    EXPECT_EQ(text_of("lblrate"), u"BASED ON  5% ANNUAL RETURN "_s);
    EXPECT_EQ(text_of("lblnumber"), u"Number of Payments: 349"_s);
    EXPECT_EQ(text_of("lblcurvalue"), u"$250,000.00"_s);
    EXPECT_EQ(text_of("lbltotalvalue"), u"$578,796.05"_s);
    const QCPAxis* axis = find<QWidget>("grphsche")->findChild<QCustomPlot*>()->yAxis;
    EXPECT_EQ(axis->tickVectorLabels().toList().join(u' ').toStdString(),
              "$0 $5,000 $10,000 $15,000 $20,000 $25,000 $30,000 $35,000 $38,000");
    EXPECT_EQ(axis->range().upper, 38000.0);
    EXPECT_EQ(focus_name(), u"grphsche"_s);
    EXPECT_EQ(text_of("lblreadout"), u"2020: Total paid $4,405.80"_s);  // 6 x 734.30
    press(Qt::Key_Right);
    EXPECT_EQ(text_of("lblreadout"), u"2021: Total paid $9,036.72"_s);  // 12 x 753.06
    press(Qt::Key_End);
    EXPECT_TRUE(text_of("lblreadout").startsWith(u"2049: "_s));
    click("cmdprint");
    EXPECT_EQ(printed_pages(), 1);
    expect_saved_line();
    menu_entry = u"P&DF..."_s;
    click("cmdsave");
    EXPECT_EQ(printed_pages(), 1);
    EXPECT_EQ(offered, u"Periodic Payments Chart 5% 2020-01-15.pdf"_s);
    EXPECT_EQ(offered_by, u"Save as PDF"_s);
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(printed_pages(), 1);
    EXPECT_EQ(find<BarChart>("grphsche")->detail(29),
              u"Age 99"_s);  // born in June 1950, last paid in July 2049
    find<QWidget>("grphsche")->setFocus();
    press(Qt::Key_Left);
    press(Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(focus_name(), u"optchart_1"_s);
    EXPECT_EQ(text_of("lblreadout"), u"Balance by calendar year"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(text_of("lblreadout"),
              u"2048: Balance "_s + rows[341][4]);  // December 2048, the same bar
    press(Qt::Key_Home);
    EXPECT_EQ(text_of("lblreadout"), u"2020: Balance "_s + rows[5][4]);
    press(Qt::Key_End);
    EXPECT_EQ(text_of("lblreadout"), u"2049: Balance $0.00"_s);
    click("cmdprint");
    EXPECT_EQ(printed_pages(), 1);
    EXPECT_EQ(offered, u"Periodic Payments Balance Chart 5% 2020-01-15.pdf"_s);
    press(Qt::Key_Y, Qt::AltModifier);
    EXPECT_EQ(text_of("lblreadout"), u"All payments: Total paid $578,796.05"_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(screen_name(), u"frmperio"_s);
    EXPECT_EQ(grid_rows(), rows);
    EXPECT_EQ(work_table_rows(), rows);
    EXPECT_EQ(notes_shown.count(u"frmclaim"_s), 1);
}

TEST_F(Printing, PartialChartHasTheLumpSumAsItsOwnPoint) {
    go_to_partial_result();
    click("cmdprint");
    EXPECT_EQ(printed_pages(), 3);
    click("cmdchart");
    EXPECT_EQ(screen_name(), u"frmcpart"_s);
    EXPECT_EQ(text_of("lbltitle"), u"Partial Lump Sum Payments"_s);
    EXPECT_EQ(text_of("lblpartial"), u"$100,000.00"_s);
    press(Qt::Key_Backtab);
    EXPECT_EQ(focus_name(), u"optchart_0"_s);
    press(Qt::Key_Right);  // no lump sum among the balances
    EXPECT_EQ(find<BarChart>("grphsche")->places(), 4);
    press(Qt::Key_Left);
    EXPECT_EQ(find<BarChart>("grphsche")->places(), 5);
    EXPECT_EQ(find<BarChart>("grphsche")->detail(0), QString());
    press(Qt::Key_Backtab);
    press(Qt::Key_Down);
    EXPECT_EQ(find<QWidget>("summary")->accessibleName(), u"Lump Sum (7/2020): $100,000.00"_s);
    EXPECT_TRUE(text_of("lblreadout").startsWith(u"All payments: Total paid "_s));
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Home);
    EXPECT_EQ(text_of("lblreadout"), u"Lump Sum: Total paid $100,000.00"_s);
    press(Qt::Key_Right);
    EXPECT_TRUE(text_of("lblreadout").startsWith(u"2020: "_s));  // October to December, no lump sum
    EXPECT_FALSE(text_of("lblreadout").contains(u"$100,"_s));
    press(Qt::Key_End);
    EXPECT_TRUE(text_of("lblreadout").startsWith(u"2023: "_s));
    click("cmdprint");
    EXPECT_EQ(printed_pages(), 1);
    click("picprev");
    EXPECT_EQ(screen_name(), u"frmparti"_s);
}

TEST_F(Printing, ChartNeedsTwoYears) {
    go_to_length();
    click("optlength_0");
    enter("txtnumber", u"6"_s);
    go_to_result();
    for (const char* button : {"cmdchart", "pichart"}) {
        click(button);
        EXPECT_EQ(take_messages(),
                  std::vector<std::string>{"This chart is only available for distribution payments "
                                           "spread over two calendar years or longer."});
        EXPECT_EQ(screen_name(), u"frmperio"_s);
    }
    // The comparison draws no line then, neither on the screen nor on paper.
    std::ofstream(folder.path() / "compare.rpt")
        << "rates{{#result.chart}}<p style='page-break-before: always'>chart</p>{{/result.chart}}";
    for (const auto& [payments, pages] : {std::pair{u"6"_s, 1}, {u"24"_s, 2}}) {
        click("cmdprev");
        click("cmdprev");
        enter("txtnumber", payments);
        click("Cmdnext");
        find<QCheckBox>("chkrate_1")->setChecked(true);
        find<QCheckBox>("chkrate_2")->setChecked(true);
        click("Cmdnext");
        click("cmdcompare");
        EXPECT_EQ(find<QWidget>("grphcompare")->isVisible(), pages == 2);
        click("cmdprint");
        EXPECT_EQ(printed_pages(), pages) << payments.toStdString();
        click("cmdprev");
    }
}

TEST_F(Printing, LumpSumPrintsOneSheet) {
    go_to_method();
    click("optmethod_0");
    go_to_result();
    ASSERT_EQ(screen_name(), u"frmlump"_s);
    run_sql(folder.database(), "UPDATE distrib SET totalvalue = NULL");
    click("cmdprint");
    EXPECT_EQ(printed_pages(), 2);
    EXPECT_EQ(sql_rows(folder.database(), "SELECT totalvalue FROM distrib"),
              std::vector<std::string>{"$256,285.85"});
    // Printing only reads.
    std::filesystem::permissions(folder.database(), std::filesystem::perms::owner_read);
    click("cmdprint");
    EXPECT_TRUE(take_messages().empty());
    EXPECT_EQ(printed_pages(), 2);
}

// What is printed stays chosen as long as the participant is on the screens.
TEST_F(Printing, PartsAreChosenInTheMenu) {
    go_to_partial_result();
    const auto tick = [this](const QString& entry, const QString& said) {
        menu_entry = entry;
        click("cmdprintmenu");
        EXPECT_EQ(text_of("lblsaved"), said);
        EXPECT_EQ(find<QWidget>("cmdprint")->accessibleDescription(), said);
        click("cmdprint");
        EXPECT_EQ(offered_by, u"No printer is set up - save as PDF"_s);
    };
    click("cmdprint");
    EXPECT_EQ(printed_pages(), 3) << "summary and payments";
    tick(u"With &All Payments"_s, u"Prints the summary only"_s);
    EXPECT_EQ(printed_pages(), 2);
    menu_entry = u"P&DF..."_s;
    click("cmdsave");
    EXPECT_EQ(printed_pages(), 2);
    tick(u"With the &Years"_s, u"Prints the summary and the years"_s);
    EXPECT_EQ(printed_pages(), 3);
    menu_entry = u"Print with &Options..."_s;  // no printer to have options
    click("cmdprintmenu");
    EXPECT_EQ(printed_pages(), 3);
    tick(u"With &All Payments"_s, u"Prints the summary, the years and all payments"_s);
    EXPECT_EQ(printed_pages(), 4);
    menu_entry = u"Pre&view..."_s;
    click("cmdprintmenu");
    EXPECT_TRUE(notes_shown.contains(u"printpreview"_s));
    EXPECT_EQ(printed_pages(), 0);
    print_from_preview = true;
    click("cmdprintmenu");
    EXPECT_EQ(offered_by, u"No printer is set up - save as PDF"_s);
    EXPECT_TRUE(saved().contains("MediaBox [ 0 0 595")) << "the paper of the preview, A4";
    EXPECT_EQ(printed_pages(), 4);
    click("cmdchart");
    click("cmdprintmenu");
    EXPECT_EQ(printed_pages(), 1);
    click("cmdprev");
    tick(u"With &All Payments"_s, u"Prints the summary and the years"_s);
    printed_pages();
    click("cmdprev");
    click("Cmdnext");
    click("cmdprint");
    EXPECT_EQ(printed_pages(), 3);
    EXPECT_TRUE(take_messages().empty());
}

// Whatever the size of the texts: no dialog is larger than the display, and what ends it is in sight.
TEST_F(Printing, DialogsFitASmallDisplay) {
    go_to_small_display();
    const QSize room = QGuiApplication::screens().at(1)->availableSize();
    const QStringList ends{u"OK"_s, u"NO"_s, u"Cancel"_s};
    QStringList seen;
    look_at_dialog = [&](QDialog& dialog) {
        seen << dialog.objectName();
        EXPECT_EQ(dialog.size().boundedTo(room), dialog.size()) << seen.last().toStdString();
        for (const auto* button : dialog.findChildren<QPushButton*>()) {
            EXPECT_TRUE(!ends.contains(button->text().remove(u'&')) ||
                        button->visibleRegion().boundingRect() == button->rect())
                << seen.last().toStdString();
        }
        if (auto* pages = dialog.findChild<QPrintPreviewWidget*>()) {
            EXPECT_EQ(pages->zoomMode(), QPrintPreviewWidget::FitToWidth);
            EXPECT_GT(dialog.width(), room.width() * 9 / 10);
            const auto* tools = dialog.findChild<QToolBar*>();
            EXPECT_EQ(tools->actions().constFirst()->text(), u"Print"_s);
        }
    };
    save_as.clear();
    std::string long_text;
    for (int line = 0; line < 30; ++line) {
        long_text += "The report template is missing.\n";
    }
    go_to_participant();
    module->report(long_text);
    module->ask(long_text);
    window->show(ScreenId::frmPortfolios);
    QPrinter printer;
    QPrintDialog options(&printer, window);
    for (auto* button : options.findChildren<QPushButton*>()) {
        if (button->text() == u"&Options >>"_s) {
            button->click();
        }
    }
    options.exec();
    go_to_partial_result();
    for (const auto& [entry, button] :
         {std::pair{u"P&DF..."_s, "cmdsave"}, {u"Pre&view..."_s, "cmdprintmenu"}}) {
        menu_entry = entry;
        click(button);
    }
    EXPECT_EQ(seen.join(u' ').toStdString(),
              "frmmsg frmmsg1 frmPortfolios  frmclaim savepdf printpreview");
    EXPECT_TRUE(find<QToolButton>("cmdprintmenu")->accessibleName().startsWith(u"More"_s));
}

// Pages that take long are shown to do so; Escape cancels.
TEST_F(Printing, CancelLeavesNothingBehind) {
    cancel_prints = true;
    go_to_participant();
    int pages = 0;
    const Report page = chart_page(u"Slow"_s, {}, [&pages](QPainter&, const QRectF&) {
        ++pages;
        QThread::msleep(300);
    });
    const PrintJob slow{
        .title = u"Slow & steady"_s, .file_name = u"slow"_s, .reports = std::vector<Report>(5, page)};
    std::ofstream(save_as.toStdString()) << "older";
    look_at_dialog = [](QDialog& dialog) {
        if (dialog.objectName() == u"printprogress"_s) {
            EXPECT_TRUE(dialog.isModal());
            EXPECT_EQ(dialog.findChild<QLabel*>()->text(), u"Page 3 of 5"_s);
        }
    };
    const auto print_it = [&](const PrintJob& job) {
        return print(*module, window->visible_screen(), Destination::pdf_file, job);
    };
    EXPECT_EQ(print_it(slow), QString());
    EXPECT_TRUE(notes_shown.contains(u"printprogress"_s));
    EXPECT_LT(pages, 5);
    EXPECT_TRUE(take_messages().empty());
    EXPECT_EQ(std::filesystem::file_size(save_as.toStdString()), 5u);
    int files = 0;
    for (const auto& file : std::filesystem::directory_iterator(folder.path())) {
        files += file.path().filename().string().starts_with("out") ? 1 : 0;
    }
    EXPECT_EQ(files, 1);

    PrintJob quick = slow;
    quick.reports.resize(1);
    EXPECT_EQ(print_it(quick), u"Saved to "_s + save_as);
    QFile pdf(save_as);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    const QByteArray text = pdf.readAll();
    EXPECT_TRUE(text.contains(">Slow &amp; steady</rdf:li>"));
    EXPECT_TRUE(text.contains(">en-US</rdf:li></rdf:Bag></dc:language>"));

    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter some_pages(&buffer);
    some_pages.setPageRanges(QPageRanges::fromString(u"2-3"_s));
    pages = 0;
    draw_reports(slow.reports, some_pages);
    EXPECT_EQ(pages, 2);
    EXPECT_EQ(buffer.data().count("/Type /Page\n"), 2);
}

// Fonts are looked for once, when a program starts: the same test again, in a program that finds none.
TEST_F(Printing, WithoutAFontSaysSo) {
    if (!qEnvironmentVariableIsSet("KELVAR_TEST_WITHOUT_FONT")) {
        const auto config = folder.path() / "fonts.conf";
        std::ofstream(config) << "<fontconfig><cachedir>" << folder.path().string()
                              << "</cachedir></fontconfig>";
        QProcess again;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"FONTCONFIG_FILE"_s, to_qt(config.string()));
        environment.insert(u"KELVAR_TEST_WITHOUT_FONT"_s, u"1"_s);
        again.setProcessEnvironment(environment);
        again.start(QCoreApplication::applicationFilePath(),
                    {u"--gtest_filter=Printing.WithoutAFontSaysSo"_s});
        ASSERT_TRUE(again.waitForFinished());
        EXPECT_EQ(again.exitCode(), 0) << again.readAllStandardOutput().toStdString();
        return;
    }
    go_to_method();
    click("optmethod_0");
    go_to_result();
    click("cmdprint");
    const auto messages = take_messages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].find("No font is installed"), std::string::npos) << messages[0];
    EXPECT_EQ(printed_pages(), 0);
}

TEST_F(Printing, FileNamesLeaveOutWhatNoneCanHold) {
    const Date day{std::chrono::year{2020} / 1 / 5};
    const std::pair<QString, QString> cases[] = {
        {u"457/401(k) Payments"_s, u"457-401(k) Payments"_s},
        {u" ../.. \\ a:b*c?"_s, u"-.. - a-b-c-"_s},
        {u"one\ntwo\x7f"_s, u"one-two-"_s},
        {u"..."_s, u"Report"_s},
        {QString(400, u'x'), QString(150, u'x')},
        {QString(400, u'\u20ac'), QString(50, u'\u20ac')},
    };
    for (const auto& [title, name] : cases) {
        EXPECT_EQ(proposed_name({}, title, u" -2.5%"_s, day).toStdString(),
                  (name + u" -2.5% 2020-01-05"_s).toStdString());
    }
}

// A file takes what there is room for and the rest not, as on a disk that fills up.
TEST_F(Printing, FilesAreWrittenWholeOrNotAtAll) {
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit room{};
    getrlimit(RLIMIT_FSIZE, &room);
    const std::filesystem::path file = folder.path() / "out.csv";
    for (const qsizetype size : {1, 4'096, 16'384, 16'385, 40'950, 65'536, 1'000'000}) {
        for (const rlim_t free : {0, 1, 4'096, 16'384, 28'672, 40'949, 65'536}) {
            std::ofstream(file) << "older";
            const rlimit little{free, room.rlim_max};
            setrlimit(RLIMIT_FSIZE, &little);
            std::string why;
            try {
                write_whole(*module, to_qt(file.string()), QByteArray(size, 'x'));
            } catch (const FileError& error) {
                why = error.what();
            }
            setrlimit(RLIMIT_FSIZE, &room);
            const bool fits = static_cast<rlim_t>(size) <= free;
            EXPECT_EQ(why.find("File too large") == std::string::npos, fits) << size << ' ' << why;
            EXPECT_EQ(std::filesystem::file_size(file), fits ? size : 5) << size << ' ' << free;
        }
    }
    std::signal(SIGXFSZ, handler);
}

TEST_F(Printing, APrintServerThatNeverAnswersIsNotWaitedFor) {
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    (folder.path() / "cups").string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int server = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(server, 9), 0);
    const QByteArray none = qgetenv("CUPS_SERVER");
    qputenv("CUPS_SERVER", address.sun_path);
    go_to_method();
    click("optmethod_0");
    go_to_result();
    QElapsedTimer timer;
    const auto seconds_of = [&](const char* button) {
        notes_shown.clear();
        timer.start();
        click(button);
        return static_cast<double>(timer.elapsed()) / 1000.0;
    };
    EXPECT_NEAR(seconds_of("cmdprint"), 3.5, 1.5);
    EXPECT_EQ(offered_by, u"The print server does not answer - save as PDF"_s);
    EXPECT_EQ(printed_pages(), 2);
    menu_entry = u"Pre&view..."_s;
    EXPECT_LT(seconds_of("cmdprintmenu"), 2.0);
    EXPECT_EQ(notes_shown, QStringList{u"printpreview"_s});
    cancel_prints = true;
    EXPECT_LT(seconds_of("cmdprint"), 2.0);
    EXPECT_EQ(notes_shown, QStringList{u"printprogress"_s});
    EXPECT_TRUE(take_messages().empty());
    EXPECT_EQ(printed_pages(), 0);
    qputenv("CUPS_SERVER", none);
    close(server);
}

TEST_F(Printing, NothingToPrintWhileTheResultIsCovered) {
    go_to_length();
    click("optlength_1");
    enter("txtfixamount", u"1400"_s);
    click("Cmdnext");
    click("chkrate_1");
    click("chkrate_4");
    click("Cmdnext");
    ASSERT_EQ(screen_name(), u"frmperio"_s);
    EXPECT_TRUE(find<QWidget>("cmdprint")->isEnabled());
    choose("cmbrate", u" 8%"_s);
    EXPECT_EQ(take_messages().size(), 1u);
    for (const char* button : {"cmdprint", "cmdprintmenu", "cmdchart", "pichart"}) {
        EXPECT_FALSE(find<QWidget>(button)->isEnabled()) << button;
    }
}

// Whatever goes wrong is one message; the schedule stays and the next print works.
TEST_F(Printing, FailuresAreOneMessageEach) {
    go_to_partial_result();
    const auto rows = grid_rows();
    const auto template_file = folder.path() / "schedule.rpt";
    const auto hidden = folder.path() / "hidden";

    std::filesystem::rename(template_file, hidden);
    click("cmdprint");
    auto messages = take_messages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_TRUE(messages[0].starts_with("Not everything was printed.\n\n")) << messages[0];
    EXPECT_NE(messages[0].find(template_file.string()), std::string::npos) << messages[0];
    EXPECT_EQ(printed_pages(), 2);
    notes_shown.clear();
    std::filesystem::rename(folder.path() / "partial.rpt", folder.path() / "hidden too");
    click("cmdprint");
    messages = take_messages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_TRUE(messages[0].starts_with("Nothing was printed.\n\n")) << messages[0];
    EXPECT_NE(messages[0].find("partial.rpt"), std::string::npos) << messages[0];
    EXPECT_NE(messages[0].find(template_file.string()), std::string::npos) << messages[0];
    EXPECT_FALSE(notes_shown.contains(u"savepdf"_s));
    std::filesystem::rename(folder.path() / "hidden too", folder.path() / "partial.rpt");
    std::filesystem::rename(hidden, template_file);
    // The office's own words stand on the summary, or are refused like a template.
    std::ofstream(folder.path() / "office.html") << "<p>{{result.figur}}</p>";
    click("cmdprint");
    messages = take_messages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_TRUE(messages[0].starts_with("Not everything was printed.\n\n")) << messages[0];
    EXPECT_TRUE(
        messages[0].ends_with("office.html names an unknown field: \"result.figur\" in line 1."))
        << messages[0];
    EXPECT_EQ(printed_pages(), 3);
    std::filesystem::remove(folder.path() / "office.html");

    const QString good = save_as;
    const std::string pipe = (folder.path() / "pipe.pdf").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& unwritable : {std::string("/proc/out.pdf"), pipe}) {
        save_as = to_qt(unwritable);
        click("cmdprint");
        messages = take_messages();
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_NE(messages[0].find(unwritable), std::string::npos) << messages[0];
    }

    // The program's own files, where they lie and through links.
    namespace fs = std::filesystem;
    fs::copy_file(KELVAR_HELP_FILE, folder.path() / "vestoraq.hlp");
    const TemporaryProgramFolder elsewhere;
    fs::create_symlink(folder.database(), elsewhere.path() / "symbolic.pdf");
    fs::create_hard_link(folder.database(), elsewhere.path() / "hard.pdf");
    fs::create_directory_symlink(folder.path(), elsewhere.path() / "folder");
    fs::create_symlink(folder.path() / "vestoraq.mdb-journal", elsewhere.path() / "journal.pdf");
    fs::create_symlink(fs::read_symlink("/proc/self/exe"), elsewhere.path() / "program.pdf");
    for (const fs::path& own :
         {folder.database(), folder.path() / "vestoraq.mdb-journal", folder.path() / "vestoraq.mdb-wal",
          folder.path() / "vestoraq.mdb-shm", folder.path() / "vestoraq.hlp",
          folder.path() / "lumpsum.rpt", folder.path() / "schelife.rpt",
          elsewhere.path() / "symbolic.pdf", elsewhere.path() / "hard.pdf",
          elsewhere.path() / "folder" / "vestoraq.mdb", elsewhere.path() / "journal.pdf",
          elsewhere.path() / "program.pdf"}) {
        const bool existed = fs::exists(own);
        const auto size = existed ? fs::file_size(own) : 0;
        save_as = to_qt(own.string());
        click("cmdprint");
        messages = take_messages();
        ASSERT_EQ(messages.size(), 1u) << own;
        EXPECT_NE(messages[0].find("belongs to the program"), std::string::npos) << messages[0];
        ASSERT_EQ(fs::exists(own), existed) << own;
        EXPECT_EQ(existed ? fs::file_size(own) : 0, size) << own;
    }

    // A link to any other file stays one.
    std::ofstream(elsewhere.path() / "other") << "old";
    fs::create_symlink(elsewhere.path() / "other", elsewhere.path() / "link.pdf");
    save_as = to_qt((elsewhere.path() / "link.pdf").string());
    click("cmdprint");
    EXPECT_TRUE(take_messages().empty());
    EXPECT_TRUE(fs::is_symlink(elsewhere.path() / "link.pdf"));
    EXPECT_GT(fs::file_size(elsewhere.path() / "other"), 3u);

    save_as.clear();
    click("cmdprint");
    EXPECT_EQ(offered_in.toStdString(), elsewhere.path()) << "where something was saved last";
    EXPECT_TRUE(take_messages().empty());
    EXPECT_FALSE(QFile::exists(good));

    EXPECT_EQ(grid_rows(), rows);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    save_as = good;
    click("cmdprint");
    EXPECT_EQ(printed_pages(), 3);
    EXPECT_TRUE(take_messages().empty());
}

}  // namespace

}  // namespace kelvar::test
