#include "widgets/record_table_model.h"

#include <algorithm>

#include "core/numbers.h"
#include "widgets/text.h"

namespace kelvar {

RecordTableModel::RecordTableModel(const Recordset& records, std::vector<Column> columns,
                                   QObject* parent)
    : TableModel(parent), records_(records), columns_(std::move(columns)) {}

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

void RecordTableModel::set_marks(int marked_column,
                                 std::function<RowMarks(const Recordset&, std::size_t row)> marks) {
    marked_column_ = marked_column;
    marks_ = std::move(marks);
}

int RecordTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(end_ - first_);
}

int RecordTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RecordTableModel::data(const QModelIndex& index, int role) const {
    const bool refilling = record(index.row()) >= records_.RecordCount();
    return refilling ? QVariant() : TableModel::data(index, role);
}

TableModel::Heading RecordTableModel::heading(int column) const {
    const Column& shown = columns_[static_cast<std::size_t>(column)];
    return {shown.heading, shown.alignment};
}

QString RecordTableModel::text(int row, int column) const {
    return columns_[static_cast<std::size_t>(column)].text(records_, record(row));
}

QString RecordTableModel::plain(int row, int column) const {
    const Column& shown = columns_[static_cast<std::size_t>(column)];
    return (shown.plain ? shown.plain : shown.text)(records_, record(row));
}

RecordTableModel::RowMarks RecordTableModel::marks_of(int row) const {
    return row > 0 && marks_ ? marks_(records_, record(row)) : RowMarks();
}

bool RecordTableModel::begins_group(int row) const {
    return marks_of(row).new_group;
}

bool RecordTableModel::changed(int row, int column) const {
    return column == marked_column_ && marks_of(row).changed;
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
    const auto in = [column = records.column(field)](std::string_view shape) {
        return [column, shape](const Recordset& rows, std::size_t row) {
            return to_qt(format_number(as_number(rows.cell(row, column)), shape));
        };
    };
    return {heading, in(pattern), Qt::AlignRight, in(pattern::plain_amount)};
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
