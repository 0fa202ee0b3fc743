// What a table shows, as text for other programs: its headings in one line, then its rows.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class QAbstractItemModel;

namespace kelvar {

// These rows, in this order, as they are shown; each line ends with a line feed.
QString tab_separated(const QAbstractItemModel& model, const QList<int>& rows);
QString html_table(const QAbstractItemModel& model, const QList<int>& rows);

// All rows with `plain_role` as comma-separated values after RFC 4180, in UTF-8 without a byte order
// mark.
QByteArray csv(const QAbstractItemModel& model);

}  // namespace kelvar
