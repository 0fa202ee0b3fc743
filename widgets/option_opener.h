// Lets a click on what is still disabled choose the option that opens it, and then count.
#pragma once

#include <QWidget>
#include <functional>
#include <utility>
#include <vector>

class QAbstractButton;

namespace kelvar {

class OptionOpener {
public:
    // `told` says whether the user's last action has had a message; the click then goes no further than
    // to the option.
    explicit OptionOpener(std::function<bool()> told) : told_(std::move(told)) {}

    // Choosing the option enables the widget and whatever is in it.
    void add(QAbstractButton* option, QWidget* widget) { opened_by_.emplace_back(widget, option); }

    // Looks at an event of the application; true when it was a click that has chosen an option.
    bool takes(QWidget* clicked, const QEvent& event);

private:
    std::function<bool()> told_;
    std::vector<std::pair<QWidget*, QAbstractButton*>> opened_by_;
};

}  // namespace kelvar
