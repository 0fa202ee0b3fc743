#include "shell/notes/portfolios.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "widgets/controls.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

const std::array<Portfolio, 4>& portfolios() {
    static const std::array<Portfolio, 4> all{{
        {u"High Return/High Risk Portfolio"_s,
         u"High Return/High Risk Portfolio"_s,
         20,
         u"Fixed Income Funds - 20%"_s,
         {u"10% Stable Income Fund"_s, u"10% Bond Fund"_s},
         u"Equity Funds - 80%"_s,
         {u"40% Equity Index"_s, u"10% Mid-Cap Equity"_s, u"20% International Equity"_s,
          u"10% Small-Cap Equity"_s}},
        {u"Moderately High Return/Risk Portfolio"_s,
         u"Moderately High Return/Risk Portfolio"_s,
         40,
         u"Fixed Income Funds - 40%"_s,
         {u"25% Stable Income Fund"_s, u"15% Bond Fund"_s},
         u"Equity Funds - 60%"_s,
         {u"30% Equity Index"_s, u"7.5% Mid-Cap Equity"_s, u"15% International Equity"_s,
          u"7.5% Small-Cap Equity"_s}},
        {u"Moderately Low Return/Risk Portfolio"_s,
         u"Moderately Low Return/Rsk Portfolio"_s,
         60,
         u"Fixed Income Funds - 60%"_s,
         {u"45% Stable Income Fund"_s, u"15% Bond Fund"_s},
         u"Equity Funds - 40%"_s,
         {u"17.5% Equity Index"_s, u"7.5% Mid-Cap Equity"_s, u"10% International Equity"_s,
          u"5% Small-Cap Equity"_s}},
        {u"Low Risk/Low Return Portfolio"_s,
         u"Low Risk/Low Return Portfolio"_s,
         80,
         u"Fixed Income Funds - 80%"_s,
         {u"65% Stable Income Fund"_s, u"15% Bond Fund"_s},
         u"Equity Funds - 20%"_s,
         {u"12.5% Equity Index"_s, u"7.5% International Equity"_s}},
    }};
    return all;
}

QPixmap allocation_picture(const Portfolio& portfolio, int size) {
    constexpr int full_circle = 360 * 16;
    const QColor accent = theme::colors().accent;
    QPixmap picture = theme::canvas(size);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect circle(2, 2, size - 4, size - 4);
    const int fixed_income = full_circle * portfolio.fixed_income_percent / 100;
    painter.setPen(QPen(accent, 1.5));
    painter.setBrush(QBrush(accent, Qt::BDiagPattern));
    painter.drawPie(circle, 90 * 16, fixed_income);
    painter.setBrush(accent);
    painter.drawPie(circle, 90 * 16 + fixed_income, full_circle - fixed_income);
    return picture;
}

QBoxLayout* legend_entry(Share share, QLabel* words) {
    auto* key = new QLabel;
    key->setPixmap(
        theme::legend_key(share == Share::fixed_income ? Qt::BDiagPattern : Qt::SolidPattern));
    auto* entry = new QHBoxLayout;
    entry->setSpacing(theme::grid);
    entry->addWidget(key);
    entry->addWidget(words, 1);
    return entry;
}

QString allocation(const Portfolio& portfolio) {
    return portfolio.fixed_income + u", "_s + portfolio.equity;
}

QGroupBox* portfolio_frame(int index, PortfolioName name) {
    const Portfolio& portfolio = portfolios().at(static_cast<std::size_t>(index));
    QGroupBox* frame =
        control::frame(name == PortfolioName::in_overview ? portfolio.overview_name : portfolio.name,
                       u"framPort_%1"_s.arg(index).toLatin1());
    auto* row = new QHBoxLayout(frame);
    row->setSpacing(2 * theme::grid);
    auto* picture = new QLabel;
    picture->setPixmap(allocation_picture(portfolio, 8 * theme::grid));
    picture->setAccessibleName(allocation(portfolio));
    row->addWidget(picture, 0, Qt::AlignTop);
    auto* funds = new QVBoxLayout;
    funds->setSpacing(2);
    const auto add_group = [funds](Share share, const QString& heading, const QStringList& lines) {
        funds->addLayout(legend_entry(share, theme::label(heading, theme::Role::value)));
        for (const QString& line : lines) {
            funds->addWidget(theme::label(line, theme::Role::body));
        }
    };
    add_group(Share::fixed_income, portfolio.fixed_income, portfolio.fixed_income_funds);
    funds->addSpacing(theme::grid / 2);
    add_group(Share::equity, portfolio.equity, portfolio.equity_funds);
    funds->addStretch(1);
    row->addLayout(funds, 1);
    return frame;
}

}  // namespace kelvar
