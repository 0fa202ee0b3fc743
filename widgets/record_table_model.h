// Shows rows of a record set in a table view, formatted as they are painted. Nothing is copied.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <functional>
#include <vector>

#include "core/records.h"

namespace kelvar {

class RecordTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    struct Column {
        QString heading;
        // Text of the column in a row of the record set.
        std::function<QString(const Recordset&, std::size_t row)> text;
        Qt::Alignment alignment = Qt::AlignRight;
    };

    RecordTableModel(const Recordset& records, std::vector<Column> columns, QObject* parent);

    void set_columns(std::vector<Column> columns);
    // Shows the rows from `first` up to, not including, `end`. Call again after the record set changed.
    void show_rows(std::size_t first, std::size_t end);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    const Recordset& records_;
    std::vector<Column> columns_;
    std::size_t first_ = 0;
    std::size_t end_ = 0;
};

// The first row whose field is this number, or the number of rows. The current row stays.
std::size_t row_with(const Recordset& records, std::string_view field, double number);

// A column that shows a field as it is stored. The field is looked up once; throws DatabaseError when
// there is none.
RecordTableModel::Column field_column(const Recordset& records, std::string_view field,
                                      const QString& heading, Qt::Alignment alignment = Qt::AlignRight);
// The same for an amount, in a pattern such as `pattern::dollars`, which is not copied.
RecordTableModel::Column money_column(const Recordset& records, std::string_view field,
                                      const QString& heading, std::string_view pattern);

// Columns of the life expectancy table: age, divisor and their sum, without binary noise.
std::vector<RecordTableModel::Column> life_columns(const Recordset& lifexp,
                                                   const QStringList& headings);

}  // namespace kelvar
