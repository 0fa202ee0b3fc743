#include "input/limit_line.h"

#include <QLabel>

#include "widgets/controls.h"

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
    }
}

}  // namespace kelvar
