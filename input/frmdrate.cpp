#include "input/frmdrate.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRegularExpression>
#include <algorithm>

#include "core/entries.h"
#include "input/rules/first_payment.h"
#include "shell/notes/portfolios.h"
#include "widgets/text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

frmdrate::frmdrate(Module1& module1)
    : Screen(module1, ScreenId::frmdrate, "frmdrate",
             {.title = u"Assumed Annual Rate of Return"_s, .step = u"Step 4 of 4"_s, .save = true}) {
    auto* Frame1 = control::frame(u"Assumed Annual &Rate of Return* (Select one or more)"_s, "Frame1");
    auto* column = new QVBoxLayout(Frame1);
    column->setSpacing(theme::grid);
    const int side = theme::large_text() ? 0 : theme::grid;
    column->setContentsMargins(side, theme::grid, side, theme::grid);
    build_rates(column);
    content()->addWidget(Frame1);
    build_portfolios(content());
    content()->addWidget(control::paragraph(
        u"* The Assumed Rates of Return for the Future are based on historical returns, volatility and correlations, but not exclusively. They are forward-looking, therefore, they will not match historical returns."_s,
        "Label1"));
    content()->addStretch(1);
}

void frmdrate::build_rates(QBoxLayout* column) {
    for (int index = 0; index < 5; ++index) {
        auto* box = new QCheckBox;
        box->setObjectName(u"chkrate_%1"_s.arg(index));
        column->addWidget(box, 0, Qt::AlignLeft);
        chkrate[static_cast<std::size_t>(index)] = box;
        connect(box, &QCheckBox::clicked, this, [this, index] { rate_ticked(index); });
    }
}

// "All" stands for the four others: it ticks and unticks them, and no longer holds without one of them.
void frmdrate::rate_ticked(int index) {
    const bool ticked = chkrate[static_cast<std::size_t>(index)]->isChecked();
    if (index == 0) {
        for (QCheckBox* box : chkrate) {
            box->setChecked(ticked && box->isEnabled());
        }
    } else if (!ticked) {
        chkrate[0]->setChecked(false);
    }
}

void frmdrate::build_portfolios(QBoxLayout* column) {
    QBoxLayout* title = control::row();
    title->addWidget(theme::label(u"Pre-Arranged Portfolios"_s, theme::Role::section, "lblratetitle"),
                     1);
    title->addLayout(
        legend_entry(Share::fixed_income, theme::label(u"Fixed Income Funds"_s, theme::Role::note)));
    title->addLayout(legend_entry(Share::equity, theme::label(u"Equity Funds"_s, theme::Role::note)));
    column->addLayout(title);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(2 * theme::grid);
    const bool one_offered = module.screens.offers(ScreenId::frmPortfolios);
    const int columns = theme::large_text() ? 1 : 2;
    for (int place = 0; place < 4; ++place) {
        const int index =
            3 - place;  // the rates begin with the lowest risk, the portfolios with the highest
        const Portfolio& portfolio = portfolios().at(static_cast<std::size_t>(index));
        auto* picture = control::picture(u"info"_s, portfolio.name, "");
        picture->setObjectName(u"picrate_%1"_s.arg(index));
        picture->setAccessibleDescription(allocation(portfolio));
        picture->setToolTip(allocation(portfolio));
        picture->setIcon(allocation_picture(portfolio, 4 * theme::grid));
        picture->setIconSize(QSize(4 * theme::grid, 4 * theme::grid));
        auto* text = control::words_beside(picture, u"Click the picture for detailed information"_s,
                                           u"lblport_%1"_s.arg(index).toLatin1());
        picture->setEnabled(one_offered);
        text->setEnabled(one_offered);
        connect(picture, &QToolButton::clicked, this, [this, index, picture] {
            show_portfolio(index, picture->mapTo(this, picture->rect().bottomLeft()));
        });
        picrate[static_cast<std::size_t>(index)] = picture;
        auto* words = new QVBoxLayout;
        words->setSpacing(0);
        words->addWidget(theme::label(portfolio.name, theme::Role::body));
        words->addWidget(text);
        const int at = 2 * (place % columns);
        grid->addWidget(picture, place / columns, at);
        grid->addLayout(words, place / columns, at + 1);
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    column->addLayout(grid);

    auto* row = new QHBoxLayout;
    const bool all_offered = module.screens.offers(ScreenId::frmdnote);
    auto* picnote = control::picture(u"info"_s, u"All portfolios"_s, "picnote");
    auto* lblnote = control::words_beside(picnote, u" Click here for more information"_s, "lblnote");
    picnote->setEnabled(all_offered);
    lblnote->setEnabled(all_offered);
    connect(picnote, &QToolButton::clicked, this, [this] { module.screens.show(ScreenId::frmdnote); });
    row->addWidget(picnote);
    row->addWidget(lblnote, 1);
    column->addLayout(row);
}

void frmdrate::load() {
    module.set_screen_size();
    chkrate[0]->setText(u"&ALL (Select all rates)"_s);
    const RateCaptions captions = rate_captions(module.database().rate());
    const QRegularExpression rule(u"_+"_s);  // would be read out stroke by stroke
    for (std::size_t index = 1; index < chkrate.size(); ++index) {
        const QString caption = to_qt(captions[index]);
        chkrate[index]->setEnabled(!caption.isEmpty());
        chkrate[index]->setAccessibleName(u"No rate"_s);
        if (!caption.isEmpty()) {
            chkrate[index]->setText(u"&"_s + QString(caption).replace(u"&"_s, u"&&"_s));
            chkrate[index]->setAccessibleName(QString(caption).replace(rule, u", "_s));
        }
    }
    chkrate[0]->setEnabled(captions != RateCaptions{});
    set_first_field(chkrate[0]);
}

// A lump sum skips the length of payments.
void frmdrate::activate() {
    lblstep->setText(scenario.method == lump_sum ? u"Step 3 of 3"_s : u"Step 4 of 4"_s);
}

RateTicks frmdrate::ticks() const {
    RateTicks ticked{};
    std::ranges::transform(chkrate, ticked.begin(),
                           [](const QCheckBox* box) { return box->isChecked(); });
    return ticked;
}

bool frmdrate::chk_rate() {
    clear_error();
    const Check check = check_rates(ticks());
    if (check) {
        refuse(check->text, check->field);
    }
    return !check;
}

// The day can have changed since the month was chosen; then it leads back there. The months after an
// amount certain come later than the first payment and are still to come with it.
bool frmdrate::chk_month() {
    const Check check = check_first_payment(scenario, module.today());
    if (!check) {
        return true;
    }
    module.screens.show(ScreenId::frmdist1);
    module.screens.hide(ScreenId::frmdrate);
    module.report(check->text);
    module.screens.focus(check->field);
    return false;
}

void frmdrate::pick_one() {
    scenario.selected_rates = rate_list(module.database().rate(), ticks());
    switch (scenario.method) {
        case lump_sum:
            module.screens.show(ScreenId::frmlump);
            break;
        case periodic_payments:
            module.screens.show(ScreenId::frmperio);
            break;
        case partial_lump_sum:
            module.screens.close(ScreenId::frmparti);
            module.screens.show(ScreenId::frmparti);
            break;
        default:
            break;
    }
}

void frmdrate::put_into(Entries& entries) const {
    const std::vector<double> rates = rate_list(module.database().rate(), ticks());
    entries.selected_rates = rates.empty() ? std::nullopt : std::optional{rates};
    entries.all_rates = chkrate[0]->isChecked() ? std::optional{true} : std::nullopt;
}

bool frmdrate::take(const Entries& entries) {
    if (!entries.selected_rates) {
        return false;
    }
    if (entries.all_rates.value_or(false)) {
        chkrate[0]->click();
    }
    std::vector<double> offered;
    for (std::size_t index = 1; index < chkrate.size(); ++index) {
        RateTicks one{};
        one[index] = true;
        for (const double rate : rate_list(module.database().rate(), one)) {
            offered.push_back(rate);
            if (std::ranges::find(*entries.selected_rates, rate) != entries.selected_rates->end()) {
                chkrate[index]->setChecked(true);
            }
        }
    }
    const auto is_offered = [&](double rate) {
        return std::ranges::find(offered, rate) != offered.end();
    };
    if (!std::ranges::all_of(*entries.selected_rates, is_offered)) {
        const Refusal refusal = *check_rates({});
        refuse(refusal.text, refusal.field);
        return false;
    }
    const auto shown = std::ranges::find(*entries.selected_rates, entries.shown_rate.value_or(0.0));
    if (shown != entries.selected_rates->end()) {
        module.visit.compared_rate = static_cast<int>(shown - entries.selected_rates->begin());
    }
    return true;
}

void frmdrate::show_portfolio(int index, QPoint position) {
    scenario.portfolio_click_x = position.x();
    scenario.portfolio_click_y = position.y();
    scenario.portfolio_index = static_cast<std::int16_t>(index);
    module.screens.show(ScreenId::frmPortfolios);
}

void frmdrate::words_clicked(QToolButton* picture, QPoint place) {
    const auto portfolio = std::ranges::find(picrate, picture);
    if (portfolio == picrate.end()) {
        Screen::words_clicked(picture, place);
    } else {
        show_portfolio(static_cast<int>(portfolio - picrate.begin()), place);
    }
}

void frmdrate::go_next() {
    if (chk_rate() && chk_month()) {
        pick_one();
    }
}

void frmdrate::go_previous() {
    module.screens.show(scenario.method == lump_sum ? ScreenId::frmdist2 : ScreenId::frmdist3);
    module.screens.hide(ScreenId::frmdrate);
}

}  // namespace kelvar
