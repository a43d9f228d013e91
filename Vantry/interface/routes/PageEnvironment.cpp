#include "Vantry/interface/routes/PageEnvironment.h"

#include <utility>

namespace vantry {

PageEnvironment::PageEnvironment(QWidget& page, std::shared_ptr<PageMemory> memory, const Route& route)
    : QObject(&page)
    , shared(std::move(memory))
    , place(route) {}

const PageEnvironment* PageEnvironment::of(const QWidget& part) {
    for (const QWidget* widget = &part; widget != nullptr; widget = widget->parentWidget()) {
        if (const auto* found = widget->findChild<PageEnvironment*>(QString(), Qt::FindDirectChildrenOnly))
            return found;
        if (widget->isWindow())
            return nullptr;
    }
    return nullptr;
}

}  // namespace vantry
