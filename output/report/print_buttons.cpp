#include "output/report/print_buttons.h"

#include <QAccessible>
#include <QDir>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "widgets/controls.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

PrintButtons::PrintButtons(QHBoxLayout* navigation) : QObject(navigation) {
    cmdprint = control::button(u"Prin&t"_s, "cmdprint");
    connect(cmdprint, &QPushButton::clicked, this, [this] { start(Destination::printer); });

    menu_ = new QMenu(cmdprint);
    menu_->addAction(u"&Print"_s, this, [this] { start(Destination::printer); });
    menu_->addAction(u"&Save as PDF..."_s, this, [this] { start(Destination::pdf_file); });
    cmdprintmenu = control::picture(u"down"_s, u"Print or save as PDF"_s, "cmdprintmenu");
    cmdprintmenu->setPopupMode(QToolButton::InstantPopup);
    cmdprintmenu->setMenu(menu_);
    QWidget* row = navigation->parentWidget();
    control::press_with(Qt::CTRL | Qt::Key_P, cmdprint, row->parentWidget());
    navigation->insertWidget(1, cmdprint);
    navigation->insertWidget(2, cmdprintmenu);

    lblsaved = theme::label({}, theme::Role::body, "lblsaved");
    lblsaved->setContentsMargins(3 * theme::grid, 0, 3 * theme::grid, theme::grid);
    lblsaved->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // a long one widens no window
    lblsaved->installEventFilter(this);
    lblsaved->hide();
    auto* column = static_cast<QVBoxLayout*>(row->parentWidget()->layout());
    column->insertWidget(column->indexOf(row), lblsaved);
}

void PrintButtons::offer_csv() {
    menu_->addAction(u"Save as &CSV..."_s, this, [this] {
        show_saved({});
        emit csv_chosen();
    });
    cmdprintmenu->setAccessibleName(u"Print or save as PDF or CSV"_s);
}

void PrintButtons::start(Destination destination) {
    show_saved({});
    emit chosen(destination);
}

void PrintButtons::show_saved(const QString& file) {
    const QString text = file.isEmpty() ? QString() : u"Saved to "_s + QDir::toNativeSeparators(file);
    lblsaved->setAccessibleName(text);
    lblsaved->setToolTip(text);
    lblsaved->setVisible(!text.isEmpty());
    fit_saved();
    if (!text.isEmpty()) {
        QAccessibleEvent said(lblsaved, QAccessible::Alert);
        QAccessible::updateAccessibility(&said);
    }
}

// Folders in the middle go first: the beginning says that it is saved, the end under which name.
void PrintButtons::fit_saved() {
    lblsaved->setText(lblsaved->fontMetrics().elidedText(lblsaved->accessibleName(), Qt::ElideMiddle,
                                                         lblsaved->contentsRect().width()));
}

bool PrintButtons::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblsaved && event->type() == QEvent::Resize) {
        fit_saved();
    }
    return QObject::eventFilter(watched, event);
}

void PrintButtons::setEnabled(bool enabled) {
    cmdprint->setEnabled(enabled);
    cmdprintmenu->setEnabled(enabled);
}

}  // namespace kelvar
