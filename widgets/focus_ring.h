#pragma once

#include <QWidget>

namespace kelvar {

// A thick line around the control that has the focus, for eyes that do not see the style's thin one and
// to tell the focus from the default button.
class FocusRing : public QWidget {
    Q_OBJECT

public:
    explicit FocusRing(QWidget* control);

    const QWidget* control() const { return control_; }
    // Follows the control when it is moved or resized.
    void surround();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QWidget* control_;
};

}  // namespace kelvar
