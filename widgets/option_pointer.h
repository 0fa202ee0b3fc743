// Lets a click on what is disabled until its option is chosen point at that option.
#pragma once

#include <QWidget>
#include <utility>
#include <vector>

class QAbstractButton;

namespace kelvar {

class OptionPointer {
public:
    // Choosing the option enables the widget and whatever is in it.
    void add(QAbstractButton* option, QWidget* widget) { options_.emplace_back(widget, option); }

    // Looks at an event of the application; true when it was a click that has put the focus on an
    // option. What is chosen stays chosen.
    bool takes(const QWidget* clicked, const QEvent& event);

private:
    std::vector<std::pair<QWidget*, QAbstractButton*>> options_;
};

}  // namespace kelvar
