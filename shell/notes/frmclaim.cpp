#include "shell/notes/note_screens.h"

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>

#include "core/disclaimer.h"
#include "widgets/controls.h"
#include "widgets/scrolled_page.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr int characters_in_a_line = 90;

// The narrow font, or the narrowest there is instead, so large that its small letters are as high as
// those of the other texts.
QFont narrow_font(const QFont& base) {
    QFont font = base;
    font.setFamilies({u"Arial Narrow"_s, u"Liberation Sans Narrow"_s, base.family()});
    const double smaller = QFontMetricsF(base).xHeight() / QFontMetricsF(font).xHeight();
    font.setPointSizeF(base.pointSizeF() * std::max(1.0, smaller));
    return font;
}

// In pixels; the texts have enough words to tell how wide a character is on average.
int line_width(const QFont& font) {
    const QString text = to_qt(disclaimer[4]);
    return QFontMetrics(font).horizontalAdvance(text.left(400)) * characters_in_a_line / 400;
}

}  // namespace

frmclaim::frmclaim(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmclaim"_s);
    setWindowTitle(u"Kelvar"_s);
    setModal(true);
    control::only_closes(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(3 * theme::grid, 2 * theme::grid, 3 * theme::grid, 2 * theme::grid);
    layout->setSpacing(theme::grid);
    layout->addWidget(theme::label(u"Please Note:"_s, theme::Role::section, "lblnote1"));

    auto* page = new ScrolledPage;
    const QFont narrow = narrow_font(font());
    auto* lines = new QVBoxLayout(page);
    lines->setContentsMargins(0, 0, theme::grid, 0);
    lines->setSpacing(theme::grid);
    int index = 0;
    for (const char* text : disclaimer) {
        auto* line = theme::label(to_qt(text), theme::Role::body);
        line->setObjectName(u"lblnote_%1"_s.arg(index++));
        line->setWordWrap(true);
        line->setFont(narrow);
        lines->addWidget(line);
    }
    lines->addStretch(1);
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setWidget(page);
    scroll->setAccessibleName(u"Please Note:"_s);
    layout->addWidget(scroll, 1);

    auto* cmdok = control::button(u"&OK"_s, "cmdok");
    control::make_default(cmdok);
    connect(cmdok, &QPushButton::clicked, this, &QDialog::accept);
    layout->addWidget(cmdok, 0, Qt::AlignRight);
    cmdok->setFocus();

    // No wider than reads well and no higher than its texts, so that the button stays below them.
    const QSize screen = parent->screen()->availableSize() - QSize(0, 4 * theme::grid);
    const QSize room(std::min(screen.width(), parent->width() - 8 * theme::grid), screen.height());
    const int beside = 6 * theme::grid;  // margins of the window
    const int width = std::min(beside + theme::grid + line_width(narrow), room.width());
    const int around = layout->sizeHint().height() - scroll->sizeHint().height();
    const int height = around + lines->heightForWidth(width - beside);
    if (height <= room.height()) {
        // One that is there for a moment narrows the texts, and so stays for ever.
        scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    setFixedSize(width, std::min(height, room.height()));
}

}  // namespace kelvar
