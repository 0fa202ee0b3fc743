// Quiet lines that name, beside a control, the limit that Next will apply to it.
#pragma once

#include <QWidget>
#include <initializer_list>

class QAbstractButton;
class QLabel;
class QLineEdit;

namespace kelvar {

// Distance from a box to its line, in pixels: its focus ring leaves a gap.
inline constexpr int below_box = 6;

// A line of a note's look. Its room stays while nothing is known, so that nothing moves when it is.
QLabel* limit_line(const char* name);

// Shows the limit of some controls, which a screen reader reads with each of them.
void show_limit(QLabel* line, const QString& limit, std::initializer_list<QWidget*> controls);

// After a refusal by its limit a line stands out until the entry changes, or another option is chosen
// than the one the entry belongs to, if any.
void stand_out(QLabel* line, const QLineEdit* entry, const QAbstractButton* option = nullptr);

// A box below an option, with the sign that belongs before it, if any, and the limit of what may be
// typed under it.
class LimitedBox : public QWidget {
    Q_OBJECT

public:
    LimitedBox(const QString& sign, QLineEdit* box, const char* limit_name);

    void show_limit(const QString& limit);
    void stand_out(const QAbstractButton* option);  // the limit, see above

private:
    QLineEdit* box_ = nullptr;
    QLabel* limit_ = nullptr;
};

}  // namespace kelvar
