#include "widgets/summary_panel.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>

#include "widgets/entry_boxes.h"

using namespace Qt::StringLiterals;

namespace kelvar {

SummaryPanel::SummaryPanel() {
    setObjectName(u"summary"_s);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleDescription(u"Up and Down go from value to value, Ctrl+C copies"_s);
    unmark();
}

void SummaryPanel::add(QLabel* caption, QLabel* value) {
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    caption->setBuddy(value);
    values_.push_back({caption, value});
}

void SummaryPanel::mark(int from, int step) {
    int place = from;
    const int end = static_cast<int>(values_.size());
    while (place >= 0 && place < end &&
           values_[static_cast<std::size_t>(place)].value->text().isEmpty()) {
        place += step;
    }
    if (place < 0 || place >= end) {
        return;
    }
    unmark();
    marked_ = place;
    const auto& [caption, value] = values_[static_cast<std::size_t>(place)];
    value->setSelection(0, static_cast<int>(value->text().size()));
    setAccessibleName(caption->text().trimmed() + u' ' + value->text());
    for (QWidget* around = parentWidget(); around != nullptr; around = around->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(around)) {
            area->ensureWidgetVisible(value);
        }
    }
}

void SummaryPanel::unmark() {
    for (const Value& value : values_) {
        value.value->setSelection(0, 0);
    }
    setAccessibleName(u"Summary"_s);
}

void SummaryPanel::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(values_[static_cast<std::size_t>(marked_)].value->text());
    } else if (event->key() == Qt::Key_Up) {
        mark(marked_ - 1, -1);
    } else if (event->key() == Qt::Key_Down) {
        mark(marked_ + 1, 1);
    } else {
        QFrame::keyPressEvent(event);
    }
}

void SummaryPanel::focusInEvent(QFocusEvent* event) {
    QFrame::focusInEvent(event);
    mark(selects_text(event->reason()) ? 0 : marked_, 1);
}

void SummaryPanel::focusOutEvent(QFocusEvent* event) {
    QFrame::focusOutEvent(event);
    unmark();
}

}  // namespace kelvar
