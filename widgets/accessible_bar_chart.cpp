#include "widgets/accessible_bar_chart.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <map>

#include "widgets/bar_chart.h"

namespace kelvar {

namespace {

class AccessibleBar : public QAccessibleInterface {
public:
    AccessibleBar(BarChart* chart, int place) : chart_(chart), place_(place) {}

    bool isValid() const override { return chart_ != nullptr && place_ < chart_->bars(); }
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
        return text == QAccessible::Name ? chart_->sentence(place_) : QString();
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
    QPointer<BarChart> chart_;
    int place_;
};

class AccessibleBarChart : public QAccessibleWidget {
public:
    explicit AccessibleBarChart(BarChart* chart) : QAccessibleWidget(chart, QAccessible::Chart) {}
    AccessibleBarChart(const AccessibleBarChart&) = delete;
    AccessibleBarChart& operator=(const AccessibleBarChart&) = delete;
    ~AccessibleBarChart() override {
        for (const auto& [place, id] : bars_) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    int childCount() const override { return chart()->bars(); }
    QAccessibleInterface* child(int place) const override {
        if (place < 0 || place >= childCount()) {
            return nullptr;
        }
        auto known = bars_.find(place);
        if (known == bars_.end()) {
            auto* bar = new AccessibleBar(chart(), place);
            known = bars_.emplace(place, QAccessible::registerAccessibleInterface(bar)).first;
        }
        return QAccessible::accessibleInterface(known->second);
    }
    int indexOfChild(const QAccessibleInterface* bar) const override {
        for (const auto& [place, id] : bars_) {
            if (QAccessible::accessibleInterface(id) == bar) {
                return place;
            }
        }
        return -1;
    }
    QAccessibleInterface* focusChild() const override {
        return chart()->hasFocus() ? child(chart()->selected()) : nullptr;
    }

private:
    BarChart* chart() const { return static_cast<BarChart*>(widget()); }

    mutable std::map<int, QAccessible::Id> bars_;  // made when first asked for
};

QAccessibleInterface* make(const QString&, QObject* object) {
    auto* chart = qobject_cast<BarChart*>(object);
    return chart == nullptr ? nullptr : new AccessibleBarChart(chart);
}

}  // namespace

void make_bar_charts_accessible() {
    QAccessible::installFactory(make);
}

}  // namespace kelvar
