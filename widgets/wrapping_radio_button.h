// An option button whose caption wraps to the width it is given.
#pragma once

#include <QRadioButton>
#include <QStyleOptionButton>

namespace kelvar {

class WrappingRadioButton : public QRadioButton {
    Q_OBJECT

public:
    WrappingRadioButton(const QString& text, const QString& name);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

private:
    QStyleOptionButton first_line() const;
    int text_left() const;
    QRect text_rect(int width) const;
};

}  // namespace kelvar
