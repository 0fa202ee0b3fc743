#include "shell/notes/duration_table.h"

#include <QBrush>
#include <QColor>
#include <array>

#include "engine/duration.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// Percent a year; the first row and the first column show them.
constexpr std::array withdrawals{5, 6, 7, 8, 9, 10, 12, 15, 20};
constexpr std::array returns{3, 4, 5, 6, 7, 8, 9, 10};

const QColor yellow(0xff, 0xe5, 0x7a);
const QColor red(0xa8, 0x26, 0x26);
const QColor blue(0x1f, 0x4f, 0x82);
const QColor corner(0x4a, 0x57, 0x64);

int withdrawal_of(const QModelIndex& cell) {
    return withdrawals.at(static_cast<std::size_t>(cell.row() - 1));
}

int return_of(const QModelIndex& cell) {
    return returns.at(static_cast<std::size_t>(cell.column() - 1));
}

QString text(const QModelIndex& cell) {
    if (cell.row() == 0 && cell.column() == 0) {
        return u"%"_s;
    }
    if (cell.row() == 0) {
        return u"%1%"_s.arg(return_of(cell));
    }
    if (cell.column() == 0) {
        return u"%1%"_s.arg(withdrawal_of(cell));
    }
    const auto years = years_payments_last(withdrawal_of(cell), return_of(cell));
    return years ? QString::number(*years) : u"never"_s;
}

}  // namespace

int DurationTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(withdrawals.size()) + 1;
}

int DurationTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(returns.size()) + 1;
}

QVariant DurationTable::data(const QModelIndex& cell, int role) const {
    const bool of_returns = cell.row() == 0;
    const bool of_withdrawals = cell.column() == 0;
    switch (role) {
        case Qt::DisplayRole:
            return text(cell);
        case Qt::AccessibleTextRole:
            return sentence(cell).isEmpty() ? text(cell) : sentence(cell);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
        case Qt::BackgroundRole:
            return QBrush(of_returns && of_withdrawals ? corner
                          : of_returns                 ? red
                          : of_withdrawals             ? yellow
                                                       : blue);
        case Qt::ForegroundRole:
            return QBrush(of_withdrawals && !of_returns ? Qt::black : Qt::white);
        default:
            return {};
    }
}

QString DurationTable::sentence(const QModelIndex& cell) const {
    if (!cell.isValid() || cell.row() == 0 || cell.column() == 0) {
        return {};
    }
    const QString choice =
        u"Taking out %1% of today's balance each year, earning %2%: "_s.arg(withdrawal_of(cell))
            .arg(return_of(cell));
    const auto years = years_payments_last(withdrawal_of(cell), return_of(cell));
    return choice + (years ? u"about %1 years"_s.arg(*years) : u"would not run out"_s);
}

}  // namespace kelvar
