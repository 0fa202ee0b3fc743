#pragma once

#include <QGroupBox>

namespace kelvar {

// A group box whose caption begins at the left edge of its contents. Under a style sheet the toolkit
// centres the caption in a room that counts the sign of its shortcut, so that it begins anywhere.
class CaptionedFrame : public QGroupBox {
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace kelvar
