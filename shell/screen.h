// Base of all screens: title band, content that scrolls when it must, one navigation row, one message
// per action. How every screen answers keys and the mouse is a class of its own for each habit.
#pragma once

#include <QBoxLayout>
#include <QToolButton>
#include <QWidget>
#include <functional>
#include <string_view>

#include "core/module1.h"
#include "widgets/controls.h"
#include "widgets/field_leaving.h"
#include "widgets/navigation_row.h"

class QAbstractButton;
class QLabel;
class QPushButton;

namespace kelvar {

class FocusMarker;
struct Entries;
class OptionPointer;
class ScrolledView;

// A paragraph of a note; either part may be empty.
struct Paragraph {
    QString heading;
    QString text;
};

class Screen : public QWidget {
    Q_OBJECT

public:
    using Layout = ScreenLayout;

    // The name is that of the id.
    Screen(Module1& module, ScreenId id, const char* name, const Layout& layout);

    // Once, right after creation. May throw DatabaseError; the screen is then not shown.
    virtual void load() {}
    // Each time the screen comes to the front, also after load.
    virtual void activate() {}

    // A step adds what is entered on it.
    virtual void put_into(Entries&) const {}
    // A step enters what it can, as if it were typed, with the messages that come of it. True when
    // nothing is missing or refused so far, so that Next can follow.
    virtual bool take(const Entries&) { return false; }
    void press_next();
    // See NavigationRow::say.
    void say(const QString& text);

    // Tab goes through the content as it was built, then along the navigation row.
    void arrange_tab_order();
    // Puts the focus on a control of this screen by its name, its text selected.
    void focus_field(std::string_view name);
    // Where the focus last was on this screen, at first its first field; a button that is always there
    // when that one is disabled.
    QWidget* last_focus() const;

protected:
    // Actions of the navigation row. Previous, and the one button of a note, close the screen. Close
    // ends the program through the fixed closing order.
    virtual void go_next() {}
    virtual void go_previous();
    virtual void help_but();

    // A user action may produce one message only: reports unless one was shown since the user last
    // pressed a key or a mouse button. Afterwards the focus is on the field, its text selected.
    void report_once(std::string_view text, QWidget* field);
    // The same for a field of this screen by its name.
    void refuse(std::string_view text, std::string_view field_name);
    bool error_shown() const { return error_shown_; }
    // A new action begins, so it may report again.
    void clear_error() { error_shown_ = false; }

    static void focus_field(QWidget* field);

    // Next, unless it is said.
    void set_first_field(QWidget* field);

    // See FieldLeaving::add.
    void on_leave(QWidget* field, std::function<void(Leaving)> action);

    // A click on the widget, or on anything in it, points at the option while the widget is disabled.
    // Choosing the option scrolls the widget into view.
    void belongs_to(QAbstractButton* option, QWidget* widget);

    // Adds headed running text at a line length that reads well. Gives the last text.
    QLabel* add_paragraphs(const std::vector<Paragraph>& paragraphs);
    QVBoxLayout* content() const { return content_; }
    NavigationRow* navigation() const { return navigation_; }

    QLabel* lbltitle = nullptr;
    QLabel* lblstep = nullptr;  // null without a step

    // A click on the words beside a picture, at a place of this screen. Presses the picture.
    virtual void words_clicked(QToolButton* picture, QPoint place);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    Module1& module;
    Scenario& scenario;

private:
    void build_title_band(const Layout& layout, QVBoxLayout* column);
    void build_page(QVBoxLayout* column);
    void build_navigation(const Layout& layout, QVBoxLayout* column);
    void build_habits();

    ScreenId id_;
    QHBoxLayout* band_ = nullptr;  // null without a title
    QVBoxLayout* content_ = nullptr;
    NavigationRow* navigation_ = nullptr;
    ScrolledView* scroll_ = nullptr;
    FocusMarker* focus_ = nullptr;
    FieldLeaving* leaving_ = nullptr;
    OptionPointer* pointer_ = nullptr;
    std::vector<Habit*> habits_;  // in the order in which they are asked
    bool error_shown_ = false;
};

}  // namespace kelvar
