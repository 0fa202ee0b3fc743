// Shows rows of texts that were made beforehand in a table view: a year, a rate.
#pragma once

#include <vector>

#include "widgets/table_model.h"

namespace kelvar {

class TextTableModel : public TableModel {
    Q_OBJECT

public:
    struct Column {
        QString heading;
        Qt::Alignment alignment = Qt::AlignRight;
    };
    struct Cell {
        QString text;
        QString plain{};        // for other programs, as "734.30" for "$734.30"; empty: the text
        QString brief{};        // where there is no room for the text, as "$734"; empty: the text
        bool supposed = false;  // of the first one: the row is of what only could be
    };

    TextTableModel(std::vector<Column> columns, QObject* parent);

    // Takes the place of the rows before. Each row has a cell for every column.
    void show_rows(std::vector<std::vector<Cell>> rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;

protected:
    Heading heading(int column) const override;
    QString text(int row, int column) const override;
    QString plain(int row, int column) const override;
    QString brief(int row, int column) const override;
    bool supposed(int row) const override { return cell(row, 0).supposed; }

private:
    const Cell& cell(int row, int column) const;

    std::vector<Column> columns_;
    std::vector<std::vector<Cell>> rows_;
};

}  // namespace kelvar
