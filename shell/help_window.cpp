#include "shell/help_window.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QHelpSearchEngine>
#include <QHelpSearchQueryWidget>
#include <QHelpSearchResultWidget>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <stdexcept>

#include "widgets/controls.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

QUrl page_url(const QString& screen_name) {
    return QUrl(u"qthelp://kelvar/help/"_s + screen_name + u".html"_s);
}

QUrl start_page() {
    return page_url(u"index"_s);
}

// Reads pages and their style sheet out of the help file.
class HelpPage : public QTextBrowser {
public:
    explicit HelpPage(const QHelpEngine& engine) : engine_(engine) {}

    QVariant loadResource(int, const QUrl& name) override {
        return engine_.fileData(source().resolved(name));
    }

private:
    const QHelpEngine& engine_;
};

}  // namespace

HelpWindow::HelpWindow(const QString& help_file) {
    setObjectName(u"helpwindow"_s);
    setWindowTitle(u"Kelvar Help"_s);
    setAttribute(Qt::WA_QuitOnClose, false);
    open_help_file(help_file);
    build_window();
    add_shortcuts();
    engine_->setupData();  // fills contents, index and search
}

// The widgets read the engine as long as they live.
HelpWindow::~HelpWindow() {
    delete takeCentralWidget();
}

void HelpWindow::open_help_file(const QString& help_file) {
    const QFileInfo file(help_file);
    if (!file.exists()) {
        throw std::runtime_error("The help file " + to_utf8(help_file) + " is missing.");
    }
    if (!file.isFile()) {  // a pipe would be waited for
        throw std::runtime_error("The help file " + to_utf8(help_file) + " is not a file.");
    }
    // Where the folder is missing, the toolkit would go on in the root folder.
    const bool missing = QDir::tempPath().isEmpty();
    if (missing || !folder_.isValid()) {
        throw std::runtime_error("Help cannot write to the folder for temporary files, " +
                                 to_utf8(qEnvironmentVariable("TMPDIR", u"/tmp"_s)) + ": " +
                                 (missing ? "it is missing" : to_utf8(folder_.errorString())) + ".");
    }
    engine_ = std::make_unique<QHelpEngine>(folder_.filePath(u"help"_s));
    engine_->setReadOnly(false);
    engine_->setUsesFilterEngine(true);
    if (QHelpEngine::namespaceName(file.absoluteFilePath()).isEmpty() || !engine_->setupData() ||
        !engine_->registerDocumentation(file.absoluteFilePath()) ||
        engine_->fileData(start_page()).isEmpty()) {
        throw std::runtime_error("The help file " + to_utf8(help_file) +
                                 " cannot be read. It may be damaged.");
    }
}

void HelpWindow::build_window() {
    page_ = new HelpPage(*engine_);
    page_->setObjectName(u"helppages"_s);
    page_->setAccessibleName(u"Help page"_s);
    page_->document()->setDocumentMargin(2 * theme::grid);

    tabs_ = new QTabWidget;
    tabs_->setObjectName(u"tabs"_s);
    tabs_->setAccessibleName(u"Ways to find a page"_s);
    tabs_->addTab(contents_tab(), u"&Contents"_s);
    tabs_->addTab(index_tab(), u"&Index"_s);
    tabs_->addTab(search_tab(), u"&Search"_s);
    connect(tabs_, &QTabWidget::currentChanged, this, [this] {
        if (!tabs_->tabBar()->hasFocus()) {  // not while arrow keys go along the tabs
            tabs_->currentWidget()->setFocus(Qt::ShortcutFocusReason);
        }
    });

    auto* sides = new QSplitter;
    sides->setChildrenCollapsible(false);
    sides->addWidget(tabs_);
    sides->addWidget(page_);
    sides->setStretchFactor(1, 1);

    auto* central = new QWidget;
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(theme::grid, theme::grid, theme::grid, theme::grid);
    column->addLayout(button_row());
    column->addWidget(sides, 1);
    setCentralWidget(central);

    const QSize letter(fontMetrics().averageCharWidth(), fontMetrics().lineSpacing());
    const QSize desktop = screen()->availableSize() * 9 / 10;
    resize(QSize(120 * letter.width(), 40 * letter.height()).boundedTo(desktop));
    sides->setSizes({width() / 3, width() * 2 / 3});
}

QBoxLayout* HelpWindow::button_row() {
    auto* row = new QHBoxLayout;
    const auto add = [row](const QString& text, const char* name) {
        auto* button = control::button(text, name);
        row->addWidget(button);
        return button;
    };
    auto* back = add(u"&Back"_s, "cmdback");
    auto* forward = add(u"&Forward"_s, "cmdforward");
    auto* home = add(u"&Home"_s, "cmdhome");
    row->addStretch(1);
    auto* cmdclose = add(u"C&lose"_s, "cmdclose");
    back->setIcon(theme::icon(u"previous"_s));
    forward->setIcon(theme::icon(u"next"_s));
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QPushButton::clicked, page_, &QTextBrowser::backward);
    connect(forward, &QPushButton::clicked, page_, &QTextBrowser::forward);
    connect(home, &QPushButton::clicked, page_, [this] { page_->setSource(start_page()); });
    connect(cmdclose, &QPushButton::clicked, this, &QWidget::close);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    return row;
}

QWidget* HelpWindow::contents_tab() {
    contents_ = engine_->contentWidget();
    contents_->setObjectName(u"contents"_s);
    contents_->setAccessibleName(u"Contents"_s);
    contents_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    contents_->header()->setStretchLastSection(false);
    connect(contents_, &QHelpContentWidget::linkActivated, page_,
            [this](const QUrl& page) { page_->setSource(page); });
    connect(contents_, &QAbstractItemView::clicked, page_, [this](const QModelIndex& line) {
        page_->setSource(engine_->contentModel()->contentItemAt(line)->url());
    });
    connect(engine_->contentModel(), &QHelpContentModel::contentsCreated, this, [this] {
        contents_->expandAll();
        mark_in_contents(page_->source());
    });
    connect(page_, &QTextBrowser::sourceChanged, this, &HelpWindow::mark_in_contents);
    return contents_;
}

QWidget* HelpWindow::index_tab() {
    auto* tab = new QWidget;
    auto* column = new QVBoxLayout(tab);
    auto* caption = theme::label(u"Loo&k for:"_s, theme::Role::body);
    auto* word = new QLineEdit;
    word->setObjectName(u"word"_s);
    word->setAccessibleName(u"Look for a word of the index"_s);
    caption->setBuddy(word);
    QHelpIndexWidget* index = engine_->indexWidget();
    index->setObjectName(u"index"_s);
    index->setAccessibleName(u"Index"_s);
    column->addWidget(caption);
    column->addWidget(word);
    column->addWidget(index, 1);
    tab->setFocusProxy(word);
    connect(word, &QLineEdit::textChanged, index,
            [index](const QString& text) { index->filterIndices(text); });
    connect(word, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);
    connect(index, &QAbstractItemView::clicked, index, &QHelpIndexWidget::activateCurrentItem);
    connect(index, &QHelpIndexWidget::documentActivated, page_,
            [this](const QHelpLink& page) { page_->setSource(page.url); });
    return tab;
}

QWidget* HelpWindow::search_tab() {
    auto* tab = new QWidget;
    auto* column = new QVBoxLayout(tab);
    QHelpSearchEngine* search = engine_->searchEngine();
    query_ = search->queryWidget();
    query_->setObjectName(u"query"_s);
    query_->findChild<QLineEdit*>()->setAccessibleName(u"Search the help"_s);
    QHelpSearchResultWidget* results = search->resultWidget();
    results->setObjectName(u"results"_s);
    results->setAccessibleName(u"Pages found"_s);
    column->addWidget(query_);
    column->addWidget(results, 1);
    tab->setFocusProxy(query_);
    connect(query_, &QHelpSearchQueryWidget::search, search,
            [this, search] { search->search(query_->searchInput()); });
    connect(results, &QHelpSearchResultWidget::requestShowLink, page_,
            [this](const QUrl& page) { page_->setSource(page); });
    return tab;
}

void HelpWindow::add_shortcuts() {
    const auto add = [this](QKeyCombination keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(Qt::CTRL | Qt::Key_F, [this] { go_to_search(); });
    add(Qt::ALT | Qt::Key_Left, [this] { page_->backward(); });
    add(Qt::ALT | Qt::Key_Right, [this] { page_->forward(); });
    add(Qt::ALT | Qt::Key_Home, [this] { page_->setSource(start_page()); });
    add(Qt::Key_Escape, [this] { close(); });
}

void HelpWindow::go_to_search() {
    tabs_->setCurrentIndex(2);
    query_->setFocus(Qt::ShortcutFocusReason);
}

void HelpWindow::mark_in_contents(const QUrl& page) {
    contents_->setCurrentIndex(contents_->indexOf(page));
}

void HelpWindow::show_page(const QString& screen_name) {
    const QUrl page = page_url(screen_name);
    page_->setSource(engine_->fileData(page).isEmpty() ? start_page() : page);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    page_->setFocus(Qt::OtherFocusReason);
}

}  // namespace kelvar
