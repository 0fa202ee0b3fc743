#include "widgets/message_dialog.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "widgets/controls.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

MessageDialog::MessageDialog(Kind kind, const QString& text, QWidget* parent) : QDialog(parent) {
    const bool question = kind == Kind::question;
    setObjectName(question ? u"frmmsg1"_s : u"frmmsg"_s);
    setWindowTitle(u"Kelvar"_s);
    setModal(true);
    control::only_closes(this);
    setAccessibleName(text);

    auto* sign = new QLabel;
    sign->setPixmap(theme::picture(question ? u"question"_s : u"warning"_s, 6 * theme::grid));
    auto* lblmsg = theme::label(text, theme::Role::body, "lblmsg");
    lblmsg->setWordWrap(true);
    lblmsg->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblmsg->setMinimumWidth(fontMetrics().averageCharWidth() * 46);
    lblmsg->setAccessibleName(text);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(3 * theme::grid, 3 * theme::grid, 3 * theme::grid, 2 * theme::grid);
    layout->setSpacing(3 * theme::grid);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* said = new QHBoxLayout;
    said->setSpacing(2 * theme::grid);
    said->addWidget(sign, 0, Qt::AlignTop);
    said->addWidget(lblmsg, 1);
    layout->addLayout(said);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::grid);
    buttons->addStretch(1);
    layout->addLayout(buttons);
    if (question) {
        auto* cmdyes = control::button(u"&YES"_s, "cmdyes");
        auto* cmdNo = control::button(u"&NO"_s, "cmdNo");
        cmdyes->setDefault(true);
        connect(cmdyes, &QPushButton::clicked, this, &QDialog::accept);
        connect(cmdNo, &QPushButton::clicked, this, [this] { done(said_no); });
        buttons->addWidget(cmdyes);
        buttons->addWidget(cmdNo);
        cmdyes->setFocus();
    } else {
        auto* cmdok = control::button(u"&OK"_s, "cmdok");
        cmdok->setDefault(true);
        connect(cmdok, &QPushButton::clicked, this, &QDialog::accept);
        buttons->addWidget(cmdok);
        cmdok->setFocus();
    }
}

MessageDialog::~MessageDialog() {
    qApp->removeEventFilter(this);
}

void MessageDialog::showEvent(QShowEvent* event) {
    unread_.start();
    qApp->installEventFilter(this);
    QDialog::showEvent(event);
}

bool MessageDialog::eventFilter(QObject* watched, QEvent* event) {
    constexpr int half_a_second = 500;  // milliseconds
    const auto type = event->type();
    const bool key = type == QEvent::KeyPress || type == QEvent::KeyRelease ||
                     type == QEvent::ShortcutOverride || type == QEvent::Shortcut;
    if (!key) {
        return QDialog::eventFilter(watched, event);
    }
    const auto* pressed = type == QEvent::KeyPress ? static_cast<const QKeyEvent*>(event) : nullptr;
    if (unread_.hasExpired(half_a_second)) {
        return pressed != nullptr && pressed->isAutoRepeat();  // held down since before
    }
    if (pressed != nullptr && !pressed->text().isEmpty() && pressed->text().front().isPrint()) {
        unread_.start();
    }
    return true;
}

}  // namespace kelvar
