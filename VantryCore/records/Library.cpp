#include "VantryCore/records/Library.h"

namespace vantry {

static_assert(listsEveryMember<Library>());

std::set<std::string> Library::mediaKeys() const {
    std::set<std::string> keys;
    for (const auto& project : projects)
        for (const auto& act : project->acts)
            for (const auto& shot : act->shots)
                if (shot->imageKey)
                    keys.insert(shot->imageKey->utf8());
    return keys;
}

}  // namespace vantry
