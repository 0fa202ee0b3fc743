#include "shell/notes/note_screens.h"

#include <QPushButton>

#include "engine/duration.h"
#include "widgets/bar_chart.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

const QString lead =
    u"The duration of your distribution payments depends on how much you withdraw from your account and the rate of return on your investments."_s;
const QString smaller_withdrawals =
    u"You can increase the period for which you receive distribution checks by reducing the amount you withdraw from your account.  For instance,  if you refer to the chart,  you will notice that if you withdraw each year an amount equal to 15% of your current distribution account balance, your distribution payments will last for 8 years (assuming an average annual total return of 5%).  On the other hand,  if your withdrawal rate is 10% instead of 15% (and assuming the same 5% rate of return),  your distribution payments will run for 14 years.  That translates into a 75% increase in the duration of your payments!  The total payback from your distribution payments will also be significantly higher as the money in your account will be working for you for a longer time. "_s;
const QString higher_return =
    u"Your distribution payments can also last longer if your funds earn a higher rate of return.  For example,  by referring to the chart,  you will notice that if you withdraw each year an amount equal to 10% of your current distribution account balance,  and assuming your funds earn an average annual total return of 6%,  your distribution payments will last for 15 years.  On the other hand,  if your funds earn 8% instead of 6%,  your distribution payments will last for 20 years.  In order to increase your rate of return so your distribution payments last longer,  you might have to re-examine your investment portfolio.  You should consult your financial advisor when making such a decision."_s;

constexpr double upper_years = 25.0;

BarSet years_at(double withdrawal, const std::vector<int>& returns) {
    BarSet set{.name = u"%1% withdrawn each year"_s.arg(withdrawal), .values = {}};
    for (const int percent : returns) {
        set.values.push_back(years_payments_last(withdrawal, percent).value_or(0));
    }
    return set;
}

}  // namespace

frmvang::frmvang(Module1& module1)
    : Screen(module1, ScreenId::frmvang, "frmvang",
             {.title = u"How to make your distribution payments last longer"_s, .step = {}}) {
    add_paragraphs({{{}, lead}});
    auto* chart = new BarChart("grphvang", u"Years that payments last by annual return"_s);
    // At these returns the withdrawals shown always empty the account some day.
    const std::vector<int> returns{4, 5, 6, 7, 8};
    BarData bars{.labels = {},
                 .sets = {years_at(10.0, returns), years_at(15.0, returns)},
                 .upper = upper_years,
                 .unit = ChartUnit::years,
                 .value_title = u"Years that payments last"_s,
                 .label_title = u"Average annual total return"_s};
    for (const int percent : returns) {
        bars.labels << u"%1%"_s.arg(percent);
    }
    chart->show_bars(bars);
    content()->addWidget(chart);
    add_paragraphs({{{}, smaller_withdrawals}, {{}, higher_return}});
}

void frmvang::go_next() {
    module.screens.show(ScreenId::frmvang1);
}

}  // namespace kelvar
