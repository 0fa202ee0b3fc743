// The main window mdifrmd: owns the screens, knows how each is made, shows one at a time.
#pragma once

#include <QMainWindow>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "core/module1.h"
#include "core/screens.h"

class QDialog;
class QStackedWidget;

namespace kelvar {

class HelpWindow;
class KeptParticipant;
class Screen;

class MainWindow : public QMainWindow, public Screens {
    Q_OBJECT

public:
    using Factory = std::function<Screen*()>;
    using DialogFactory = std::function<QDialog*(QWidget* parent)>;

    MainWindow();
    ~MainWindow() override;

    // Makes a screen known; `make` runs on first use.
    void add(ScreenId id, Factory make);
    // The same for a screen that is shown modally over the one in front; show returns when it is
    // closed.
    void add_modal(ScreenId id, DialogFactory make);
    // Takes the standard size, centres itself and opens the title screen. Throws DatabaseError.
    void load(Module1& module);

    bool offers(ScreenId id) const override {
        return factories_.contains(id) || dialog_factories_.contains(id);
    }
    void show(ScreenId id) override;
    void hide(ScreenId id) override;
    void close(ScreenId id) override;
    void focus(std::string_view field) override;
    void show_help(const std::string& help_file, const std::string& screen_name) override;
    void show_message(const std::string& text) override;
    bool ask(const std::string& text) override;
    bool leave_participant() override;
    void save_participant(bool under_another_name) override;
    void open_participant() override;
    void new_participant() override;
    Entries entered() const override;
    void enter(const Entries& entries) override;

    // The result of a question as a MessageDialog gives it.
    int ask_to_save(const QString& text);
    // Opens a participant's file; while the title is in front, as soon as the menu is.
    void open_file(const QString& path);

    using QMainWindow::close;
    using QMainWindow::hide;
    using QMainWindow::show;

    // The screen in front; null before load.
    Screen* visible_screen() const;
    // Null when the screen was not made, or is closed.
    Screen* screen_of(ScreenId id) const;
    // Closes all that can have been opened from the menu on.
    void close_all_but_the_menu();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void fit_to_display();
    void centre();
    void record_place();
    void bring_topmost_to_front();
    int run_message(bool question, const QString& text);

    Module1* module_ = nullptr;
    QSize standard_;  // of a screen
    QStackedWidget* stack_ = nullptr;
    QWidget* blank_ = nullptr;  // in the stack's front while a closed screen has no successor yet
    std::map<ScreenId, Factory> factories_;
    std::map<ScreenId, DialogFactory> dialog_factories_;
    std::map<ScreenId, Screen*> screens_;
    std::vector<ScreenId> order_;  // shown screens, the one in front last
    Screen* front_ = nullptr;      // the one that was last brought to the front
    std::unique_ptr<HelpWindow> help_;
    std::unique_ptr<KeptParticipant> kept_;  // null before load
    bool message_open_ = false;
    bool ending_ = false;
};

}  // namespace kelvar
