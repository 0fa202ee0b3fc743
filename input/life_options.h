#pragma once

#include <QWidget>
#include <array>

class QAbstractButton;
class QBoxLayout;
class QGroupBox;
class QLabel;
class QRadioButton;

namespace kelvar {

class MaskedDateEdit;

// The choice between the participant's own and joint life expectancy, with the spouse's date of birth,
// which is there only while joint life is chosen.
class LifeOptions : public QWidget {
    Q_OBJECT

public:
    LifeOptions();

    QRadioButton* single() const { return oplifeexp[0]; }
    QRadioButton* joint() const { return oplifeexp[1]; }
    MaskedDateEdit* spouse_birth() const { return mskbenebirth; }

    // Says what payments over the participant's own life are based on.
    void name_single(bool minimum_distribution);
    void set_options_enabled(bool enabled);
    void show_spouse(bool shown);
    // Says how many payments the chosen one gives, and what a spouse's date of birth must be like.
    void show_limits(const QString& payments, const QString& births);
    // The latter stands out until another date is entered, or the `option` for all this is given up.
    void births_stand_out(const QAbstractButton* option);

signals:
    // The user has chosen one of the two.
    void chosen();

private:
    void build_spouse(QBoxLayout* column);

    std::array<QRadioButton*, 2> oplifeexp{};
    QLabel* lbllifelimit = nullptr;
    QLabel* lblspouselimit = nullptr;
    QGroupBox* frame3 = nullptr;
    MaskedDateEdit* mskbenebirth = nullptr;
};

}  // namespace kelvar
