#include "shell/screen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QWindow>
#include <stdexcept>

#include "widgets/controls.h"
#include "widgets/entry_box.h"
#include "widgets/focus_ring.h"
#include "widgets/scrolled_page.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

Screen::Screen(Module1& module1, const char* name, const Layout& layout)
    : module(module1), scenario(module1.scenario) {
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(layout.title.isEmpty() ? u"Kelvar"_s : layout.title.trimmed());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    build_title_band(layout, column);

    auto* page = new ScrolledPage;
    content_ = new QVBoxLayout(page);
    const int side = theme::side_margin();
    content_->setContentsMargins(side, 2 * theme::grid, side, 2 * theme::grid);
    content_->setSpacing(2 * theme::grid);
    scroll_ = new ScrolledView;
    scroll_->setWidgetResizable(true);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(page);
    column->addWidget(scroll_, 1);

    build_navigation(layout, column);
}

void Screen::build_title_band(const Layout& layout, QVBoxLayout* column) {
    if (layout.title.isEmpty()) {
        return;
    }
    auto* band = new QFrame;
    band->setObjectName(u"titleband"_s);
    auto* row = new QHBoxLayout(band);
    row->setContentsMargins(3 * theme::grid, 2 * theme::grid, 3 * theme::grid, 2 * theme::grid);
    lbltitle = theme::label(layout.title, theme::Role::title, "lbltitle");
    lbltitle->setWordWrap(true);
    row->addWidget(lbltitle, 1);
    if (!layout.step.isEmpty()) {
        lblstep = theme::label(layout.step, theme::Role::subtitle, "lblstep");
        row->addWidget(lblstep, 0, Qt::AlignRight);
    }
    column->addWidget(band);
}

void Screen::build_navigation(const Layout& layout, QVBoxLayout* column) {
    auto* bar = new QFrame;
    bar->setObjectName(u"navigation"_s);
    navigation_ = new QHBoxLayout(bar);
    navigation_->setContentsMargins(3 * theme::grid, theme::grid, 3 * theme::grid, theme::grid);
    navigation_->setSpacing(theme::grid);
    if (layout.help) {
        cmdhelp = control::button(u"&Help"_s, "cmdhelp");
        navigation_->addWidget(cmdhelp);
        connect(cmdhelp, &QPushButton::clicked, this, [this] { help_but(); });
    }
    navigation_->addStretch(1);
    if (layout.previous) {
        picprev = control::picture(u"previous"_s, u"Previous"_s, "picprev");
        cmdprev = control::button(u"&Previous"_s, "cmdprev");
        navigation_->addWidget(picprev);
        navigation_->addWidget(cmdprev);
        connect(picprev, &QToolButton::clicked, this, [this] { go_previous(); });
        connect(cmdprev, &QPushButton::clicked, this, [this] { go_previous(); });
        escape_ = layout.step.isEmpty() ? cmdprev : nullptr;  // the steps are where one types
    }
    if (layout.close_with != nullptr) {
        Cmdnext = control::button(u"&OK"_s, layout.close_with);
        Cmdnext->setDefault(true);
        escape_ = Cmdnext;
        set_first_field(Cmdnext);
        connect(Cmdnext, &QPushButton::clicked, this, [this] { go_next(); });
        navigation_->addWidget(Cmdnext);
        column->addWidget(bar);
        return;
    }
    if (layout.next) {
        Cmdnext = control::button(u"&Next"_s, "Cmdnext");
        Cmdnext->setDefault(true);
        picnext = control::picture(u"next"_s, u"Next"_s, "picnext");
        navigation_->addWidget(Cmdnext);
        navigation_->addWidget(picnext);
        connect(Cmdnext, &QPushButton::clicked, this, [this] { go_next(); });
        connect(picnext, &QToolButton::clicked, this, [this] { go_next(); });
    }
    navigation_->addStretch(1);
    cmdclose = control::button(u"&Close"_s, "cmdclose");
    navigation_->addWidget(cmdclose);
    connect(cmdclose, &QPushButton::clicked, this, [this] { module.close_all_screens(); });
    control::press_with(Qt::CTRL | Qt::Key_Q, cmdclose, this);
    column->addWidget(bar);
}

void Screen::arrange_tab_order() {
    std::vector<QWidget*> order;
    for (QWidget* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain()) {
        if (scroll_->widget()->isAncestorOf(widget)) {
            order.push_back(widget);
        }
    }
    for (int place = 0; place < navigation_->count(); ++place) {
        if (QWidget* widget = navigation_->itemAt(place)->widget()) {
            order.push_back(widget);
        }
    }
    for (std::size_t i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
}

QWidget* Screen::last_focus() const {
    if (last_focus_ != nullptr && last_focus_->isEnabled()) {
        return last_focus_;
    }
    return cmdclose != nullptr ? cmdclose : Cmdnext;
}

void Screen::add_paragraphs(const std::vector<Paragraph>& paragraphs) {
    // A maximum width of the label would do, but its height would then be reckoned for the full width.
    const int empty_share = theme::large_text() ? 0 : 1;
    for (const auto& [heading, text] : paragraphs) {
        if (!heading.isEmpty()) {
            content_->addWidget(theme::label(heading, theme::Role::section));
        }
        if (!text.isEmpty()) {
            auto* running = theme::label(text, theme::Role::body);
            running->setWordWrap(true);
            auto* row = new QHBoxLayout;
            row->addWidget(running, 4);
            row->addStretch(empty_share);
            content_->addLayout(row);
        }
    }
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
    if (text.empty()) {
        focus_field(field_name);
    } else {
        report_once(text, findChild<QWidget*>(to_qt(field_name)));
    }
}

void Screen::focus_field(std::string_view name) {
    focus_field(findChild<QWidget*>(to_qt(name)));
}

void Screen::focus_field(QWidget* field) {
    field->setFocus(Qt::OtherFocusReason);
    select_text(field);  // also where the focus was there already
}

void Screen::on_leave(QWidget* field, std::function<void(Leaving)> action) {
    leave_actions_.emplace_back(field, std::move(action));
}

void Screen::left(QWidget* field, bool by_tab) {
    --leaves_to_come_;
    // An open list has the focus itself; the control it belongs to counts.
    QWidget* now = QApplication::activePopupWidget() != nullptr ? window()->focusWidget()
                                                                : QApplication::focusWidget();
    if (!isVisible() || now == nullptr || now == field || now->window() != window()) {
        return;  // the window itself lost the focus, or a message has brought it back
    }
    const Leaving leaving{by_tab, now->parentWidget() == navigation_->parentWidget(), now};
    for (const auto& [watched, action] : leave_actions_) {
        if (watched == field) {
            action(leaving);
        }
    }
}

// However fast the next key follows, it comes after what leaving the box before has to say and change:
// to whatever has the focus then, or to nothing when there was a message that it cannot have meant.
bool Screen::finishes_leaving(QWidget* receiver, QEvent* event) {
    const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!key || leaves_to_come_ == 0 || !isAncestorOf(receiver)) {
        return false;
    }
    const bool told_before = error_shown_;
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    if (error_shown_ && !told_before) {
        return true;
    }
    QWidget* focus = QApplication::focusWidget();
    if (focus == receiver || focus == nullptr || !isAncestorOf(focus)) {
        return false;
    }
    QCoreApplication::sendEvent(focus, event);
    return true;
}

namespace {

// Alt and a letter that presses nothing here must not end up in a box.
bool types_with_alt(const QKeyEvent& key) {
    return key.modifiers() == Qt::AltModifier && !key.text().isEmpty() && key.text().front().isPrint();
}

}  // namespace

// What goes no further than the screen's event filter.
bool Screen::keeps_back(QWidget* widget, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            return qobject_cast<QLineEdit*>(widget) != nullptr &&
                   types_with_alt(static_cast<const QKeyEvent&>(*event));
        case QEvent::Shortcut:
            return isAncestorOf(widget) &&
                   (press_by_shortcut(qobject_cast<QAbstractButton*>(widget), *event) ||
                    select_by_shortcut(*widget));
        case QEvent::MouseButtonRelease:
            return press_by_words(widget, static_cast<const QMouseEvent&>(*event)) ||
                   choose_by_click(widget, *event);
        case QEvent::MouseButtonDblClick:  // the first click may have been on the screen before
            return widget->parentWidget() == navigation_->parentWidget();
        case QEvent::Wheel:  // scrolling the page must not change a choice under the pointer
            if (qobject_cast<QComboBox*>(widget) == nullptr) {
                return false;
            }
            event->ignore();
            return true;
        default:
            return false;
    }
}

bool Screen::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    auto* widget = qobject_cast<QWidget*>(watched);
    const bool second_click =
        type == QEvent::MouseButtonDblClick && watched == window()->windowHandle();
    if (second_click && !pressed_here_) {
        return true;  // not even the focus goes there
    }
    if (widget != nullptr && (finishes_leaving(widget, event) || keeps_back(widget, event))) {
        return true;
    }
    if (widget != nullptr && type == QEvent::MouseButtonPress) {
        follow_press(widget, static_cast<const QMouseEvent&>(*event));
    }
    if (type == QEvent::MouseButtonPress || type == QEvent::KeyPress ||
        type == QEvent::ShortcutOverride) {
        // Only keys and clicks on this screen: closing a message is still part of the same action.
        if (widget != nullptr && (widget == this || isAncestorOf(widget))) {
            clear_error();
        }
    } else if (type == QEvent::FocusOut) {
        delete focus_ring_;
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        const bool stays = reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
                           reason == Qt::ActiveWindowFocusReason;
        for (const auto& [field, action] : leave_actions_) {
            if (field == watched && !stays) {
                const bool by_tab = reason == Qt::TabFocusReason;
                ++leaves_to_come_;
                QMetaObject::invokeMethod(
                    this, [this, field = field, by_tab] { left(field, by_tab); }, Qt::QueuedConnection);
            }
        }
    } else if (type == QEvent::Move || type == QEvent::Resize) {
        if (focus_ring_ != nullptr && widget != nullptr &&
            (widget == focus_ring_->control() || widget->isAncestorOf(focus_ring_->control()))) {
            focus_ring_->surround();
        }
        if (type == QEvent::Resize && watched == scroll_->widget()) {
            // Controls come and go, also above the focus; later, when they have their places.
            QMetaObject::invokeMethod(
                this, [this] { keep_in_view(QApplication::focusWidget()); }, Qt::QueuedConnection);
        }
    } else if (type == QEvent::FocusIn) {
        if (widget != nullptr && isAncestorOf(widget)) {
            mark_focus(widget);
        }
        // Neither the navigation row nor what Enter would press: Enter is Next when the screen comes
        // back.
        if (widget != nullptr && scroll_->widget()->isAncestorOf(widget) &&
            qobject_cast<QToolButton*>(widget) == nullptr &&
            qobject_cast<QPushButton*>(widget) == nullptr) {
            last_focus_ = widget;
        }
        keep_in_view(widget);
    }
    return QWidget::eventFilter(watched, event);
}

namespace {

// The picture beside which a widget is the words.
QToolButton* picture_beside(const QWidget* widget) {
    const auto* words = qobject_cast<const QLabel*>(widget);
    return words == nullptr ? nullptr : qobject_cast<QToolButton*>(words->buddy());
}

}  // namespace

// A press that nobody takes comes once more to what lies around; only the first one is of interest.
void Screen::follow_press(QWidget* widget, const QMouseEvent& press) {
    pressed_here_ = widget == this || isAncestorOf(widget);
    if (picture_beside(widget) != nullptr || !widget->isAncestorOf(pressed_words_)) {
        const bool left = press.button() == Qt::LeftButton && press.buttons() == Qt::LeftButton;
        pressed_words_ = left && picture_beside(widget) != nullptr ? widget : nullptr;
    }
}

// The left button went down on words beside a picture and comes up on them.
bool Screen::press_by_words(QWidget* widget, const QMouseEvent& release) {
    const QPoint place = release.position().toPoint();
    if (widget != pressed_words_ || release.button() != Qt::LeftButton || !isAncestorOf(widget)) {
        return false;
    }
    pressed_words_ = nullptr;
    QToolButton* picture = picture_beside(widget);
    if (!widget->rect().contains(place) || !picture->isEnabled()) {
        return false;
    }
    words_clicked(picture, widget->mapTo(this, place));
    return true;
}

void Screen::words_clicked(QToolButton* picture, QPoint) {
    picture->click();
}

// Alt and a letter press a button at once, after what leaving the field before has to say; after a
// message the focus is elsewhere and the button is not pressed. The toolkit would do it a moment later,
// when the next keys may already have been typed.
bool Screen::press_by_shortcut(QAbstractButton* button, const QEvent& event) {
    if (button == nullptr || static_cast<const QShortcutEvent&>(event).isAmbiguous()) {
        return false;
    }
    button->setFocus(Qt::ShortcutFocusReason);
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    if (button->hasFocus()) {
        button->click();
    }
    return true;
}

// Alt and the letter of a box in which the focus is already: the toolkit does nothing then.
bool Screen::select_by_shortcut(const QWidget& caption) {
    QWidget* focus = window()->focusWidget();
    const auto* words = qobject_cast<const QLabel*>(&caption);
    const bool leads_to_focus =
        words != nullptr ? words->buddy() == focus : caption.isAncestorOf(focus);
    if (focus == nullptr || !leads_to_focus) {
        return false;
    }
    select_text(focus);
    return true;
}

// A click on what an option opens, while that option is not chosen, chooses it and then counts.
bool Screen::choose_by_click(QWidget* clicked, const QEvent& event) {
    const auto& release = static_cast<const QMouseEvent&>(event);
    if (clicked->isEnabled() || release.button() != Qt::LeftButton ||
        !clicked->rect().contains(release.position().toPoint())) {
        return false;
    }
    for (const auto& [opened, option] : opened_by_) {
        if ((opened != clicked && !opened->isAncestorOf(clicked)) || !option->isEnabled()) {
            continue;
        }
        option->click();
        if (clicked->focusPolicy() != Qt::NoFocus && !error_shown_) {
            clicked->setFocus(Qt::MouseFocusReason);
            if (auto* button = qobject_cast<QAbstractButton*>(clicked)) {
                button->click();
            }
        }
        return true;
    }
    return false;
}

void Screen::keep_in_view(QWidget* focus) {
    if (focus == nullptr || !scroll_->widget()->isAncestorOf(focus)) {
        return;
    }
    // Its beginning, where it is higher than the view.
    const QRect place(focus->mapTo(scroll_->widget(), QPoint()), focus->size());
    scroll_->ensureVisible(place.right(), place.bottom(), theme::grid, theme::grid);
    scroll_->ensureVisible(place.left(), place.top(), theme::grid, theme::grid);
}

// Tables and charts mark the focus themselves.
void Screen::mark_focus(QWidget* control) {
    delete focus_ring_;
    if (qobject_cast<QAbstractButton*>(control) != nullptr ||
        qobject_cast<QLineEdit*>(control) != nullptr || qobject_cast<QComboBox*>(control) != nullptr) {
        focus_ring_ = new FocusRing(control);
    }
}

// Enter is Next, unless the focus is on another button: then Enter presses that one. Escape closes a
// note and goes back from what only shows something; where something is typed it does nothing. Page
// keys scroll a long text, whatever has the focus.
void Screen::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && escape_ != nullptr && !event->isAutoRepeat()) {
        escape_->click();
        return;
    }
    if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown) {
        scroll_->verticalScrollBar()->triggerAction(event->key() == Qt::Key_PageUp
                                                        ? QAbstractSlider::SliderPageStepSub
                                                        : QAbstractSlider::SliderPageStepAdd);
        return;
    }
    if (event->key() == Qt::Key_F1 && cmdhelp != nullptr) {
        help_but();
        return;
    }
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (auto* picture = qobject_cast<QToolButton*>(QApplication::focusWidget())) {
        picture->click();
    } else if (Cmdnext != nullptr) {
        Cmdnext->click();
    }
}

void Screen::showEvent(QShowEvent* event) {
    qApp->installEventFilter(this);
    pressed_here_ = false;
    QWidget::showEvent(event);
}

void Screen::hideEvent(QHideEvent* event) {
    qApp->removeEventFilter(this);
    QWidget::hideEvent(event);
}

}  // namespace kelvar
