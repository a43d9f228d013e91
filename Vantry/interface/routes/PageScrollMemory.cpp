#include "Vantry/interface/routes/PageScrollMemory.h"

#include <cmath>
#include <utility>

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QScrollBar>
#include <QShowEvent>

#include "Vantry/interface/routes/PageEnvironment.h"

namespace vantry {
namespace {

QAbstractScrollArea* enclosingScrollArea(const QWidget& part) {
    for (QWidget* widget = part.parentWidget(); widget != nullptr; widget = widget->parentWidget())
        if (auto* area = qobject_cast<QAbstractScrollArea*>(widget))
            return area;
    return nullptr;
}

/// Brings the page to its full height: what grows tells one level of its holders a turn.
void layOut(const QAbstractScrollArea& area) {
    constexpr int mostLevels = 12;
    int range = -1;
    for (int level = 0; level < mostLevels && range != area.verticalScrollBar()->maximum(); ++level) {
        range = area.verticalScrollBar()->maximum();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    }
}

}  // namespace

PageScrollMemory::PageScrollMemory(QWidget* content, std::optional<std::string> within)
    : QWidget(content)
    , scope(std::move(within)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    resize(0, 0);
    lower();
}

PageScrollMemory::State PageScrollMemory::state() const noexcept {
    if (!vertical)
        return State::detached;
    return restoring ? State::restoring : State::recording;
}

void PageScrollMemory::setScope(std::optional<std::string> within) {
    if (scope == within)
        return;
    detach();
    scope = std::move(within);
    if (isVisible())
        attachSoon();
}

void PageScrollMemory::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // A window that only was out of sight keeps its pages.
    if (!event->spontaneous())
        attachSoon();
}

void PageScrollMemory::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        detach();
}

void PageScrollMemory::attachSoon() {
    ++generation;
    QMetaObject::invokeMethod(
        this, [this, asked = generation] { attach(asked); }, Qt::QueuedConnection);
}

std::optional<ScrollOrigin> PageScrollMemory::savedOrigin(const PageMemory& memory,
                                                          const Route& route) const {
    if (!scope) {
        const auto found = memory.offsets.find(route);
        return found == memory.offsets.end() ? std::nullopt : std::optional(found->second);
    }
    const auto page = memory.scopedOffsets.find(route);
    if (page == memory.scopedOffsets.end())
        return std::nullopt;
    const auto found = page->second.find(*scope);
    return found == page->second.end() ? std::nullopt : std::optional(found->second);
}

void PageScrollMemory::attach(std::uint64_t asked) {
    const PageEnvironment* environment = PageEnvironment::of(*this);
    if (asked != generation || vertical || environment == nullptr ||
        environment->memory().active != environment->route())
        return;
    scroll = enclosingScrollArea(*this);
    if (scroll == nullptr || !isVisible())
        return;
    const Task task{generation, environment->sharedMemory(), environment->route()};
    const auto saved = savedOrigin(*task.memory, task.route);
    restoring = true;
    horizontal = connect(scroll->horizontalScrollBar(), &QScrollBar::valueChanged, this,
                         [this, task] { record(task); });
    vertical =
        connect(scroll->verticalScrollBar(), &QScrollBar::valueChanged, this, [this, task] { record(task); });
    QMetaObject::invokeMethod(
        this, [this, task, saved] { restore(task, saved); }, Qt::QueuedConnection);
}

void PageScrollMemory::restore(const Task& task, const std::optional<ScrollOrigin>& saved) {
    const auto isVoid = [&] {
        return task.generation != generation || task.memory->active != task.route || scroll == nullptr ||
               !isVisible();
    };
    if (isVoid())
        return;
    layOut(*scroll);
    // Laying out runs other code.
    if (isVoid())
        return;
    if (saved) {
        scroll->horizontalScrollBar()->setValue(static_cast<int>(std::lround(saved->x)));
        scroll->verticalScrollBar()->setValue(static_cast<int>(std::lround(saved->y)));
    }
    restoring = false;
}

void PageScrollMemory::record(const Task& task) const {
    if (task.generation != generation || restoring || !isVisible() || task.memory->active != task.route ||
        scroll == nullptr)
        return;
    const ScrollOrigin origin{static_cast<double>(scroll->horizontalScrollBar()->value()),
                              static_cast<double>(scroll->verticalScrollBar()->value())};
    if (scope)
        task.memory->scopedOffsets[task.route][*scope] = origin;
    else
        task.memory->offsets[task.route] = origin;
}

void PageScrollMemory::detach() {
    ++generation;
    disconnect(horizontal);
    disconnect(vertical);
    horizontal = {};
    vertical = {};
    scroll = nullptr;
    restoring = false;
}

}  // namespace vantry
