#include "widgets/accessible.h"

#include <QAccessibleWidget>
#include <QCheckBox>
#include <QRadioButton>
#include <QToolButton>

namespace kelvar {

namespace {

class AccessibleButton : public QAccessibleWidget {
public:
    AccessibleButton(QAbstractButton* button, QAccessible::Role role)
        : QAccessibleWidget(button, role) {}

    QString text(QAccessible::Text text) const override {
        switch (text) {
            case QAccessible::Name:
                return button()->accessibleName().isEmpty() ? button()->text().remove(u'&')
                                                            : button()->accessibleName();
            case QAccessible::Accelerator:
                return button()->shortcut().toString(QKeySequence::NativeText);
            default:
                return QAccessibleWidget::text(text);
        }
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = button()->isCheckable();
        state.checked = button()->isChecked();
        state.hasPopup = role() == QAccessible::ButtonMenu;
        return state;
    }
    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (button()->isEnabled()) {
            names.prepend(press());
        }
        return names;
    }
    void doAction(const QString& action) override {
        if (action != press()) {
            QAccessibleWidget::doAction(action);
        } else if (role() == QAccessible::ButtonMenu) {
            QMetaObject::invokeMethod(button(), "showMenu", Qt::QueuedConnection);
        } else {
            QMetaObject::invokeMethod(button(), &QAbstractButton::click, Qt::QueuedConnection);
        }
    }
    QStringList keyBindingsForAction(const QString& action) const override {
        const QString keys = text(QAccessible::Accelerator);
        return action == press() && !keys.isEmpty() ? QStringList{keys} : QStringList{};
    }

private:
    QAbstractButton* button() const { return static_cast<QAbstractButton*>(widget()); }
    const QString& press() const {
        return button()->isCheckable()             ? toggleAction()
               : role() == QAccessible::ButtonMenu ? showMenuAction()
                                                   : pressAction();
    }
};

QAccessibleInterface* make(const QString&, QObject* object) {
    if (auto* option = qobject_cast<QRadioButton*>(object)) {
        return new AccessibleButton(option, QAccessible::RadioButton);
    }
    if (auto* box = qobject_cast<QCheckBox*>(object)) {
        return new AccessibleButton(box, QAccessible::CheckBox);
    }
    if (auto* picture = qobject_cast<QToolButton*>(object)) {
        return new AccessibleButton(
            picture, picture->menu() == nullptr ? QAccessible::Button : QAccessible::ButtonMenu);
    }
    return nullptr;
}

}  // namespace

void make_buttons_accessible() {
    QAccessible::installFactory(make);
}

}  // namespace kelvar
