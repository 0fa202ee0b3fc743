#include "widgets/text_table_model.h"

namespace kelvar {

TextTableModel::TextTableModel(std::vector<Column> columns, QObject* parent)
    : TableModel(parent), columns_(std::move(columns)) {}

void TextTableModel::show_rows(std::vector<std::vector<Cell>> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int TextTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int TextTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

TableModel::Heading TextTableModel::heading(int column) const {
    const Column& shown = columns_[static_cast<std::size_t>(column)];
    return {shown.heading, shown.alignment};
}

const TextTableModel::Cell& TextTableModel::cell(int row, int column) const {
    return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

QString TextTableModel::text(int row, int column) const {
    return cell(row, column).text;
}

QString TextTableModel::plain(int row, int column) const {
    const Cell& shown = cell(row, column);
    return shown.plain.isEmpty() ? shown.text : shown.plain;
}

QString TextTableModel::brief(int row, int column) const {
    const Cell& shown = cell(row, column);
    return shown.brief.isEmpty() ? shown.text : shown.brief;
}

}  // namespace kelvar
