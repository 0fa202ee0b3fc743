// Years that payments last, by yearly withdrawal (rows, yellow) and annual return (columns, red). The
// cells where both meet are blue.
#pragma once

#include <QAbstractTableModel>

namespace kelvar {

class DurationTable : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& cell, int role = Qt::DisplayRole) const override;

    // "10% a year at 6% lasts 15 years"; empty for the cells with the rates themselves.
    QString sentence(const QModelIndex& cell) const;
};

}  // namespace kelvar
