// What rising prices make of a result: a list of how much they rise, and a sentence.
#pragma once

#include <QObject>

#include "engine/projection.h"

class QComboBox;
class QLabel;
class QWidget;

namespace kelvar {

class PriceLine : public QObject {
    Q_OBJECT

public:
    explicit PriceLine(QObject* parent);

    QWidget* list() const { return list_; }
    QLabel* sentence() const { return lblprices; }  // hidden while it says nothing

    // Of this result the sentence speaks from now on; of none without payments.
    void show_result(const Scenario& scenario, const Projection& projection);

private:
    void say();

    Scenario scenario_;
    Projection projection_;
    QWidget* list_ = nullptr;
    QComboBox* cmbprices = nullptr;
    QLabel* lblprices = nullptr;
};

}  // namespace kelvar
