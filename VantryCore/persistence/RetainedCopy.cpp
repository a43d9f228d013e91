#include "VantryCore/persistence/RetainedCopy.h"

#include "VantryCore/persistence/Codec.h"

namespace vantry {
namespace {

/// The shot inside a copy of its act: its own mark, and a seed of its own for itself and its takes.
Shot copyInside(const Shot& shot, const std::string& key, const std::string& seed) {
    return retainedCopy(shot, key + shot.id.text(), seed + shot.id.text());
}

Act copyInside(const Act& act, const std::string& key, const std::string& seed) {
    return retainedCopy(act, key + act.id.text(), seed + act.id.text());
}

template <class T>
void renew(std::optional<std::vector<T>>& list, const std::string& seed) {
    if (list)
        for (auto& record : *list)
            record.id = Codec::stableID(seed + record.id.text());
}

}  // namespace

VantryTake retainedCopy(const VantryTake& take, const std::string& key, const std::string& seed) {
    VantryTake copy = take;
    copy.id = Codec::stableID(seed);
    copy.conflictKey = Text(key);
    return copy;
}

Shot retainedCopy(const Shot& shot, const std::string& key, const std::string& seed) {
    Shot copy = shot;
    copy.id = Codec::stableID(seed + shot.id.text());
    copy.conflictKey = Text(key);
    for (auto& take : copy.takes) {
        VantryTake& own = take.edit();
        own.id = Codec::stableID(seed + own.id.text());
    }
    return copy;
}

Act retainedCopy(const Act& act, const std::string& key, const std::string& seed) {
    Act copy = act;
    copy.id = Codec::stableID(seed + act.id.text());
    copy.conflictKey = Text(key);
    for (auto& shot : copy.shots)
        shot = Node<Shot>(copyInside(*shot, key, seed));
    return copy;
}

Project retainedCopy(const Project& project, const std::string& key, const std::string& seed) {
    Project copy = project;
    copy.id = Codec::stableID(seed + project.id.text());
    copy.conflictKey = Text(key);
    renew(copy.crewMembers, seed);
    renew(copy.castMembers, seed);
    renew(copy.relatedFileRecords, seed);
    renew(copy.callSheetRecords, seed);
    if (copy.callSheetRecords)
        for (auto& sheet : *copy.callSheetRecords)
            for (auto& person : sheet.people) {
                person.id = Codec::stableID(seed + person.id.text());
                if (person.sourceID)
                    person.sourceID = Codec::stableID(seed + person.sourceID->text());
            }
    for (auto& act : copy.acts)
        act = Node<Act>(copyInside(*act, key, seed));
    return copy;
}

}  // namespace vantry
