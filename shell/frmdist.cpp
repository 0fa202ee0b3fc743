#include "shell/frmdist.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

frmdist::frmdist(Module1& module1)
    : Screen(module1, ScreenId::frmdist, "frmdist",
             {.title = u"Distribution of Your Deferred Compensation Plan Account"_s,

              .previous = false}) {
    build_rules();
    build_options();
    content()->addStretch(1);
}

void frmdist::build_rules() {
    auto* card = new QFrame;
    card->setObjectName(u"card"_s);
    auto* lines = new QVBoxLayout(card);
    lines->setContentsMargins(2 * theme::grid, 2 * theme::grid, 2 * theme::grid, 2 * theme::grid);
    const QString half = u"½"_s;
    const auto add = [&](QBoxLayout* row, const QString& text, theme::Role role) {
        auto* line = theme::label(text, role);
        line->setWordWrap(true);
        row->addWidget(line);
    };
    add(lines, u"You may withdraw funds without penalty: "_s, theme::Role::section);
    add(lines, u"  from the 457 Plan upon termination of City service  "_s, theme::Role::body);
    add(lines, u"  OR"_s, theme::Role::body);
    add(lines, u"  from the 401 (k) Plan from age 59"_s + half + u" onwards"_s, theme::Role::body);
    lines->addSpacing(theme::grid);
    add(lines,
        u"You may leave your funds in the Plan as long as you want up until March 31st of the year after you reach age 70"_s +
            half + u", when the law requires you to commence distribution payments. "_s,
        theme::Role::body);
    content()->addWidget(card);
}

void frmdist::build_options() {
    struct Option {
        QString text;
        const char* picture;
        const char* label;
        ScreenId note;
    };
    const Option options[] = {
        {u"1) When you wish distribution to begin (commencement date)  "_s, "pictime", "lbltime",
         ScreenId::frmtimin},
        {u"2) The type of payments you want to receive (method)  "_s, "Picmethod", "lblmethod",
         ScreenId::frmethod},
        {u"3) How long you wish to receive payments (length) "_s, "piclengt", "lbllengt",
         ScreenId::frmlengt},
        {u"How to make your distribution payments last longer"_s, "piclast", "lbllast",
         ScreenId::frmvang},
    };

    auto* card = new QFrame;
    card->setObjectName(u"card"_s);
    auto* grid = new QGridLayout(card);
    grid->setContentsMargins(2 * theme::grid, 2 * theme::grid, 2 * theme::grid, 2 * theme::grid);
    grid->setColumnStretch(theme::large_text() ? 0 : 3, 1);  // a word and its picture stay together
    auto* heading =
        theme::label(u"These are the options available for distribution of your Plan account:"_s,
                     theme::Role::section);
    heading->setWordWrap(true);
    grid->addWidget(heading, 0, 0, 1, 3);
    int row = 0;
    for (const Option& option : options) {
        ++row;
        auto* text = theme::label(option.text, theme::Role::body);
        text->setWordWrap(theme::large_text());
        auto* picture = control::picture(u"info"_s, option.text.trimmed(), option.picture);
        picture->setAccessibleDescription(u"Click here for more information"_s);
        auto* label =
            control::words_beside(picture, u" Click here for more information"_s, option.label);
        const bool offered = module.screens.offers(option.note);
        picture->setEnabled(offered);
        label->setEnabled(offered);
        connect(picture, &QToolButton::clicked, this,
                [this, note = option.note] { module.screens.show(note); });
        grid->addWidget(text, row, 0);
        grid->addWidget(picture, row, 1);
        grid->addWidget(label, row, 2);
        if (option.note == ScreenId::frmvang) {
            text->setObjectName(u"Label1"_s);
        }
    }
    auto* cmdchart = control::button(u"Pa&yment Duration Chart"_s, "cmdchart");
    cmdchart->setMinimumWidth(cmdchart->sizeHint().width() + 2 * theme::grid);
    cmdchart->setEnabled(module.screens.offers(ScreenId::frmvang));
    connect(cmdchart, &QPushButton::clicked, this, [this] { module.screens.show(ScreenId::frmvang); });
    auto* cmdopen = control::button(u"&Open Participant..."_s, "cmdopen");
    cmdopen->setMinimumWidth(cmdopen->sizeHint().width() + 2 * theme::grid);
    connect(cmdopen, &QPushButton::clicked, this, [this] { module.screens.open_participant(); });
    QBoxLayout* buttons = control::row();
    buttons->addWidget(cmdchart);
    buttons->addWidget(cmdopen);
    buttons->addStretch(1);
    grid->addLayout(buttons, row + 1, 0, 1, 4);
    content()->addWidget(card);
}

void frmdist::load() {
    module.reset_scenario();
    module.set_screen_size();
}

void frmdist::go_next() {
    module.screens.show(ScreenId::frmdist1);
}

}  // namespace kelvar
