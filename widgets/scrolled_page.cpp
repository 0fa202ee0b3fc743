#include "widgets/scrolled_page.h"

#include <QEvent>
#include <QLayout>

using namespace Qt::StringLiterals;

namespace kelvar {

ScrolledPage::ScrolledPage() {
    setObjectName(u"content"_s);
}

bool ScrolledPage::event(QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) {
        setMinimumHeight(layout()->minimumHeightForWidth(width()));
    }
    return QWidget::event(event);
}

}  // namespace kelvar
