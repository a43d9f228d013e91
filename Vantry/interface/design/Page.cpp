#include "Vantry/interface/design/Page.h"

#include <QKeyEvent>

#include "Vantry/interface/design/Accessibility.h"
#include "Vantry/interface/design/PageColumn.h"

namespace vantry {

Page::Page(QWidget* parent)
    : QWidget(parent) {
    installAccessibility();
}

void Page::keyPressEvent(QKeyEvent* event) {
    for (PageColumn* body : findChildren<PageColumn*>())
        if (body->isVisible() && body->scrollBy(*event))
            return;
    QWidget::keyPressEvent(event);
}

}  // namespace vantry
