// The card with the values that sum up a result. One stop of the Tab key, however many there are: Up
// and Down mark one value after the other, Ctrl+C copies the marked one.
#pragma once

#include <QFrame>
#include <vector>

class QLabel;

namespace kelvar {

class SummaryPanel : public QFrame {
    Q_OBJECT

public:
    SummaryPanel();

    // Makes a value on the card known, after those above it. Empty ones are passed over.
    void add(QLabel* caption, QLabel* value);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Value {
        QLabel* caption;
        QLabel* value;
    };

    // Marks the first value with a text from this place on, in steps of 1 or -1, if there is one.
    void mark(int from, int step);
    void unmark();

    std::vector<Value> values_;
    int marked_ = 0;
};

}  // namespace kelvar
