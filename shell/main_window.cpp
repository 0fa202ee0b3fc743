#include "shell/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <memory>

#include "shell/help_window.h"
#include "shell/kept_participant.h"
#include "shell/screen.h"
#include "widgets/accessible.h"
#include "widgets/message_dialog.h"
#include "widgets/screen_room.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr double twips_per_pixel = 10.0;

int pixels(int twips) {
    return static_cast<int>(std::lround(twips / twips_per_pixel));
}

}  // namespace

MainWindow::MainWindow() : stack_(new QStackedWidget), blank_(new QWidget) {
    setObjectName(u"mdifrmd"_s);
    setWindowTitle(u"Kelvar"_s);
    stack_->addWidget(blank_);
    setCentralWidget(stack_);
    setAcceptDrops(true);
    make_buttons_accessible();
    make_scroll_areas_accessible();
    new ScreenRoom(this);
}

MainWindow::~MainWindow() = default;

void MainWindow::add(ScreenId id, Factory make) {
    factories_[id] = std::move(make);
}

void MainWindow::add_modal(ScreenId id, DialogFactory make) {
    dialog_factories_[id] = std::move(make);
}

void MainWindow::load(Module1& module) {
    module_ = &module;
    kept_ = std::make_unique<KeptParticipant>(*this, module);
    const auto on_keys = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, action] {
            if (screen_of(ScreenId::frmdist) != nullptr) {  // not over the title
                action();
            }
        });
    };
    on_keys(Qt::CTRL | Qt::Key_S, [this] { save_participant(false); });
    on_keys(Qt::CTRL | Qt::SHIFT | Qt::Key_S, [this] { save_participant(true); });
    on_keys(Qt::CTRL | Qt::Key_O, [this] { open_participant(); });
    module.set_screen_size();
    standard_ = QSize(pixels(module.scenario.screen_width), pixels(module.scenario.screen_height));
    fit_to_display();
    resize(stack_->minimumSize());
    centre();
    record_place();
    show(ScreenId::frmkelvd);
}

// Never smaller than the standard size, unless the display itself is: then the contents scroll.
void MainWindow::fit_to_display() {
    stack_->setMinimumSize(standard_.boundedTo(room_on_screen(*this)));
}

// Where notes that open at the pointer reckon from.
void MainWindow::record_place() {
    if (module_ != nullptr) {
        module_->scenario.main_offset_x = x();
        module_->scenario.main_offset_y = y();
    }
}

void MainWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    record_place();
}

void MainWindow::centre() {
    const QRect desktop = screen()->availableGeometry();
    const float left = static_cast<float>(desktop.width() - width()) / 2;
    const float top = static_cast<float>(desktop.height() - height()) / 2;
    move(desktop.x() + std::max(0, static_cast<int>(left)),
         desktop.y() + std::max(0, static_cast<int>(top)));
}

void MainWindow::show(ScreenId id) {
    if (const auto modal = dialog_factories_.find(id); modal != dialog_factories_.end()) {
        const std::unique_ptr<QDialog> dialog(modal->second(this));
        dialog->exec();
        return;
    }
    const bool is_new = !screens_.contains(id);
    if (is_new) {
        std::unique_ptr<Screen> made(factories_.at(id)());
        made->load();
        made->arrange_tab_order();
        stack_->addWidget(made.get());
        screens_[id] = made.release();
    }
    std::erase(order_, id);
    order_.push_back(id);
    bring_topmost_to_front();
    if (is_new) {
        kept_->fill(id);
    }
}

void MainWindow::hide(ScreenId id) {
    if (std::erase(order_, id) > 0) {
        bring_topmost_to_front();
    }
}

void MainWindow::close(ScreenId id) {
    if (id == ScreenId::mdifrmd) {
        ending_ = true;
        QMainWindow::close();
        return;
    }
    const auto found = screens_.find(id);
    if (found == screens_.end()) {
        return;
    }
    Screen* screen = found->second;
    screens_.erase(found);
    std::erase(order_, id);
    if (screen == front_) {
        front_ = nullptr;
        stack_->setCurrentWidget(blank_);  // not a hidden screen of the stack's choice
        // Later, so that closing several screens in a row does not wake the ones in between.
        QMetaObject::invokeMethod(
            this, [this] { bring_topmost_to_front(); }, Qt::QueuedConnection);
    }
    screen->hide();
    stack_->removeWidget(screen);
    screen->setParent(nullptr);
    screen->deleteLater();  // the screen may be in the middle of the click that closes it
}

void MainWindow::bring_topmost_to_front() {
    Screen* topmost = visible_screen();
    if (topmost == nullptr || topmost == front_ || ending_) {
        return;
    }
    front_ = topmost;
    QWidget* field = front_->last_focus();  // before the stack gives the focus to one of its choice
    stack_->setCurrentWidget(front_);
    setAttribute(Qt::WA_KeyboardFocusChange);  // the focus is to be seen after a click as well
    field->setFocus(Qt::OtherFocusReason);
    front_->activate();
}

Screen* MainWindow::screen_of(ScreenId id) const {
    const auto found = screens_.find(id);
    return found == screens_.end() ? nullptr : found->second;
}

void MainWindow::close_all_but_the_menu() {
    const std::map<ScreenId, Screen*> all = screens_;
    for (const auto& [id, screen] : all) {
        if (id != ScreenId::frmkelvd && id != ScreenId::frmdist) {
            close(id);
        }
    }
}

Screen* MainWindow::visible_screen() const {
    return order_.empty() ? nullptr : screens_.at(order_.back());
}

void MainWindow::focus(std::string_view field) {
    visible_screen()->focus_field(field);
}

void MainWindow::show_help(const std::string& help_file, const std::string& screen_name) {
    if (!help_) {
        help_ = std::make_unique<HelpWindow>(to_qt(help_file));
    }
    help_->show_page(to_qt(screen_name));
}

void MainWindow::show_message(const std::string& text) {
    run_message(false, to_qt(text));
}

bool MainWindow::ask(const std::string& text) {
    return run_message(true, to_qt(text)) == QDialog::Accepted;
}

int MainWindow::ask_to_save(const QString& text) {
    return run_message(true, text);
}

int MainWindow::run_message(bool question, const QString& text) {
    if (message_open_) {
        return QDialog::Rejected;
    }
    while (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    }
    message_open_ = true;
    MessageDialog dialog(question ? MessageDialog::Kind::question : MessageDialog::Kind::message, text,
                         this);
    const int answer = dialog.exec();
    message_open_ = false;
    return answer;
}

bool MainWindow::leave_participant() {
    return ending_ || kept_ == nullptr || kept_->leave();
}

void MainWindow::save_participant(bool under_another_name) {
    kept_->save(under_another_name);
}

void MainWindow::open_participant() {
    kept_->ask_and_open();
}

void MainWindow::new_participant() {
    kept_->begin_anew();
}

Entries MainWindow::entered() const {
    return kept_->entered();
}

void MainWindow::enter(const Entries& entries) {
    kept_->enter(entries);
}

void MainWindow::open_file(const QString& path) {
    if (screen_of(ScreenId::frmdist) == nullptr) {
        kept_->open_at_the_menu(path);
    } else {
        kept_->open(path);
    }
}

// Not over a dialog, behind which a screen is still at work.
void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> files = event->mimeData()->urls();
    if (files.size() == 1 && files.front().isLocalFile() &&
        QApplication::activeModalWidget() == nullptr) {
        event->acceptProposedAction();
    }
}

// Later, because messages can come up, and who drops the file would wait for them.
void MainWindow::dropEvent(QDropEvent* event) {
    const QString path = event->mimeData()->urls().front().toLocalFile();
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, path] { open_file(path); }, Qt::QueuedConnection);
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    connect(windowHandle(), &QWindow::screenChanged, this, &MainWindow::fit_to_display,
            Qt::UniqueConnection);
    fit_to_display();
}

// The window's own close button ends the program like Close.
void MainWindow::closeEvent(QCloseEvent* event) {
    if (!leave_participant()) {
        event->ignore();
        return;
    }
    if (!ending_ && module_ != nullptr) {
        ending_ = true;
        module_->close_all_screens();
    }
    help_.reset();
    event->accept();
    QCoreApplication::quit();
}

}  // namespace kelvar
