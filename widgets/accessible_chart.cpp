#include "widgets/accessible.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <map>

#include "widgets/chart.h"

namespace kelvar {

namespace {

class AccessiblePlace : public QAccessibleInterface {
public:
    AccessiblePlace(Chart* chart, int place) : chart_(chart), place_(place) {}

    bool isValid() const override { return chart_ != nullptr && place_ < chart_->places(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return chart_->window()->windowHandle(); }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(chart_);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text text) const override {
        switch (text) {
            case QAccessible::Name:
                return chart_->sentence(place_);
            case QAccessible::Description:
                return chart_->detail(place_);
            default:
                return {};
        }
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override { return parent()->rect(); }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override {
        QAccessible::State state = parent()->state();
        state.selectable = true;
        state.selected = place_ == chart_->selected();
        state.focused = state.focused && state.selected;
        return state;
    }

private:
    QPointer<Chart> chart_;
    int place_;
};

class AccessibleChart : public QAccessibleWidget {
public:
    explicit AccessibleChart(Chart* chart) : QAccessibleWidget(chart, QAccessible::Chart) {}
    AccessibleChart(const AccessibleChart&) = delete;
    AccessibleChart& operator=(const AccessibleChart&) = delete;
    ~AccessibleChart() override {
        for (const auto& [place, id] : places_) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    int childCount() const override { return chart()->places(); }
    QAccessibleInterface* child(int place) const override {
        if (place < 0 || place >= childCount()) {
            return nullptr;
        }
        auto known = places_.find(place);
        if (known == places_.end()) {
            auto* made = new AccessiblePlace(chart(), place);
            known = places_.emplace(place, QAccessible::registerAccessibleInterface(made)).first;
        }
        return QAccessible::accessibleInterface(known->second);
    }
    int indexOfChild(const QAccessibleInterface* sought) const override {
        for (const auto& [place, id] : places_) {
            if (QAccessible::accessibleInterface(id) == sought) {
                return place;
            }
        }
        return -1;
    }
    QAccessibleInterface* focusChild() const override {
        return chart()->hasFocus() ? child(chart()->selected()) : nullptr;
    }

private:
    Chart* chart() const { return static_cast<Chart*>(widget()); }

    mutable std::map<int, QAccessible::Id> places_;  // made when first asked for
};

QAccessibleInterface* make(const QString&, QObject* object) {
    auto* chart = qobject_cast<Chart*>(object);
    return chart == nullptr ? nullptr : new AccessibleChart(chart);
}

}  // namespace

void make_charts_accessible() {
    QAccessible::installFactory(make);
}

}  // namespace kelvar
