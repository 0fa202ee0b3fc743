#pragma once

#include <QRadioButton>
#include <QWidget>

namespace kelvar {

// Two options side by side that choose how something is shown; at first the first one. Tab stops at the
// chosen one, the arrow keys choose.
class ViewChoice : public QWidget {
    Q_OBJECT

public:
    // The options are named `name`_0 and `name`_1.
    ViewChoice(const char* name, const QString& first, const QString& second);

    bool is_second() const { return second_->isChecked(); }

signals:
    void changed();

private:
    QRadioButton* second_ = nullptr;
};

}  // namespace kelvar
