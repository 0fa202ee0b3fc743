#include "input/frmdist2.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <utility>

#include "core/numbers.h"
#include "input/frequency_boxes.h"
#include "input/rules/distribution_rules.h"
#include "widgets/controls.h"
#include "widgets/entry_box.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

// A list that knows whether its entry was picked from the open list, not stepped to by arrow keys.
class PopupList : public QComboBox {
public:
    void showPopup() override {
        popup_used_ = true;
        QComboBox::showPopup();
    }
    bool take_popup_used() { return std::exchange(popup_used_, false); }

protected:
    void focusInEvent(QFocusEvent* event) override {
        QComboBox::focusInEvent(event);
        if (selects_text(event->reason())) {
            lineEdit()->selectAll();
        }
    }

private:
    bool popup_used_ = false;
};

namespace {

// Going to the option of a method gives up what was being typed for another one, or takes it later.
bool is_option(const QWidget* widget) {
    return qobject_cast<const QRadioButton*>(widget) != nullptr;
}

}  // namespace

frmdist2::frmdist2(Module1& module1)
    : Screen(module1, "frmdist2", {.title = u"Method of Distribution"_s, .step = u"Step 2 of 4"_s}) {
    content()->setSpacing(theme::grid);
    content()->addWidget(theme::label(u"(Check only one)"_s, theme::Role::note, "Label1"));
    build_methods();
    lblquiet = control::paragraph({}, "lblquiet");
    content()->addWidget(lblquiet);
    content()->addWidget(theme::label(u"Note:"_s, theme::Role::section, "lblmethod_4"));
    content()->addWidget(control::paragraph(
        u"The Internal Revenue Code states that periodic payments must start no later than April 1st of the calendar year following the later of the calendar year on which you attain age 70 1/2 or the calendar year in which you retire from City service."_s,
        "lblmethod_5"));
    content()->addStretch(1);
}

void frmdist2::build_methods() {
    QBoxLayout* column = nullptr;
    content()->addWidget(method_card(0, u"Full &Lump Sum Payment"_s, column));
    content()->addWidget(method_card(1, u"Periodic Payment&s:"_s, column));
    chkperiod = frequency_boxes("chkperiod", column);
    content()->addWidget(method_card(2, u"&Amount Certain with Periodic Payments"_s, column));
    build_partial(column);
    content()->addWidget(method_card(3, u"&Rollover funds out of the 457 and 401(K) Plan"_s, column));

    const Screens& screens = module.screens;
    optmethod[0]->setEnabled(screens.offers(ScreenId::frmlump));
    optmethod[2]->setEnabled(screens.offers(ScreenId::frmparti));
    optmethod[3]->setEnabled(screens.offers(ScreenId::frmderrmsg));
    opens(optmethod[1], chkperiod);
    opens(optmethod[2], periodic_after_partial_);
    auto* one_of = new QButtonGroup(this);
    for (int index = 0; index < 4; ++index) {
        QRadioButton* option = optmethod[static_cast<std::size_t>(index)];
        one_of->addButton(option, index);
        connect(option, &QRadioButton::clicked, this, [this, index] { choose_method(index); });
    }
}

QFrame* frmdist2::method_card(int index, const QString& text, QBoxLayout*& column) {
    auto* card = new QFrame;
    card->setObjectName(u"card"_s);
    column = new QVBoxLayout(card);
    column->setContentsMargins(theme::grid, theme::grid, theme::grid, theme::grid);
    auto* option = new QRadioButton(text);
    option->setObjectName(u"optmethod_%1"_s.arg(index));
    column->addWidget(option, 0, Qt::AlignLeft);
    optmethod[static_cast<std::size_t>(index)] = option;
    return card;
}

FrequencyBoxes* frmdist2::frequency_boxes(const char* name, QBoxLayout* column) {
    auto* boxes = new FrequencyBoxes(QString::fromLatin1(name));
    connect(boxes, &FrequencyBoxes::changed, this,
            [this, boxes] { scenario.frequency = boxes->frequency(); });
    column->addWidget(boxes);
    return boxes;
}

void frmdist2::build_partial(QBoxLayout* card) {
    periodic_after_partial_ = new QWidget;
    auto* column = new QVBoxLayout(periodic_after_partial_);
    column->setContentsMargins(theme::side_margin(), 0, 0, 0);
    card->addWidget(periodic_after_partial_);

    auto* Label2 = theme::label(u"Partial Amount Certain of:  $"_s, theme::Role::body, "Label2");
    txtpartial = control::money_box("txtpartial", u"Partial amount certain in dollars"_s);
    Label2->setBuddy(txtpartial);
    auto* Label3 = theme::label(u"OR Percentage of Balance"_s, theme::Role::body, "Label3");
    cmbPercent = new PopupList;
    cmbPercent->setObjectName(u"cmbPercent"_s);
    cmbPercent->setAccessibleName(u"Partial amount as a percentage of the balance"_s);
    cmbPercent->setEditable(true);
    cmbPercent->lineEdit()->setAccessibleName(cmbPercent->accessibleName());
    cmbPercent->setInsertPolicy(QComboBox::NoInsert);
    cmbPercent->setCompleter(nullptr);
    cmbPercent->setMinimumContentsLength(6);
    Label3->setBuddy(cmbPercent);
    auto* dollars = new QHBoxLayout;
    dollars->addWidget(Label2);
    dollars->addWidget(txtpartial);
    dollars->addStretch(1);
    auto* percent = new QHBoxLayout;
    percent->addWidget(Label3);
    percent->addWidget(cmbPercent);
    percent->addStretch(1);
    QBoxLayout* amount = control::row();
    amount->addLayout(dollars);
    amount->addLayout(percent, 1);
    column->addLayout(amount);

    column->addWidget(
        theme::label(u"With remaining balance to be paid:"_s, theme::Role::body, "lblmethod_0"));
    chkpartial = frequency_boxes("chkpartial", column);
    build_commencement(column);

    on_leave(txtpartial, [this](Leaving leaving) { partial_amount_left(leaving); });
    on_leave(cmbPercent, [this](Leaving leaving) {
        if (!leaving.to_navigation && !is_option(leaving.to)) {
            percentage_typed();
        }
    });
    connect(cmbPercent, &QComboBox::activated, this, &frmdist2::percentage_chosen,
            Qt::QueuedConnection);
    connect(cmbPercent->lineEdit(), &QLineEdit::textEdited, this,
            [this] { percentage_edited_ = true; });
}

void frmdist2::build_commencement(QBoxLayout* column) {
    cmbscnmonth = control::list("cmbscnmonth", u"Month in which the remaining payments commence"_s);
    cmbscnyear = control::list("cmbscnyear", u"Year in which the remaining payments commence"_s);
    auto* lblmonth = theme::label(u"Month"_s, theme::Role::body, "lblmethod_2");
    auto* lblyear = theme::label(u"Year"_s, theme::Role::body, "lblmethod_3");
    lblmonth->setBuddy(cmbscnmonth);
    lblyear->setBuddy(cmbscnyear);
    auto* row = new QHBoxLayout;
    row->addWidget(theme::label(u"Commencing:"_s, theme::Role::body, "lblmethod_1"));
    row->addSpacing(theme::grid);
    row->addWidget(lblmonth);
    row->addWidget(cmbscnmonth);
    row->addSpacing(theme::grid);
    row->addWidget(lblyear);
    row->addWidget(cmbscnyear);
    row->addStretch(1);
    column->addLayout(row);
    lblnomonth = control::paragraph(
        u"The payment of the amount certain is in the last month in which payments may begin, so that no month is left for the remaining payments. Go back and choose an earlier month for it."_s,
        "lblnomonth");
    column->addWidget(lblnomonth);
    connect(cmbscnyear, &QComboBox::currentIndexChanged, this, [this] {
        commencement_chosen_ = true;
        get_month2();
        take_commencement();
    });
    connect(cmbscnmonth, &QComboBox::currentIndexChanged, this, [this] {
        commencement_chosen_ = true;
        take_commencement();
    });
}

void frmdist2::load() {
    for (int percentage = 1; percentage < 100; ++percentage) {
        cmbPercent->addItem(QString::number(percentage));
    }
    cmbPercent->setCurrentIndex(-1);
    dis_f2();
    dis_f3();
    wait_for_method(u"Choose how the account is to be paid out to go on."_s);
    for (QRadioButton* option : optmethod) {
        if (option->isEnabled()) {
            set_first_field(option);
            break;
        }
    }
}

void frmdist2::activate() {
    get_year();
    take_commencement();
    const bool stale = scenario.present_value != shown_present_value_;
    if (scenario.method == partial_lump_sum && stale && scenario.partial_amount != 0.0) {
        show_percentage();
    }
}

void frmdist2::choose_method(int index) {
    dis_f2();
    dis_f3();
    lblquiet->clear();
    scenario.frequency = 0;
    scenario.partial_amount = 0.0;
    scenario.partial_percent.clear();
    scenario.scenario_month = 0;
    scenario.scenario_year = 0;
    switch (index) {
        case 0:
            scenario.method = lump_sum;
            scenario.number_of_payments = 0;
            scenario.fixed_amount = 0.0;
            enable_cmd();
            break;
        case 1:
            scenario.method = periodic_payments;
            enable_cmd();
            en_f2();
            scenario.frequency = chkperiod->frequency();
            break;
        case 2:
            scenario.method = partial_lump_sum;
            enable_cmd();
            en_f3();
            scenario.frequency = chkpartial->frequency();
            if (percentage_edited_) {
                percentage_typed();
            } else {
                take_partial_amount();
            }
            take_commencement();
            if (!error_shown()) {
                focus_field("txtpartial");
            }
            break;
        default:
            scenario.method = no_method;
            wait_for_method(
                u"A rollover is arranged with the plan, not calculated here. Choose another method to go on."_s);
            // Later, because an arrow key chooses the option first and then gives it the focus.
            QMetaObject::invokeMethod(
                this, [this] { module.screens.show(ScreenId::frmderrmsg); }, Qt::QueuedConnection);
            break;
    }
}

void frmdist2::en_f2() {
    chkperiod->setEnabled(true);
}

void frmdist2::dis_f2() {
    chkperiod->setEnabled(false);
}

// Next is grey, and a quiet line says what to do first.
void frmdist2::wait_for_method(const QString& what_to_do) {
    disable_cmd();
    lblquiet->setText(what_to_do);
}

void frmdist2::set_next_enabled(bool enabled) {
    Cmdnext->setEnabled(enabled);
    picnext->setEnabled(enabled);
}

// An entry of the list was picked, or stepped to; only picking one moves on.
void frmdist2::percentage_chosen() {
    const bool picked = cmbPercent->take_popup_used() && cmbPercent->hasFocus();
    clear_error();
    if (percentage_typed() && picked) {
        focus_field("chkpartial_0");
    }
}

// Takes over what stands in the percentage box; false when it was refused.
bool frmdist2::percentage_typed() {
    const QString text = cmbPercent->currentText();
    if (!percentage_edited_ && (text.isEmpty() || to_utf8(text) == scenario.partial_percent)) {
        return true;
    }
    const auto percentage = read_percentage(to_utf8(text));
    if (!percentage) {
        cmbPercent->clearEditText();
        percentage_edited_ = false;
        report_once("Invalid percentage of Partial Lump Sum amount", cmbPercent);
        return false;
    }
    apply_percentage(*percentage);
    const Check check = partial_msg(scenario);
    if (check) {
        refuse(check->text, check->field);
    }
    return !check;
}

void frmdist2::apply_percentage(double percentage) {
    percentage_edited_ = false;
    shown_present_value_ = scenario.present_value;
    scenario.partial_amount = amount_of_percentage(scenario.present_value, percentage);
    scenario.partial_percent = to_utf8(cmbPercent->currentText());
    txtpartial->setText(to_qt(format_number(scenario.partial_amount, pattern::amount)));
}

// A number that cannot be read counts as no amount; Next says so.
void frmdist2::take_partial_amount() {
    const auto amount = read_partial_amount(to_utf8(txtpartial->text()));
    scenario.partial_amount = amount.value_or(0.0);
    if (!amount) {
        scenario.partial_percent.clear();
        cmbPercent->clearEditText();
        return;
    }
    txtpartial->setText(to_qt(format_number(*amount, pattern::amount)));
    show_percentage();
}

void frmdist2::partial_amount_left(Leaving leaving) {
    if (!txtpartial->isModified() || is_option(leaving.to)) {
        return;
    }
    take_partial_amount();
    if (leaving.to_navigation || txtpartial->text().trimmed().isEmpty()) {
        return;  // an empty box is no amount yet; Next asks for it
    }
    if (const Check check = partial_msg(scenario)) {
        refuse(check->text, check->field);
    } else if (leaving.by_tab) {
        focus_field("chkpartial_0");
    }
}

void frmdist2::show_percentage() {
    percentage_edited_ = false;
    shown_present_value_ = scenario.present_value;
    scenario.partial_percent = percentage_of_amount(scenario.present_value, scenario.partial_amount);
    cmbPercent->setCurrentIndex(-1);
    cmbPercent->setEditText(to_qt(scenario.partial_percent));
}

// Until the user has chosen a month or year, they follow the first payment: the present year if it is
// offered, else the first one, and the first month.
void frmdist2::get_year() {
    control::refill(cmbscnyear, year_entries(scenario_years(scenario, module.today())));
    if (!commencement_chosen_) {
        const QSignalBlocker quiet(cmbscnyear);
        const int present = cmbscnyear->findText(QString::number(year_of(module.today())));
        cmbscnyear->setCurrentIndex(std::max(present, 0));
    }
    get_month2();
    if (!commencement_chosen_) {
        const QSignalBlocker quiet(cmbscnmonth);
        cmbscnmonth->setCurrentIndex(0);
    }
}

void frmdist2::get_month2() {
    const int year = cmbscnyear->currentText().toInt();
    control::refill(cmbscnmonth, month_entries(scenario_months(scenario, year, module.today())));
    lblnomonth->setVisible(cmbscnmonth->count() == 0);
}

void frmdist2::take_commencement() {
    if (scenario.method != partial_lump_sum) {
        return;
    }
    scenario.scenario_year = static_cast<std::int16_t>(cmbscnyear->currentText().toInt());
    scenario.scenario_month =
        static_cast<std::int16_t>(month_number(to_utf8(cmbscnmonth->currentText())));
}

// Enter in the percentage box takes the percentage; it is not Next.
bool frmdist2::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched == cmbPercent) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            clear_error();
            if (percentage_typed()) {
                focus_field("chkpartial_0");
            }
            return true;
        }
    }
    return Screen::eventFilter(watched, event);
}

void frmdist2::next_screen() {
    clear_error();
    if (scenario.method == lump_sum) {
        module.screens.show(ScreenId::frmdrate);
        return;
    }
    Check check;
    if (scenario.method == periodic_payments) {
        check = check_periodic(scenario);
    } else if (scenario.method == partial_lump_sum) {
        if (txtpartial->isModified()) {
            take_partial_amount();
        } else if (percentage_edited_ && !percentage_typed()) {
            return;
        }
        take_commencement();
        check = check_partial(module, to_utf8(txtpartial->text()));
    } else {
        return;
    }
    if (check) {
        refuse(check->text, check->field);
    } else {
        module.screens.show(ScreenId::frmdist3);
    }
}

void frmdist2::go_previous() {
    module.screens.hide(ScreenId::frmdist2);
    module.screens.show(ScreenId::frmdist1);
}

}  // namespace kelvar
