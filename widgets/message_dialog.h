// The message screens: frmmsg with OK, frmmsg1 with YES and NO. Modal, Escape is OK or NO.
#pragma once

#include <QDialog>
#include <QElapsedTimer>

namespace kelvar {

class MessageDialog : public QDialog {
    Q_OBJECT

public:
    enum class Kind { message, question };
    static constexpr int said_no = 2;  // a result of exec; Escape is QDialog::Rejected

    MessageDialog(Kind kind, const QString& text, QWidget* parent);
    ~MessageDialog() override;

protected:
    // Who types on while the message comes up has not read it: for half a second no key answers it, nor
    // any character typed in one go with those before.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QElapsedTimer unread_;
};

}  // namespace kelvar
