#include "widgets/scrolled_page.h"

#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QScrollBar>
#include <algorithm>

#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

ScrolledPage::ScrolledPage() {
    setObjectName(u"content"_s);
}

bool ScrolledPage::event(QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) {
        setMinimumHeight(std::max(0, layout()->minimumHeightForWidth(width())));
    }
    return QWidget::event(event);
}

// The bar stands in the margin of the page, so that nothing jumps when it comes; beside running text,
// which always has it or never, that is the place of the sign. It gets its room later, because the
// range can change more than once while the view lays itself out.
ScrolledView::ScrolledView() {
    QScrollBar* bar = verticalScrollBar();
    bar->parentWidget()->raise();
    const auto share_margin = [this, bar] {
        const int in_margin = std::min(bar->sizeHint().width(), theme::side_margin() - theme::grid / 2);
        const bool shared = bar->maximum() > 0 && more_below_ == nullptr;
        setViewportMargins(0, 0, shared ? -in_margin : 0, 0);
    };
    connect(bar, &QScrollBar::rangeChanged, this, share_margin, Qt::QueuedConnection);
}

void ScrolledView::say_when_more_is_below() {
    if (more_below_ != nullptr) {
        return;
    }
    more_below_ = new QLabel(this);
    more_below_->setObjectName(u"lblmorebelow"_s);
    more_below_->setPixmap(theme::picture(u"down"_s, 2 * theme::grid));
    more_below_->setAccessibleName(u"More below"_s);
    more_below_->setAttribute(Qt::WA_TransparentForMouseEvents);
    more_below_->setAlignment(Qt::AlignCenter);
    more_below_->setFixedSize(5 * theme::grid / 2, 5 * theme::grid / 2);
    more_below_->hide();
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { show_more_below(); });
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { show_more_below(); });
}

void ScrolledView::show_more_below() {
    more_below_->move(viewport()->width() - more_below_->width() - 2,  // in the margin, if there is one
                      viewport()->height() - more_below_->height() - 2);
    more_below_->setVisible(verticalScrollBar()->value() < verticalScrollBar()->maximum());
}

}  // namespace kelvar
