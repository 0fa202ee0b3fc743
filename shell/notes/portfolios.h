// The four pre-arranged portfolios and how one is shown.
#pragma once

#include <QGroupBox>
#include <QPixmap>
#include <QStringList>
#include <array>

class QBoxLayout;
class QLabel;

namespace kelvar {

struct Portfolio {
    QString name;
    QString overview_name;  // as the overview of all four spells it
    int fixed_income_percent;
    QString fixed_income;
    QStringList fixed_income_funds;
    QString equity;
    QStringList equity_funds;
};

// From the highest risk to the lowest.
const std::array<Portfolio, 4>& portfolios();

// A pie of the shares: fixed income hatched, equity solid. `size` in pixels.
QPixmap allocation_picture(const Portfolio& portfolio, int size);

// The same in words: "Fixed Income Funds - 20%, Equity Funds - 80%".
QString allocation(const Portfolio& portfolio);

// Words beside the pattern that a share has in the pie.
enum class Share { fixed_income, equity };
QBoxLayout* legend_entry(Share share, QLabel* words);

enum class PortfolioName { alone, in_overview };
// `index` from 0 to 3, the highest risk first.
QGroupBox* portfolio_frame(int index, PortfolioName name);

}  // namespace kelvar
