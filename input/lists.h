// Controls and list entries that several input screens share.
#pragma once

#include <QStringList>
#include <vector>

class QComboBox;
class QLineEdit;

namespace kelvar {

QStringList month_entries(const std::vector<int>& months);  // "January", ...
QStringList year_entries(const std::vector<int>& years);    // "2020", ...

namespace control {

QComboBox* list(const char* name, const QString& accessible_name);
// A text box for an amount, wide enough for the largest accepted one.
QLineEdit* money_box(const char* name, const QString& accessible_name);

}  // namespace control

}  // namespace kelvar
