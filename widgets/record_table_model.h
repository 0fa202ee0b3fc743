// Shows rows of a record set in a table view, formatted as they are painted. Nothing is copied.
#pragma once

#include <QStringList>
#include <functional>
#include <vector>

#include "core/records.h"
#include "widgets/table_model.h"

namespace kelvar {

class RecordTableModel : public TableModel {
    Q_OBJECT

public:
    struct Column {
        QString heading;
        // Text of the column in a row of the record set.
        std::function<QString(const Recordset&, std::size_t row)> text;
        Qt::Alignment alignment = Qt::AlignRight;
        // The same for other programs; none: the text.
        std::function<QString(const Recordset&, std::size_t row)> plain{};
    };
    // How a row stands out against the one above it.
    struct RowMarks {
        bool new_group = false;  // a fine line parts them
        bool changed = false;    // the marked column has another value
    };

    RecordTableModel(const Recordset& records, std::vector<Column> columns, QObject* parent);

    void set_columns(std::vector<Column> columns);
    // Shows the rows from `first` up to, not including, `end`. Call again after the record set changed.
    void show_rows(std::size_t first, std::size_t end);
    // Asked for each row of the record set that is painted, but not for the first one shown.
    void set_marks(int marked_column, std::function<RowMarks(const Recordset&, std::size_t row)> marks);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

protected:
    Heading heading(int column) const override;
    QString text(int row, int column) const override;
    QString plain(int row, int column) const override;
    bool begins_group(int row) const override;
    bool changed(int row, int column) const override;

private:
    std::size_t record(int row) const { return first_ + static_cast<std::size_t>(row); }
    RowMarks marks_of(int row) const;

    const Recordset& records_;
    std::vector<Column> columns_;
    std::size_t first_ = 0;
    std::size_t end_ = 0;
    int marked_column_ = 0;
    std::function<RowMarks(const Recordset&, std::size_t row)> marks_;
};

// The first row whose field is this number, or the number of rows. The current row stays.
std::size_t row_with(const Recordset& records, std::string_view field, double number);

// A column that shows a field as it is stored. The field is looked up once; throws DatabaseError when
// there is none.
RecordTableModel::Column field_column(const Recordset& records, std::string_view field,
                                      const QString& heading, Qt::Alignment alignment = Qt::AlignRight);
// The same for an amount, in a pattern such as `pattern::dollars`, which is not copied; plain in
// `pattern::plain_amount`.
RecordTableModel::Column money_column(const Recordset& records, std::string_view field,
                                      const QString& heading, std::string_view pattern);

// Columns of the life expectancy table: age, divisor and their sum, without binary noise.
std::vector<RecordTableModel::Column> life_columns(const Recordset& lifexp,
                                                   const QStringList& headings);

}  // namespace kelvar
