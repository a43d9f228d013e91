#include "Vantry/interface/design/Page.h"

#include "Vantry/interface/design/Accessibility.h"

namespace vantry {

Page::Page(QWidget* parent)
    : QWidget(parent) {
    installAccessibility();
}

}  // namespace vantry
