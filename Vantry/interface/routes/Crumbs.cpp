#include "Vantry/interface/routes/Crumbs.h"

#include "VantryCore/records/Library.h"

namespace vantry {

std::vector<Crumb> crumbs(const Library& library, const Route& route, bool english) {
    const auto projectID = route.projectID();
    const Project* project = projectID ? findRecord(library.projects, *projectID) : nullptr;
    if (project == nullptr)
        return {};
    std::vector<Crumb> trail{{english ? "Library" : "资料库", Route::library()},
                             {project->title, Route::project(*projectID)}};
    const auto actID = route.actID();
    const Act* act = actID ? findRecord(project->acts, *actID) : nullptr;
    if (act == nullptr)
        return trail;
    trail.push_back({act->title, Route::act(*projectID, *actID)});
    const auto shotID = route.shotID();
    if (const Shot* shot = shotID ? findRecord(act->shots, *shotID) : nullptr)
        trail.push_back(
            {Text(shot->code.utf8() + " " + shot->title.utf8()), Route::shot(*projectID, *actID, *shotID)});
    return trail;
}

}  // namespace vantry
