#pragma once

#include <QWidget>
#include <array>
#include <cstdint>

class QCheckBox;

namespace kelvar {

// The four boxes Monthly, Quarterly, Semi-Annually, Annually, of which at most one stays ticked.
class FrequencyBoxes : public QWidget {
    Q_OBJECT

public:
    // The boxes are named `name`_0 to `name`_3. A screen reader says what they are `of`.
    FrequencyBoxes(const QString& name, const QString& of);

    std::int16_t frequency() const;  // payments per year; 0 while none is ticked
    void choose(int frequency);      // nothing for a number of payments that no box has

signals:
    void changed();

private:
    std::array<QCheckBox*, 4> boxes_{};
};

}  // namespace kelvar
