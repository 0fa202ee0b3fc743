#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace kelvar {

// A box below an option, with the sign that belongs before it, if any, and the limit of what may be
// typed under it.
class LimitedBox : public QWidget {
    Q_OBJECT

public:
    LimitedBox(const QString& sign, QLineEdit* box, const char* limit_name);

    void show_limit(const QString& limit);
    void stand_out();  // the limit, until the entry changes

private:
    QLineEdit* box_ = nullptr;
    QLabel* limit_ = nullptr;
};

}  // namespace kelvar
