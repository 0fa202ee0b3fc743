#include "input/frequency_boxes.h"

#include <QCheckBox>
#include <QHBoxLayout>

#include "input/rules/frequency.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

FrequencyBoxes::FrequencyBoxes(const QString& name, const QString& of) {
    const QString captions[] = {u"Monthl&y"_s, u"&Quarterly"_s, u"Se&mi-Annually"_s, u"Ann&ually"_s};
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(theme::side_margin(), 0, 0, 0);
    row->setSpacing(2 * theme::grid);
    for (std::size_t index = 0; index < boxes_.size(); ++index) {
        auto* box = new QCheckBox(captions[index]);
        box->setObjectName(u"%1_%2"_s.arg(name).arg(index));
        box->setAccessibleDescription(of);
        row->addWidget(box);
        boxes_[index] = box;
        connect(box, &QCheckBox::clicked, this, [this, box] {
            for (QCheckBox* other : boxes_) {
                other->setChecked(other == box && box->isChecked());
            }
            emit changed();
        });
    }
    row->addStretch(1);
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
