// The shipped help file: a page for every screen with Help, no dead link, and a window that refuses
// what is no help file.

#include "shell/help_window.h"

#include <sys/stat.h>

#include <QApplication>
#include <QFile>
#include <QHelpIndexWidget>
#include <QHelpSearchQueryWidget>
#include <QHelpSearchResultWidget>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>
#include <filesystem>
#include <fstream>

#include "tests/support/ui_harness.h"

namespace kelvar::test {

namespace {

using namespace Qt::StringLiterals;

QString shown_page(const HelpWindow& help) {
    return help.findChild<QTextBrowser*>(u"helppages"_s)->source().fileName();
}

TEST(Help, HasAPageForEveryScreenAndNoDeadLinks) {
    HelpWindow help(QStringLiteral(KELVAR_HELP_FILE));
    auto* pages = help.findChild<QTextBrowser*>(u"helppages"_s);
    QStringList open{u"frmdist"_s,    u"frmdist1"_s,   u"frmdist2"_s, u"frmdist3"_s,
                     u"frmdrate"_s,   u"frmlump"_s,    u"frmperio"_s, u"frmparti"_s,
                     u"frmcompare"_s, u"frmchoices"_s, u"frmcperi"_s, u"frmcpart"_s,
                     u"frmvang"_s,    u"frmvang1"_s,   u"frmlife"_s,  u"index"_s};
    QStringList seen;
    QStringList naming_limits;  // pages that link to what is not worked out
    const QRegularExpression link(u"href=\"([a-z0-9_]+)\\.html[#\"]"_s);
    while (!open.isEmpty()) {
        const QString page = open.takeFirst();
        seen << page;
        help.show_page(page);
        EXPECT_EQ(shown_page(help).toStdString(), (page + u".html"_s).toStdString());
        EXPECT_GT(pages->toPlainText().size(), 80) << page.toStdString();
        auto links = link.globalMatch(pages->toHtml());
        while (links.hasNext()) {
            const QString target = links.next().captured(1);
            if (target == u"not_worked_out"_s) {
                naming_limits << page;
            }
            if (!seen.contains(target) && !open.contains(target)) {
                open << target;
            }
        }
    }
    EXPECT_TRUE(seen.contains(u"figures"_s));
    for (const char* page : {"index", "frmlump", "frmperio", "frmparti", "frmcompare", "glossary"}) {
        EXPECT_TRUE(naming_limits.contains(QLatin1String(page))) << page;
    }
    help.show_page(u"no such screen"_s);
    EXPECT_EQ(shown_page(help), u"index.html"_s);
}

// A page that is not there would be replaced by another one when the help file is made.
TEST(Help, ContentsAndIndexNamePagesThatAreThereAndTheIndexIsFiltered) {
    HelpWindow help(QStringLiteral(KELVAR_HELP_FILE));
    QFile project(QStringLiteral(KELVAR_REPORTS) + u"/../help/vestoraq.qhp"_s);
    ASSERT_TRUE(project.open(QIODevice::ReadOnly));
    const QRegularExpression reference(u"ref=\"([^\"]+)\\.html\""_s);
    auto references = reference.globalMatch(QString::fromUtf8(project.readAll()));
    while (references.hasNext()) {
        const QString page = references.next().captured(1);
        help.show_page(page);  // or the start page where there is none
        EXPECT_EQ(shown_page(help).toStdString(), (page + u".html"_s).toStdString());
    }
    const auto* index = help.findChild<QHelpIndexWidget*>(u"index"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return index->model()->rowCount() > 50; }));
    help.findChild<QLineEdit*>(u"word"_s)->setText(u"escape"_s);
    ASSERT_EQ(index->model()->rowCount(), 1);
    EXPECT_EQ(index->model()->index(0, 0).data().toString(), u"Escape key"_s);
}

// The words people type, each by search and, its beginning typed and Enter pressed, by index.
TEST(Help, AWordFindsItsPageBySearchAndIndex) {
    HelpWindow help(QStringLiteral(KELVAR_HELP_FILE));
    auto* query = help.findChild<QHelpSearchQueryWidget*>(u"query"_s);
    auto* results = help.findChild<QHelpSearchResultWidget*>(u"results"_s)->findChild<QTextBrowser*>();
    auto* word = help.findChild<QLineEdit*>(u"word"_s);
    const auto* index = help.findChild<QHelpIndexWidget*>(u"index"_s)->model();
    ASSERT_TRUE(QTest::qWaitFor([&] { return index->rowCount() > 0; }));
    const std::pair<QString, QString> words[] = {
        {u"husband"_s, u"frmdist3.html"_s},       {u"wife"_s, u"frmdist3.html"_s},
        {u"tax"_s, u"not_worked_out.html"_s},     {u"death"_s, u"not_worked_out.html"_s},
        {u"heirs"_s, u"not_worked_out.html"_s},   {u"inflation"_s, u"not_worked_out.html"_s},
        {u"penalty"_s, u"not_worked_out.html"_s}, {u"minimum"_s, u"glossary.html"_s},
        {u"rollover"_s, u"frmdist2.html"_s},      {u"divorce"_s, u"not_worked_out.html"_s},
        {u"save"_s, u"keeping.html"_s},           {u"privacy"_s, u"keeping.html"_s}};
    for (const auto& [typed, page] : words) {
        const auto found = [&, typed = typed, page = page] {
            query->setSearchInput(typed);  // again and again until the pages are indexed
            emit query->search();
            QTest::qWait(50);
            return results->toHtml().contains(u'/' + page) &&
                   results->toPlainText().contains(typed, Qt::CaseInsensitive);
        };
        EXPECT_TRUE(QTest::qWaitFor(found)) << typed.toStdString();
        help.show_page(u"index"_s);
        word->setText(typed);
        QTest::keyClick(word, Qt::Key_Return);
        EXPECT_EQ(shown_page(help).toStdString(), page.toStdString()) << typed.toStdString();
    }
}

TEST(Help, RefusesWhatIsNoHelpFile) {
    const TemporaryProgramFolder folder;
    const std::filesystem::path file = folder.path() / "vestoraq.hlp";
    const auto expect_refusal = [&](const char* name) {
        try {
            const HelpWindow help(QString::fromStdString(file.string()));
            ADD_FAILURE() << name << " was opened";
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find(file.string()), std::string::npos) << error.what();
        }
    };
    expect_refusal("missing");
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    expect_refusal("pipe");
    std::filesystem::remove(file);
    std::filesystem::create_symlink("/dev/zero", file);
    expect_refusal("device");
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    expect_refusal("folder");
    std::filesystem::remove(file);
    std::ofstream(file).flush();
    expect_refusal("empty");
    std::ofstream(file) << "This is not a help file, whatever its name says.";
    expect_refusal("text");
    std::filesystem::copy_file(folder.database(), file,
                               std::filesystem::copy_options::overwrite_existing);
    expect_refusal("another database");
    std::filesystem::copy_file(KELVAR_HELP_FILE, file,
                               std::filesystem::copy_options::overwrite_existing);
    std::filesystem::resize_file(file, std::filesystem::file_size(file) / 4);
    expect_refusal("cut off");
}

TEST(Help, NeedsAFolderForTemporaryFiles) {
    const QByteArray before = qgetenv("TMPDIR");
    const TemporaryProgramFolder folder;
    const std::string none = (folder.path() / "not made").string();
    qputenv("TMPDIR", none.c_str());
    try {
        const HelpWindow help(QStringLiteral(KELVAR_HELP_FILE));
        ADD_FAILURE() << "opened";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("folder for temporary files"), std::string::npos)
            << error.what();
        EXPECT_NE(std::string(error.what()).find(none), std::string::npos) << error.what();
    }
    if (before.isNull()) {
        qunsetenv("TMPDIR");
    } else {
        qputenv("TMPDIR", before);
    }
}

// Help opens at the screen's page and stays open while the user works; F1 does the same.
TEST_F(UiTest, HelpStaysOpenBesideTheProgram) {
    std::filesystem::copy_file(KELVAR_HELP_FILE, folder.path() / "vestoraq.hlp");
    go_to_participant();
    click("cmdhelp");
    HelpWindow* help = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets()) {
        help = qobject_cast<HelpWindow*>(top) != nullptr ? qobject_cast<HelpWindow*>(top) : help;
    }
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(shown_page(*help), u"frmdist1.html"_s);
    click("cmdprev");
    EXPECT_TRUE(help->isVisible());
    press(Qt::Key_F1);
    EXPECT_EQ(shown_page(*help), u"frmdist.html"_s);
    EXPECT_TRUE(take_messages().empty());
}

}  // namespace

}  // namespace kelvar::test
