#include "Vantry/schedule/rules/CalendarAgendaItem.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "Vantry/schedule/rules/ShootSchedule.h"

namespace vantry {
namespace {

constexpr Moment distantPast{std::numeric_limits<double>::lowest()};

Moment beginningOf(const CalendarAgendaItem::Event& event) {
    if (const auto* shot = std::get_if<ShotLocation>(&event))
        return shot->shot->scheduledAt.value_or(distantPast);
    return std::get<CallSheetLocation>(event).sheet->calendarStart().value_or(distantPast);
}

}  // namespace

CalendarAgendaItem::CalendarAgendaItem(Event what)
    : held(std::move(what))
    , begin(beginningOf(held)) {}

const Identifier& CalendarAgendaItem::id() const {
    return std::visit([](const auto& location) -> const Identifier& { return location.id(); }, held);
}

std::vector<CalendarAgendaItem> CalendarAgendaItem::daily(const std::vector<ShotLocation>& shots,
                                                          const std::vector<CallSheetLocation>& callSheets,
                                                          Moment day, const Calendar& calendar) {
    std::vector<CalendarAgendaItem> items;
    if (const auto interval = calendar.day(day))
        for (const auto& location : shots)
            if (!location.shot->cancelled && ShootSchedule::occurs(*location.shot, *interval))
                items.emplace_back(location);
    for (const auto& location : callSheets) {
        CalendarAgendaItem item(location);
        if (calendar.isSameDay(item.start(), day))
            items.push_back(std::move(item));
    }
    std::vector<const CalendarAgendaItem*> order;
    order.reserve(items.size());
    for (const auto& item : items)
        order.push_back(&item);
    // The bytes of an identifier have the order of its text.
    std::sort(order.begin(), order.end(), [](const auto* a, const auto* b) {
        return a->begin < b->begin || (a->begin == b->begin && a->id() < b->id());
    });
    std::vector<CalendarAgendaItem> sorted;
    sorted.reserve(order.size());
    for (const auto* item : order)
        sorted.push_back(*item);
    return sorted;
}

}  // namespace vantry
