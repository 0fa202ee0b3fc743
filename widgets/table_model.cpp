#include "widgets/table_model.h"

using namespace Qt::StringLiterals;

namespace kelvar {

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const int row = index.row();
    const int column = index.column();
    switch (role) {
        case Qt::DisplayRole:
            return text(row, column);
        case Qt::AccessibleTextRole:
            return QString(heading(column).text + u": "_s + text(row, column) +
                           (changed(row, column) ? u", changed"_s : QString()));
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(heading(column).alignment | Qt::AlignVCenter);
        case plain_role:
            return plain(row, column);
        case brief_role:
            return brief(row, column);
        case new_group_role:
            return begins_group(row);
        case changed_role:
            return changed(row, column);
        case supposed_role:
            return supposed(row);
        default:
            return {};
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        return heading(section).text;
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(static_cast<int>(heading(section).alignment | Qt::AlignVCenter) |
                        Qt::TextWordWrap);
    }
    return {};
}

}  // namespace kelvar
