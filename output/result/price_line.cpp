#include "output/result/price_line.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

#include "engine/prices.h"
#include "widgets/controls.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

PriceLine::PriceLine(QObject* parent) : QObject(parent), list_(new QWidget) {
    auto* row = new QHBoxLayout(list_);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(theme::grid);
    auto* caption = theme::label(u"Pr&ices rise by"_s, theme::Role::body);
    cmbprices = new QComboBox;
    cmbprices->setObjectName(u"cmbprices"_s);
    cmbprices->setAccessibleName(u"How much prices rise a year"_s);
    caption->setBuddy(cmbprices);
    cmbprices->addItem(u"none"_s, 0);
    for (const int percent : price_rates) {
        cmbprices->addItem(u"%1%"_s.arg(percent), percent);
    }
    row->addWidget(caption);
    row->addWidget(cmbprices);
    row->addStretch(theme::large_text() ? 1 : 0);
    lblprices = theme::label({}, theme::Role::body, "lblprices");
    lblprices->setWordWrap(true);
    lblprices->hide();
    connect(cmbprices, &QComboBox::currentIndexChanged, this, [this] { say(); });
}

void PriceLine::show_result(const Scenario& scenario, const Projection& projection) {
    scenario_ = scenario;
    projection_ = projection;
    say();
}

void PriceLine::say() {
    const int percent = cmbprices->currentData().toInt();
    QString text;
    if (percent != 0 && projection_.outcome == Outcome::complete) {
        text = to_qt(price_text(scenario_, projection_, percent));
    }
    const bool nothing = percent != 0 && text.isEmpty();
    lblprices->setText(nothing ? u"There is no payment of a later year here."_s : text);
    lblprices->setVisible(percent != 0);
    cmbprices->setAccessibleDescription(lblprices->text());
}

}  // namespace kelvar
