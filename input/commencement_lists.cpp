#include "input/commencement_lists.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <algorithm>

#include "core/entries.h"
#include "input/limit_lines.h"
#include "input/rules/commencement.h"
#include "input/rules/first_payment.h"
#include "widgets/controls.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

CommencementLists::CommencementLists(Module1& module1) : module(module1), scenario(module1.scenario) {
    build();
    connect(cmbscnyear, &QComboBox::currentIndexChanged, this, [this] {
        wished_year_ = cmbscnyear->currentText();
        if (wished_month_.isEmpty()) {
            wished_month_ = cmbscnmonth->currentText();
        }
        get_month2();
        take();
    });
    // Also the month that is shown already is chosen, after another one that is not offered.
    for (const auto chosen : {&QComboBox::currentIndexChanged, &QComboBox::activated}) {
        connect(cmbscnmonth, chosen, this, [this] {
            wished_month_ = cmbscnmonth->currentText();
            if (wished_year_.isEmpty()) {
                wished_year_ = cmbscnyear->currentText();
            }
            show_changed();
            take();
        });
    }
    cmbscnmonth->installEventFilter(this);
}

void CommencementLists::build() {
    cmbscnmonth = control::list("cmbscnmonth", u"Month in which the remaining payments commence"_s);
    cmbscnyear = control::list("cmbscnyear", u"Year in which the remaining payments commence"_s);
    auto* lblmonth = theme::label(u"Month"_s, theme::Role::body, "lblmethod_2");
    auto* lblyear = theme::label(u"Year"_s, theme::Role::body, "lblmethod_3");
    lblmonth->setBuddy(cmbscnmonth);
    lblyear->setBuddy(cmbscnyear);
    auto* lists = new QHBoxLayout;
    lists->addWidget(lblmonth);
    lists->addWidget(cmbscnmonth);
    lists->addSpacing(theme::grid);
    lists->addWidget(lblyear);
    lists->addWidget(cmbscnyear);
    lists->addStretch(1);
    QBoxLayout* row = control::row();
    row->setSpacing(theme::grid);
    row->addWidget(theme::label(u"Commencing:"_s, theme::Role::body, "lblmethod_1"));
    row->addLayout(lists, 1);
    lblchanged = limit_line("lblchanged");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(below_box);
    column->addLayout(row);
    column->addWidget(lblchanged);
}

// Followed are the present year if it is offered, else the first one, and the first month.
void CommencementLists::get_year() {
    const QString present = QString::number(year_of(module.today()));
    control::refill(cmbscnyear, year_entries(scenario_years(scenario, module.today())),
                    wished_year_.isEmpty() ? present : wished_year_);
    get_month2();
}

void CommencementLists::get_month2() {
    const int year = cmbscnyear->currentText().toInt();
    control::refill(cmbscnmonth, month_entries(scenario_months(scenario, year, module.today())),
                    wished_month_);
    show_changed();
}

// Says when the lists do not show what the user chose, or cannot show anything.
void CommencementLists::show_changed() {
    const QString year = cmbscnyear->currentText();
    const QString month = cmbscnmonth->currentText();
    const QString wished_year = wished_year_.isEmpty() ? year : wished_year_;
    const QString wished_month = wished_month_.isEmpty() ? month : wished_month_;
    QString changed;
    if (month.isEmpty()) {
        changed =
            u"The first amount is paid in the last month allowed; none is left for the other payments. Go back and choose an earlier month."_s;
    } else if (wished_year != year || wished_month != month) {
        changed = u"%1, %2 cannot be chosen; the other payments begin in %3, %4."_s.arg(
            wished_month, wished_year, month, year);
    }
    show_limit(lblchanged, changed, {cmbscnmonth, cmbscnyear});
    lblchanged->setVisible(!changed.isEmpty());
}

bool CommencementLists::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        month_typed(static_cast<QKeyEvent*>(event)->text());
    }
    return QWidget::eventFilter(watched, event);
}

// The list itself goes to another month that it offers. Any other one is wished for: the year that
// offers it is chosen after it.
void CommencementLists::month_typed(const QString& letter) {
    static const QStringList months = month_entries(all_from(1, 12));
    const auto first_with = [](const QString& letters) {
        return std::ranges::find_if(months, [&](const QString& month) {
            return month.startsWith(letters, Qt::CaseInsensitive);
        });
    };
    typed_ += letter;
    if (first_with(typed_) == months.end()) {
        typed_ = letter;
    }
    const auto month = first_with(typed_);
    if (typed_.isEmpty() || month == months.end()) {
        return;
    }
    if (*month == cmbscnmonth->currentText() ||
        cmbscnmonth->findText(typed_, Qt::MatchStartsWith) < 0) {
        wished_month_ = *month;
        show_changed();
    }
}

bool CommencementLists::choose(const Entries& entries) {
    if (!entries.scenario_month || !entries.scenario_year) {
        return false;
    }
    wished_month_ = to_qt(month_name(*entries.scenario_month));
    wished_year_ = QString::number(*entries.scenario_year);
    get_year();
    take();
    return changed().isEmpty();
}

void CommencementLists::put_into(Entries& entries) const {
    if (!cmbscnmonth->currentText().isEmpty()) {
        entries.scenario_month = month_number(to_utf8(cmbscnmonth->currentText()));
        entries.scenario_year = cmbscnyear->currentText().toInt();
    }
}

QString CommencementLists::changed() const {
    return lblchanged->text();
}

void CommencementLists::take() {
    if (scenario.method != partial_lump_sum) {
        return;
    }
    scenario.scenario_year = static_cast<std::int16_t>(cmbscnyear->currentText().toInt());
    scenario.scenario_month =
        static_cast<std::int16_t>(month_number(to_utf8(cmbscnmonth->currentText())));
    emit taken();
}

}  // namespace kelvar
