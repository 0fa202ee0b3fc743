#include "widgets/accessible.h"

#include <QAccessibleWidget>
#include <QScrollArea>
#include <QScrollBar>

namespace kelvar {

namespace {

// The viewport, then the scroll bars that are shown.
class AccessibleScrollArea : public QAccessibleWidget {
public:
    explicit AccessibleScrollArea(QScrollArea* area) : QAccessibleWidget(area, QAccessible::Client) {}

    int childCount() const override { return static_cast<int>(parts().size()); }
    QAccessibleInterface* child(int index) const override {
        return QAccessible::queryAccessibleInterface(parts().value(index));
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child == nullptr ? -1 : static_cast<int>(parts().indexOf(child->object()));
    }

private:
    QList<QObject*> parts() const {
        const auto* area = static_cast<QScrollArea*>(widget());
        QList<QObject*> parts{area->viewport()};
        for (const QScrollBar* bar : {area->horizontalScrollBar(), area->verticalScrollBar()}) {
            if (bar->isVisible()) {
                parts << bar->parentWidget();
            }
        }
        return parts;
    }
};

QAccessibleInterface* make(const QString&, QObject* object) {
    auto* area = qobject_cast<QScrollArea*>(object);
    return area == nullptr ? nullptr : new AccessibleScrollArea(area);
}

}  // namespace

void make_scroll_areas_accessible() {
    QAccessible::installFactory(make);
}

}  // namespace kelvar
