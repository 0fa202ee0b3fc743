#include "input/limit_line.h"

#include <QLabel>
#include <QLineEdit>

#include "widgets/controls.h"
#include "widgets/focus_marker.h"
#include "widgets/theme.h"

namespace kelvar {

QLabel* limit_line(const char* name) {
    QLabel* line = control::paragraph({}, name);
    line->ensurePolished();
    line->setMinimumHeight(line->fontMetrics().height());
    return line;
}

void show_limit(QLabel* line, const QString& limit, std::initializer_list<QWidget*> controls) {
    line->setText(limit);
    for (QWidget* control : controls) {
        control->setAccessibleDescription(limit);
        keep_in_view_with(control, line);
    }
}

void stand_out(QLabel* line, const QLineEdit* entry) {
    theme::set_role(line, theme::Role::value);
    QObject::connect(
        entry, &QLineEdit::textChanged, line, [line] { theme::set_role(line, theme::Role::note); },
        Qt::SingleShotConnection);
}

}  // namespace kelvar
