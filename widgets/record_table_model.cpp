#include "widgets/record_table_model.h"

#include <algorithm>

#include "core/numbers.h"
#include "widgets/text.h"

namespace kelvar {

RecordTableModel::RecordTableModel(const Recordset& records, std::vector<Column> columns,
                                   QObject* parent)
    : QAbstractTableModel(parent), records_(records), columns_(std::move(columns)) {}

void RecordTableModel::set_columns(std::vector<Column> columns) {
    beginResetModel();
    columns_ = std::move(columns);
    endResetModel();
}

void RecordTableModel::show_rows(std::size_t first, std::size_t end) {
    beginResetModel();
    first_ = first;
    end_ = std::max(first, end);
    endResetModel();
}

int RecordTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(end_ - first_);
}

int RecordTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RecordTableModel::data(const QModelIndex& index, int role) const {
    const std::size_t row = first_ + static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= records_.RecordCount()) {
        return {};  // the record set is being refilled
    }
    const Column& column = columns_[static_cast<std::size_t>(index.column())];
    switch (role) {
        case Qt::DisplayRole:
            return column.text(records_, row);
        case Qt::AccessibleTextRole:
            return QString(column.heading + QLatin1String(": ") + column.text(records_, row));
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(column.alignment | Qt::AlignVCenter);
        default:
            return {};
    }
}

QVariant RecordTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    const Column& column = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) {
        return column.heading;
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(static_cast<int>(column.alignment | Qt::AlignVCenter) | Qt::TextWordWrap);
    }
    return {};
}

std::size_t row_with(const Recordset& records, std::string_view field, double number) {
    const std::size_t column = records.column(field);
    std::size_t row = 0;
    while (row < records.RecordCount() && as_number(records.cell(row, column)) != number) {
        ++row;
    }
    return row;
}

RecordTableModel::Column field_column(const Recordset& records, std::string_view field,
                                      const QString& heading, Qt::Alignment alignment) {
    const auto text = [column = records.column(field)](const Recordset& rows, std::size_t row) {
        return to_qt(as_text(rows.cell(row, column)));
    };
    return {heading, text, alignment};
}

RecordTableModel::Column money_column(const Recordset& records, std::string_view field,
                                      const QString& heading, std::string_view pattern) {
    const auto text = [column = records.column(field), pattern](const Recordset& rows,
                                                                std::size_t row) {
        return to_qt(format_number(as_number(rows.cell(row, column)), pattern));
    };
    return {heading, text};
}

std::vector<RecordTableModel::Column> life_columns(const Recordset& lifexp,
                                                   const QStringList& headings) {
    const auto sum = [age = lifexp.column("age"), multiple = lifexp.column("multiple")](
                         const Recordset& rows, std::size_t row) {
        return to_qt(number_text(as_number(rows.cell(row, age)) + as_number(rows.cell(row, multiple))));
    };
    return {field_column(lifexp, "age", headings[0]),
            field_column(lifexp, "multiple", headings[1]),
            {headings[2], sum}};
}

}  // namespace kelvar
