#include "Vantry/schedule/rules/Locations.h"

namespace vantry {

std::vector<ShotLocation> locations(const Library& library) {
    std::vector<ShotLocation> list;
    for (const auto& project : library.projects)
        for (const auto& act : project->acts)
            for (const auto& shot : act->shots)
                list.push_back({project.handle(), act.handle(), shot.handle()});
    return list;
}

std::vector<CallSheetLocation> callSheetLocations(const Library& library) {
    std::vector<CallSheetLocation> list;
    for (const auto& project : library.projects) {
        const auto holder = project.handle();
        for (const auto& sheet : holder->callSheets())
            list.push_back({holder, &sheet});
    }
    return list;
}

}  // namespace vantry
