#pragma once

#include <memory>

#include <QObject>
#include <QWidget>

#include "Vantry/interface/routes/PageMemory.h"
#include "Vantry/interface/routes/Route.h"

namespace vantry {

/// What the window tells all parts of a page: the memory, and the place that the page shows. Parts find it
/// through the widgets that hold them; a window of its own, such as a sheet, has none.
class PageEnvironment final : public QObject {
    Q_OBJECT

public:
    /// Holds for `page` and everything in it, for the life of `page`.
    PageEnvironment(QWidget& page, std::shared_ptr<PageMemory> memory, const Route& route);

    /// The environment of `part`, or null.
    [[nodiscard]] static const PageEnvironment* of(const QWidget& part);

    [[nodiscard]] PageMemory& memory() const noexcept { return *shared; }
    [[nodiscard]] const std::shared_ptr<PageMemory>& sharedMemory() const noexcept { return shared; }
    [[nodiscard]] const Route& route() const noexcept { return place; }

private:
    const std::shared_ptr<PageMemory> shared;
    const Route place;
};

}  // namespace vantry
