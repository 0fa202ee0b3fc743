#include "output/report/print_buttons.h"

#include <QActionGroup>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include "widgets/controls.h"
#include "widgets/navigation_row.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

PrintButtons::PrintButtons(NavigationRow* navigation) : QObject(navigation), navigation_(navigation) {
    cmdprint = control::button(u"Prin&t"_s, "cmdprint");
    connect(cmdprint, &QPushButton::clicked, this, [this] { start(Destination::printer); });

    menu_ = new QMenu(cmdprint);
    offer(u"&Print"_s, Destination::printer);
    offer(u"Print with &Options..."_s, Destination::print_dialog);
    offer(u"Pre&view..."_s, Destination::preview);
    cmdprintmenu = control::picture(u"down"_s, u"More: how and what to print"_s, "cmdprintmenu");
    cmdprintmenu->setPopupMode(QToolButton::InstantPopup);
    cmdprintmenu->setMenu(menu_);
    control::press_with(Qt::CTRL | Qt::Key_P, cmdprint, navigation->parentWidget());
    navigation->add_left(cmdprint, cmdprintmenu);
    files_.push_back(navigation->cmdsave->menu()->addAction(u"P&DF..."_s, this,
                                                            [this] { start(Destination::pdf_file); }));
}

void PrintButtons::offer_csv() {
    files_.push_back(navigation_->cmdsave->menu()->addAction(u"&CSV..."_s, this, [this] {
        say({});
        emit csv_chosen();
    }));
}

void PrintButtons::offer(const QString& text, Destination destination) {
    menu_->addAction(text, this, [this, destination] { start(destination); });
}

void PrintButtons::offer_parts() {
    menu_->addSeparator();
    choice_ = new QActionGroup(menu_);
    add_parts(u"&Everything"_s, u"Prints everything"_s, Parts::everything);
    add_parts(u"Summary and &Years"_s, u"Prints the summary and the years"_s, Parts::summary_and_years);
    add_parts(u"S&ummary Only"_s, u"Prints the summary only"_s, Parts::summary);
}

// Each is kept until another one is chosen, and the button says what it prints.
void PrintButtons::add_parts(const QString& text, const QString& printed, Parts parts) {
    QAction* entry = menu_->addAction(text);
    entry->setCheckable(true);
    entry->setChecked(parts == parts_);
    choice_->addAction(entry);
    connect(entry, &QAction::triggered, this, [this, printed, parts] {
        parts_ = parts;
        cmdprint->setToolTip(printed);
        cmdprint->setAccessibleDescription(printed);
        say(printed);
    });
}

void PrintButtons::start(Destination destination) {
    say({});
    emit chosen(destination);
}

void PrintButtons::say(const QString& text) {
    navigation_->say(text);
}

void PrintButtons::setEnabled(bool enabled) {
    cmdprint->setEnabled(enabled);
    cmdprintmenu->setEnabled(enabled);
    for (QAction* file : files_) {
        file->setEnabled(enabled);
    }
}

}  // namespace kelvar
