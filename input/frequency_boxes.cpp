#include "input/frequency_boxes.h"

#include <QCheckBox>
#include <QGridLayout>

#include "input/rules/frequency.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

FrequencyBoxes::FrequencyBoxes(const QString& name, const QString& of) {
    const QString captions[] = {u"Monthl&y"_s, u"&Quarterly"_s, u"Se&mi-Annually"_s, u"Ann&ually"_s};
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(2 * theme::grid);
    const std::size_t columns = theme::large_text() ? 2 : boxes_.size();
    grid->setColumnStretch(static_cast<int>(columns), 1);
    for (std::size_t index = 0; index < boxes_.size(); ++index) {
        auto* box = new QCheckBox(captions[index]);
        box->setObjectName(u"%1_%2"_s.arg(name).arg(index));
        box->setAccessibleDescription(of);
        grid->addWidget(box, static_cast<int>(index / columns), static_cast<int>(index % columns));
        boxes_[index] = box;
        connect(box, &QCheckBox::clicked, this, [this, box] {
            for (QCheckBox* other : boxes_) {
                other->setChecked(other == box && box->isChecked());
            }
            emit changed();
        });
    }
}

void FrequencyBoxes::choose(int frequency) {
    for (std::size_t index = 0; index < boxes_.size(); ++index) {
        if (frequency_of_box(static_cast<int>(index)) == frequency && !boxes_[index]->isChecked()) {
            boxes_[index]->click();
        }
    }
}

std::int16_t FrequencyBoxes::frequency() const {
    for (std::size_t index = 0; index < boxes_.size(); ++index) {
        if (boxes_[index]->isChecked()) {
            return frequency_of_box(static_cast<int>(index));
        }
    }
    return 0;
}

}  // namespace kelvar
