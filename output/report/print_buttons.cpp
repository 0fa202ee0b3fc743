#include "output/report/print_buttons.h"

#include <QAction>
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

void PrintButtons::offer_parts(PrintedParts& parts) {
    menu_->addSeparator();
    add_part(u"With the &Years"_s, parts, parts.years);
    add_part(u"With &All Payments"_s, parts, parts.payments);
    name_parts(parts);
}

void PrintButtons::add_part(const QString& text, const PrintedParts& parts, bool& part) {
    QAction* entry = menu_->addAction(text);
    entry->setCheckable(true);
    entry->setChecked(part);
    connect(entry, &QAction::toggled, this, [this, &parts, &part](bool wanted) {
        part = wanted;
        name_parts(parts);
        say(cmdprint->toolTip());
    });
}

// The button says what it prints.
void PrintButtons::name_parts(const PrintedParts& parts) {
    QStringList printed{u"Prints the summary"_s};
    if (parts.years) {
        printed << u"the years"_s;
    }
    if (parts.payments) {
        printed << u"all payments"_s;
    }
    const QString last = printed.size() > 1 ? u" and "_s + printed.takeLast() : u" only"_s;
    cmdprint->setToolTip(printed.join(u", "_s) + last);
    cmdprint->setAccessibleDescription(cmdprint->toolTip());
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
