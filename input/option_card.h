#pragma once

#include <QFrame>

class QRadioButton;
class QVBoxLayout;

namespace kelvar {

// A card with an option, and below the text of the option what belongs to it.
class OptionCard : public QFrame {
    Q_OBJECT

public:
    explicit OptionCard(QRadioButton* option);

    void add(QWidget* belonging);

private:
    QVBoxLayout* below_ = nullptr;
};

}  // namespace kelvar
