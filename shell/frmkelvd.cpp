#include "shell/frmkelvd.h"

#include <QLabel>
#include <QPushButton>
#include <chrono>

#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// Long enough to see the button go down before the screen changes.
void pause() {
    using namespace std::chrono;
    const auto end = steady_clock::now() + milliseconds(150);
    while (steady_clock::now() < end) {
    }
}

}  // namespace

frmkelvd::frmkelvd(Module1& module1)
    : Screen(module1, ScreenId::frmkelvd, "frmkelvd", {.help = false, .previous = false}) {
    auto* picture = new QLabel;
    picture->setPixmap(theme::picture(u"kelvar"_s, 12 * theme::grid));
    auto* lblkelv = new QPushButton(u"Kelvar"_s);
    lblkelv->setObjectName(u"lblkelv"_s);
    lblkelv->setAutoDefault(true);
    lblkelv->setFlat(true);
    lblkelv->setCursor(Qt::PointingHandCursor);
    lblkelv->setAccessibleDescription(u"Shows the menu"_s);
    auto* purpose = theme::label(u"Distribution of Your Deferred Compensation Plan Account"_s,
                                 theme::Role::subtitle);
    auto* plans =
        theme::label(u"For participants of the 457 Plan and the 401(k) Plan"_s, theme::Role::note);
    for (QLabel* line : {purpose, plans}) {
        line->setWordWrap(true);
        line->setAlignment(Qt::AlignCenter);
    }

    content()->addStretch(3);
    content()->addWidget(picture, 0, Qt::AlignHCenter);
    content()->addWidget(lblkelv, 0, Qt::AlignHCenter);
    content()->addWidget(purpose);
    content()->addWidget(plans);
    content()->addStretch(4);

    connect(lblkelv, &QPushButton::clicked, this, [this] { module.screens.show(ScreenId::frmdist); });
}

void frmkelvd::load() {
    module.set_screen_size();
    module.open_database();
}

void frmkelvd::go_next() {
    pause();
    module.screens.close(ScreenId::frmkelvd);
    module.screens.show(ScreenId::frmdist);
}

void frmkelvd::mousePressEvent(QMouseEvent*) {
    go_next();
}

}  // namespace kelvar
