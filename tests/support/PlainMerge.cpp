#include "tests/support/PlainMerge.h"

#include <set>
#include <string>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/LibraryValidation.h"
#include "VantryCore/persistence/SameContent.h"

namespace vantry::support {
namespace {

using Identifiers = std::set<Identifier>;

Identifiers identifiersOf(const VantryTake& take) {
    return {take.id};
}

Identifiers identifiersOf(const Shot& shot) {
    Identifiers all{shot.id};
    for (const auto& take : shot.takes)
        all.insert(take->id);
    return all;
}

Identifiers identifiersOf(const Act& act) {
    Identifiers all{act.id};
    for (const auto& shot : act.shots)
        all.merge(identifiersOf(*shot));
    return all;
}

Identifiers identifiersOf(const Project& project) {
    Identifiers all{project.id};
    for (const auto& member : project.crew())
        all.insert(member.id);
    for (const auto& member : project.cast())
        all.insert(member.id);
    for (const auto& file : project.relatedFiles())
        all.insert(file.id);
    for (const auto& sheet : project.callSheets()) {
        all.insert(sheet.id);
        for (const auto& person : sheet.people)
            all.insert(person.id);
    }
    for (const auto& act : project.acts)
        all.merge(identifiersOf(*act));
    return all;
}

Identifiers identifiersOf(const Library& library) {
    Identifiers all;
    for (const auto& project : library.projects)
        all.merge(identifiersOf(*project));
    return all;
}

bool share(const Identifiers& a, const Identifiers& b) {
    for (const auto& id : a)
        if (b.contains(id))
            return true;
    return false;
}

template <class T>
std::string uuid(const T& record) {
    return record.id.text();
}

VantryTake copyOf(VantryTake take, const std::string& key, const std::string& seed) {
    take.id = Codec::stableID(seed);
    take.conflictKey = Text(key);
    return take;
}

Shot copyOf(Shot shot, const std::string& key, const std::string& seed) {
    for (auto& take : shot.takes)
        take.edit().id = Codec::stableID(seed + uuid(*take));
    shot.id = Codec::stableID(seed + uuid(shot));
    shot.conflictKey = Text(key);
    return shot;
}

Act copyOf(Act act, const std::string& key, const std::string& seed) {
    for (auto& node : act.shots) {
        Shot& shot = node.edit();
        const std::string of = uuid(shot);
        for (auto& take : shot.takes)
            take.edit().id = Codec::stableID(seed + of + uuid(*take));
        shot.id = Codec::stableID(seed + of + of);
        shot.conflictKey = Text(key + of);
    }
    act.id = Codec::stableID(seed + uuid(act));
    act.conflictKey = Text(key);
    return act;
}

template <class T>
void copyPeople(std::optional<std::vector<T>>& list, const std::string& seed) {
    if (list)
        for (auto& record : *list)
            record.id = Codec::stableID(seed + uuid(record));
}

Project copyOf(Project project, const std::string& key, const std::string& seed) {
    copyPeople(project.crewMembers, seed);
    copyPeople(project.castMembers, seed);
    copyPeople(project.relatedFileRecords, seed);
    copyPeople(project.callSheetRecords, seed);
    if (project.callSheetRecords) {
        for (auto& sheet : *project.callSheetRecords) {
            for (auto& person : sheet.people) {
                person.id = Codec::stableID(seed + uuid(person));
                if (person.sourceID)
                    person.sourceID = Codec::stableID(seed + person.sourceID->text());
            }
        }
    }
    for (auto& actNode : project.acts) {
        Act& act = actNode.edit();
        const std::string actKey = key + uuid(act);
        const std::string actSeed = seed + uuid(act);
        for (auto& shotNode : act.shots) {
            Shot& shot = shotNode.edit();
            const std::string shotKey = actKey + uuid(shot);
            const std::string shotSeed = actSeed + uuid(shot);
            for (auto& take : shot.takes)
                take.edit().id = Codec::stableID(shotSeed + uuid(*take));
            shot.id = Codec::stableID(shotSeed + uuid(shot));
            shot.conflictKey = Text(shotKey);
        }
        act.id = Codec::stableID(actSeed + uuid(act));
        act.conflictKey = Text(actKey);
    }
    project.id = Codec::stableID(seed + uuid(project));
    project.conflictKey = Text(key);
    return project;
}

Project withoutChildren(Project project) {
    project.acts.clear();
    return Merge::comparableProject(project);
}

Act withoutChildren(Act act) {
    act.shots.clear();
    return act;
}

Shot withoutChildren(Shot shot) {
    shot.takes.clear();
    return shot;
}

VantryTake withoutChildren(VantryTake take) {
    return take;
}

class PlainMerger {
public:
    explicit PlainMerger(Library& library)
        : result(library) {}

    MergeReport report;

    template <class T>
    void handle(const Node<T>& record, NodeList<T>& candidates) {
        for (auto& candidate : candidates) {
            if (!(candidate->id == record->id))
                continue;
            if (withoutChildren(*candidate) == withoutChildren(*record)) {
                ++report.identical;
                goDown(*record, candidate.edit());
            } else {
                retain(record, candidates);
            }
            return;
        }
        candidates.push_back(record);
        ++report.added;
    }

private:
    void goDown(const Project& incoming, Project& local) {
        for (const auto& act : incoming.acts)
            handle(act, local.acts);
    }
    void goDown(const Act& incoming, Act& local) {
        for (const auto& shot : incoming.shots)
            handle(shot, local.shots);
    }
    void goDown(const Shot& incoming, Shot& local) {
        for (const auto& take : incoming.takes)
            handle(take, local.takes);
    }
    void goDown(const VantryTake&, VantryTake&) {}

    template <class T>
    void retain(const Node<T>& record, NodeList<T>& candidates) {
        const std::string key = Codec::hash(Codec::encode(*record));
        for (const auto& candidate : candidates) {
            if (candidate->conflictKey && *candidate->conflictKey == Text(key) &&
                sameContentByValues(*candidate, *record)) {
                ++report.identical;
                return;
            }
        }
        // The list that is worked on belongs to the result itself, so this sees what was appended before.
        const Identifiers used = identifiersOf(result);
        T copy = copyOf(*record, key, key);
        for (int n = 1; share(identifiersOf(copy), used); ++n)
            copy = copyOf(*record, key, key + ":revision:" + std::to_string(n));
        candidates.emplace_back(std::move(copy));
        ++report.conflicts;
    }

    Library& result;
};

}  // namespace

MergeReport mergePlainly(const Library& incoming, Library& local) {
    validate(incoming);
    validate(local);
    Library result = local;
    const auto bringIn = [&] {
        PlainMerger merger(result);
        for (const auto& project : incoming.projects)
            merger.handle(project, result.projects);
        return merger.report;
    };
    MergeReport report = bringIn();
    // A second import must have nothing left to add.
    for (MergeReport more = bringIn(); more.added + more.conflicts > 0; more = bringIn()) {
        report.added += more.added;
        report.conflicts += more.conflicts;
    }
    validate(result);
    local = std::move(result);
    return report;
}

}  // namespace vantry::support
