#include "Vantry/schedule/rules/LibraryOutlook.h"

#include <algorithm>

namespace vantry {

LibraryOutlook outlook(const Library& library, Moment now) {
    LibraryOutlook found;
    for (const auto& project : library.projects)
        for (const auto& act : project->acts)
            for (const auto& shot : act->shots) {
                if (shot->cancelled)
                    continue;
                ++found.planned;
                if (shot->complete())
                    ++found.completed;
                const auto end = shot->scheduledEnd();
                if (end && *end >= now)
                    found.upcoming.push_back({project.handle(), act.handle(), shot.handle()});
            }
    std::stable_sort(found.upcoming.begin(), found.upcoming.end(),
                     [](const ShotLocation& a, const ShotLocation& b) {
                         return *a.shot->scheduledAt < *b.shot->scheduledAt;
                     });
    return found;
}

ProjectCounts count(const Project& project) {
    ProjectCounts counts;
    for (const auto& act : project.acts)
        for (const auto& shot : act->shots) {
            ++counts.shots;
            counts.takes += static_cast<std::int64_t>(shot->takes.size());
            if (shot->cancelled)
                continue;
            ++counts.planned;
            if (shot->complete())
                ++counts.completed;
        }
    return counts;
}

}  // namespace vantry
