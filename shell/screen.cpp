#include "shell/screen.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "shell/screen_keys.h"
#include "widgets/entry_boxes.h"
#include "widgets/focus_marker.h"
#include "widgets/pointer_habits.h"
#include "widgets/scrolled_page.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

Screen::Screen(Module1& module1, ScreenId id, const char* name, const Layout& layout)
    : module(module1), scenario(module1.scenario), id_(id) {
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(layout.title.isEmpty() ? u"Kelvar"_s : layout.title.trimmed());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    build_title_band(layout, column);
    build_page(column);
    build_navigation(layout, column);
    build_habits();
}

void Screen::build_title_band(const Layout& layout, QVBoxLayout* column) {
    if (layout.title.isEmpty()) {
        return;
    }
    auto* band = new QFrame;
    band->setObjectName(u"titleband"_s);
    auto* row = new QHBoxLayout(band);
    const int above =
        theme::low_display() ? theme::grid / 2 : 3 * theme::grid / 2;  // leaves room for rows
    row->setContentsMargins(0, above, 0, above);
    band_ = row;
    lbltitle = theme::label(layout.title, theme::Role::title, "lbltitle");
    lbltitle->setWordWrap(true);
    row->addWidget(lbltitle, 1);
    if (layout.is_step()) {
        lblstep = theme::label(layout.step, theme::Role::subtitle, "lblstep");
        row->addWidget(lblstep, 0, Qt::AlignRight);
    }
    column->addWidget(band);
}

void Screen::build_page(QVBoxLayout* column) {
    auto* page = new ScrolledPage;
    content_ = new QVBoxLayout(page);
    content_->setContentsMargins(0, 2 * theme::grid, 0, 2 * theme::grid);
    content_->setSpacing(2 * theme::grid);
    scroll_ = new ScrolledView;
    scroll_->setObjectName(u"page"_s);
    scroll_->setWidgetResizable(true);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(page);
    column->addWidget(scroll_, 1);
}

void Screen::build_navigation(const Layout& layout, QVBoxLayout* column) {
    navigation_ = new NavigationRow(layout, column);
    const auto run = [this](const QAbstractButton* button, auto action) {
        if (button != nullptr) {
            connect(button, &QAbstractButton::clicked, this, action);
        }
    };
    const bool note = layout.is_note();
    run(navigation_->cmdhelp, [this] { help_but(); });
    run(navigation_->picprev, [this] { go_previous(); });
    run(navigation_->cmdprev, [this] { go_previous(); });
    run(navigation_->Cmdnext, [this, note] { note ? go_previous() : go_next(); });
    run(navigation_->picnext, [this] { go_next(); });
    run(navigation_->cmdclose, [this] { module.close_all_screens(); });
    if (layout.save) {
        QMenu* menu = navigation_->cmdsave->menu();
        menu->addAction(u"&Participant\tCtrl+S"_s, this,
                        [this] { module.screens.save_participant(false); });
        menu->addAction(u"Participant &As...\tCtrl+Shift+S"_s, this,
                        [this] { module.screens.save_participant(true); });
    }
    if (navigation_->cmdclose != nullptr) {
        control::press_with(Qt::CTRL | Qt::Key_Q, navigation_->cmdclose, this);
    }
}

void Screen::build_habits() {
    const auto told = [this] { return error_shown_; };
    const auto clicked = [this](QToolButton* picture, QPoint place) { words_clicked(picture, place); };
    leaving_ = new FieldLeaving(this, navigation_, told);
    pointer_ = new OptionPointer(this);
    focus_ = new FocusMarker(this, scroll_);
    habits_ = {new PointerSlips(this, navigation_),
               leaving_,
               new ScreenKeys(this, scroll_, *leaving_, *navigation_),
               new PictureWords(this, clicked),
               pointer_,
               focus_};
    set_first_field(navigation_->Cmdnext);
}

void Screen::say(const QString& text) {
    navigation_->say(text);
}

void Screen::press_next() {
    clear_error();
    go_next();
}

void Screen::go_previous() {
    module.screens.close(id_);
}

void Screen::arrange_tab_order() {
    std::vector<QWidget*> order;
    for (QWidget* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain()) {
        if (scroll_->widget()->isAncestorOf(widget)) {
            order.push_back(widget);
        }
    }
    std::ranges::copy(navigation_->controls(), std::back_inserter(order));
    for (std::size_t i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
}

QWidget* Screen::last_focus() const {
    QWidget* last = focus_->last();
    const bool can_have_it = last != nullptr && last->isEnabled() && last->isVisibleTo(this);
    return can_have_it ? last : navigation_->always_there();
}

void Screen::set_first_field(QWidget* field) {
    focus_->set_last(field);
}

QLabel* Screen::add_paragraphs(const std::vector<Paragraph>& paragraphs) {
    scroll_->say_when_more_is_below();
    QLabel* running = nullptr;
    for (const auto& [heading, text] : paragraphs) {
        if (!heading.isEmpty()) {
            content_->addWidget(theme::label(heading, theme::Role::section));
        }
        if (!text.isEmpty()) {
            running = control::paragraph(text, nullptr, theme::Role::body);
            content_->addWidget(running);
        }
    }
    return running;
}

void Screen::help_but() {
    try {
        module.screens.show_help(scenario.help_file, to_utf8(objectName()));
    } catch (const std::runtime_error& error) {
        module.report(error.what());
    }
}

void Screen::report_once(std::string_view text, QWidget* field) {
    if (error_shown_) {
        return;
    }
    error_shown_ = true;
    module.report(text);
    focus_field(field);
}

void Screen::refuse(std::string_view text, std::string_view field_name) {
    report_once(text, findChild<QWidget*>(to_qt(field_name)));
}

void Screen::focus_field(std::string_view name) {
    focus_field(findChild<QWidget*>(to_qt(name)));
}

void Screen::focus_field(QWidget* field) {
    field->setFocus(Qt::OtherFocusReason);
    select_text(field);  // also where the focus was there already
}

void Screen::on_leave(QWidget* field, std::function<void(Leaving)> action) {
    leaving_->add(field, std::move(action));
}

void Screen::belongs_to(QAbstractButton* option, QWidget* widget) {
    pointer_->add(option, widget);
    connect(option, &QAbstractButton::clicked, this, [this, widget] { focus_->show_opened(widget); });
}

void Screen::words_clicked(QToolButton* picture, QPoint) {
    picture->click();
}

// While the screen is in front it sees every event of the application first.
bool Screen::eventFilter(QObject* watched, QEvent* event) {
    const auto takes = [&](Habit* habit) { return habit->takes(watched, event); };
    if (std::ranges::any_of(habits_, takes)) {
        return true;
    }
    const auto type = event->type();
    if (type == QEvent::DragEnter && static_cast<QDragEnterEvent*>(event)->mimeData()->hasUrls() &&
        watched != window()) {
        event->ignore();  // a file is for the window, also over a box
        return true;
    }
    const bool action = type == QEvent::MouseButtonPress || type == QEvent::KeyPress ||
                        type == QEvent::ShortcutOverride;
    // Only keys and clicks on this screen: closing a message is still part of the same action.
    if (action && (watched == this || isAncestorOf(qobject_cast<QWidget*>(watched)))) {
        clear_error();
    }
    return QWidget::eventFilter(watched, event);
}

// A larger window leaves room left and right of what would else be torn apart.
void Screen::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int side = std::max(theme::side_margin(), (width() - theme::widest_content) / 2);
    for (QLayout* part :
         {static_cast<QLayout*>(band_), static_cast<QLayout*>(content_), navigation_->layout()}) {
        if (part != nullptr) {
            const QMargins margins = part->contentsMargins();
            part->setContentsMargins(side, margins.top(), side, margins.bottom());
        }
    }
}

void Screen::showEvent(QShowEvent* event) {
    qApp->installEventFilter(this);
    QWidget::showEvent(event);
}

void Screen::hideEvent(QHideEvent* event) {
    say({});
    qApp->removeEventFilter(this);
    QWidget::hideEvent(event);
}

}  // namespace kelvar
