#pragma once

#include <QWidget>

namespace kelvar {

// A thick line around the control that has the focus, which also tells it from the default button. The
// style's own thin one is hard to see, and around buttons it draws none.
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
