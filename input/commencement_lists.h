#pragma once

#include <QWidget>

#include "core/module1.h"

class QComboBox;
class QLabel;

namespace kelvar {

struct Entries;

// Month and year in which the payments after an amount certain commence. Until the user has chosen one
// of them, they follow the first payment; what the user chose comes back as soon as it is offered
// again.
class CommencementLists : public QWidget {
    Q_OBJECT

public:
    explicit CommencementLists(Module1& module);

    // Offers what may be chosen today.
    void get_year();
    // Stores what is chosen, 0 where nothing can be, while the method has a commencement.
    void take();

    // Chooses month and year of entries; false where they do not say them, or the lists do not offer
    // them.
    bool choose(const Entries& entries);
    void put_into(Entries& entries) const;
    // Why the lists do not show what was chosen; empty when they do.
    QString changed() const;

signals:
    void taken();

private:
    void build();
    void get_month2();
    void show_changed();
    void month_typed(const QString& letter);
    bool eventFilter(QObject* watched, QEvent* event) override;

    Module1& module;
    Scenario& scenario;
    QComboBox* cmbscnmonth = nullptr;
    QComboBox* cmbscnyear = nullptr;
    QLabel* lblchanged = nullptr;
    // What the user last chose, also while the lists do not offer it; empty while nothing was.
    QString wished_month_;
    QString wished_year_;
    QString typed_;  // the letters of a month so far
};

}  // namespace kelvar
