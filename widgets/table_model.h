// Base of the tables of the screens: headings, alignment, and each cell as a view, a screen reader and
// another program get it.
#pragma once

#include <QAbstractTableModel>

namespace kelvar {

// What the tables of the screens tell of their cells beyond what every view asks for.
enum TableRole {
    plain_role = Qt::UserRole + 1,  // the text for other programs, as "734.30" for "$734.30"
    brief_role,                     // the text where there is no room for the whole one
    new_group_role,                 // true in rows that a fine line parts from the row above
    changed_role,                   // true in cells whose change against the row above is pointed out
    supposed_role,                  // true in rows of what only could be, which are in italics
};

class TableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

protected:
    struct Heading {
        QString text;
        Qt::Alignment alignment;  // of the cells too
    };

    virtual Heading heading(int column) const = 0;
    virtual QString text(int row, int column) const = 0;
    virtual QString plain(int row, int column) const = 0;
    virtual QString brief(int row, int column) const { return text(row, column); }
    virtual bool begins_group(int /*row*/) const { return false; }
    virtual bool changed(int /*row*/, int /*column*/) const { return false; }
    virtual bool supposed(int /*row*/) const { return false; }
};

}  // namespace kelvar
