#include "widgets/masked_date_edit.h"

#include <QAction>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <memory>

#include "core/dates.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr int month_end = 2;
constexpr int day_start = 3;
constexpr int day_end = 5;
constexpr int year_start = 6;

}  // namespace

MaskedDateEdit::MaskedDateEdit(const char* name) {
    setObjectName(QString::fromLatin1(name));
    setInputMask(u"99/99/9999;_"_s);
    setCursorPosition(0);
    setAcceptDrops(false);
    setFixedWidth(fontMetrics().horizontalAdvance(u"00/00/0000"_s) +
                  4 * fontMetrics().averageCharWidth());
}

bool MaskedDateEdit::is_empty() const {
    return mask_text() == u"__/__/____"_s;
}

void MaskedDateEdit::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) {
        paste_date(QClipboard::Clipboard);
        event->accept();
    } else if (event->text() == u"/"_s || event->text() == u"-"_s || event->text() == u"."_s) {
        end_part();
        event->accept();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void MaskedDateEdit::select_content() {
    if (is_empty()) {
        setCursorPosition(0);
    } else {
        selectAll();
    }
}

void MaskedDateEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        paste_date(QClipboard::Selection);
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
    if (is_empty()) {
        setCursorPosition(0);
    }
}

void MaskedDateEdit::contextMenuEvent(QContextMenuEvent* event) {
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    for (QAction* action : menu->actions()) {
        if (action->text().startsWith(u"&Paste"_s)) {
            action->disconnect();
            connect(action, &QAction::triggered, this, [this] { paste_date(QClipboard::Clipboard); });
        }
    }
    menu->exec(event->globalPos());
}

void MaskedDateEdit::end_part() {
    const int cursor = cursorPosition();
    if (cursor > day_end) {
        return;
    }
    const int start = cursor <= month_end ? 0 : day_start;
    QString typed = mask_text();
    const QChar first = typed[start];
    const QChar second = typed[start + 1];
    if (first == u'_') {
        return;
    }
    if (second == u'_') {
        typed[start] = u'0';
        typed[start + 1] = first;
        setText(typed);
    }
    setCursorPosition(start == 0 ? day_start : year_start);
}

void MaskedDateEdit::paste_date(QClipboard::Mode from) {
    if (const auto date = date_in_box(to_utf8(QGuiApplication::clipboard()->text(from)))) {
        setText(to_qt(*date));
    }
}

}  // namespace kelvar
