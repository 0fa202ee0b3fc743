// The message screens: frmmsg with OK, frmmsg1 with YES and NO. Modal, Escape is OK or NO.
#pragma once

#include <QDialog>

namespace kelvar {

class MessageDialog : public QDialog {
    Q_OBJECT

public:
    enum class Kind { message, question };

    MessageDialog(Kind kind, const QString& text, QWidget* parent);
};

}  // namespace kelvar
