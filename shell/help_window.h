// The help file in a window of its own beside the program: contents, index and search on the left, the
// page on the right. It remembers nothing between runs.
#pragma once

#include <QMainWindow>
#include <QTemporaryDir>
#include <memory>

class QBoxLayout;
class QHelpContentWidget;
class QHelpEngine;
class QHelpSearchQueryWidget;
class QTabWidget;
class QTextBrowser;

namespace kelvar {

class HelpWindow : public QMainWindow {
    Q_OBJECT

public:
    // Throws std::runtime_error naming the file when it is missing or is not the program's help file,
    // and when there is no temporary folder to write to. The window must be destroyed before the
    // application object.
    explicit HelpWindow(const QString& help_file);
    ~HelpWindow() override;

    // Brings the window to the front with the page of this screen, or the start page when the screen
    // has none.
    void show_page(const QString& screen_name);

private:
    void open_help_file(const QString& help_file);
    void build_window();
    QBoxLayout* button_row();
    QWidget* contents_tab();
    QWidget* index_tab();
    QWidget* search_tab();
    void add_shortcuts();
    void go_to_search();
    void mark_in_contents(const QUrl& page);

    QTemporaryDir folder_;  // what the engine works out about the help file
    std::unique_ptr<QHelpEngine> engine_;
    QTextBrowser* page_ = nullptr;
    QTabWidget* tabs_ = nullptr;
    QHelpContentWidget* contents_ = nullptr;
    QHelpSearchQueryWidget* query_ = nullptr;
};

}  // namespace kelvar
