// Base of all screens: title band, content that scrolls when it must, one navigation row.
#pragma once

#include <QBoxLayout>
#include <QPointer>
#include <QToolButton>
#include <QWidget>
#include <functional>
#include <string_view>

#include "core/module1.h"
#include "widgets/controls.h"

class QAbstractButton;
class QComboBox;
class QDialog;
class QGroupBox;
class QLabel;
class QPushButton;
class QScrollArea;

namespace kelvar {

class FocusRing;

// A paragraph of a note; either part may be empty.
struct Paragraph {
    QString heading;
    QString text;
};

class Screen : public QWidget {
    Q_OBJECT

public:
    // Which of the navigation row's controls a screen has.
    struct Layout {
        QString title;  // no band without a title
        QString step;   // such as "Step 1 of 4"
        bool help = true;
        bool previous = true;
        bool next = true;
        // Name of the one button of a note, in place of the whole row: it goes back and says OK.
        const char* close_with = nullptr;
    };

    Screen(Module1& module, const char* name, const Layout& layout);

    // Once, right after creation. May throw DatabaseError; the screen is then not shown.
    virtual void load() {}
    // Each time the screen comes to the front, also after load.
    virtual void activate() {}

    // Tab goes through the content as it was built, then along the navigation row.
    void arrange_tab_order();
    // Puts the focus on a control of this screen by its name, its text selected.
    void focus_field(std::string_view name);
    // Where the focus last was on this screen, at first its first field.
    QWidget* last_focus() const;

protected:
    // Actions of the navigation row. The one button of a note is Next. Close ends the program through
    // the fixed closing order.
    virtual void go_next() {}
    virtual void go_previous() {}
    virtual void help_but();

    // A user action may produce one message only: reports unless one was shown since the user last
    // pressed a key or a mouse button. Afterwards the focus is on the field, its text selected.
    void report_once(std::string_view text, QWidget* field);
    // The same for a field of this screen by its name; without a text only the focus moves.
    void refuse(std::string_view text, std::string_view field_name);
    bool error_shown() const { return error_shown_; }
    // A new action begins, so it may report again.
    void clear_error() { error_shown_ = false; }

    static void focus_field(QWidget* field);

    void set_first_field(QWidget* field) { last_focus_ = field; }

    // How a field was left.
    struct Leaving {
        bool by_tab = false;
        bool to_navigation = false;  // to a button of the navigation row, whose action checks itself
        QWidget* to = nullptr;
    };
    // Runs the action after the focus has left the field for another one of this window. It runs from
    // the event loop, so that the click that took the focus away is complete.
    void on_leave(QWidget* field, std::function<void(Leaving)> action);

    // A click on the widget, or on anything in it, chooses the option while the widget is disabled.
    void opens(QAbstractButton* option, QWidget* widget) { opened_by_.emplace_back(widget, option); }

    // Adds headed running text at a line length that reads well.
    void add_paragraphs(const std::vector<Paragraph>& paragraphs);
    QVBoxLayout* content() const { return content_; }
    QHBoxLayout* navigation() const { return navigation_; }

    QLabel* lbltitle = nullptr;
    QLabel* lblstep = nullptr;  // null without a step
    QPushButton* cmdhelp = nullptr;
    QToolButton* picprev = nullptr;
    QPushButton* cmdprev = nullptr;
    QPushButton* Cmdnext = nullptr;
    QToolButton* picnext = nullptr;
    QPushButton* cmdclose = nullptr;

    // A click on the words beside a picture, at a place of this screen. Presses the picture.
    virtual void words_clicked(QToolButton* picture, QPoint place);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    Module1& module;
    Scenario& scenario;

private:
    void build_title_band(const Layout& layout, QVBoxLayout* column);
    void build_navigation(const Layout& layout, QVBoxLayout* column);
    void left(QWidget* field, bool by_tab);
    bool finishes_leaving(QWidget* receiver, QEvent* event);
    bool keeps_back(QWidget* widget, QEvent* event);
    void follow_press(QWidget* widget, const QMouseEvent& press);
    bool press_by_words(QWidget* widget, const QMouseEvent& release);
    bool press_by_shortcut(QAbstractButton* button, const QEvent& event);
    bool select_by_shortcut(const QWidget& caption);
    bool choose_by_click(QWidget* clicked, const QEvent& event);
    void mark_focus(QWidget* control);
    void keep_in_view(QWidget* focus);

    QVBoxLayout* content_ = nullptr;
    QHBoxLayout* navigation_ = nullptr;
    QScrollArea* scroll_ = nullptr;
    QPushButton* escape_ = nullptr;  // what Escape presses
    std::vector<std::pair<QWidget*, std::function<void(Leaving)>>> leave_actions_;
    int leaves_to_come_ = 0;  // leave actions that still wait in the event loop
    std::vector<std::pair<QWidget*, QAbstractButton*>> opened_by_;
    QPointer<QWidget> last_focus_;
    QPointer<FocusRing> focus_ring_;
    QPointer<QWidget> pressed_words_;  // with the left button, which is still down
    bool pressed_here_ = false;        // the last press of a mouse button was on this screen
    bool error_shown_ = false;
};

}  // namespace kelvar
