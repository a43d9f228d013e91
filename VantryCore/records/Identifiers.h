#pragma once

#include "VantryCore/records/Project.h"

namespace vantry {

// Calls `visit` with the identifier of a record and of every record inside it, outer before inner. Strokes
// are no records in this sense.

template <class Visit>
void forEachIdentifier(const VantryTake& take, Visit&& visit) {
    visit(take.id);
}

template <class Visit>
void forEachIdentifier(const Shot& shot, Visit&& visit) {
    visit(shot.id);
    for (const auto& take : shot.takes)
        forEachIdentifier(*take, visit);
}

template <class Visit>
void forEachIdentifier(const Act& act, Visit&& visit) {
    visit(act.id);
    for (const auto& shot : act.shots)
        forEachIdentifier(*shot, visit);
}

template <class Visit>
void forEachIdentifier(const Project& project, Visit&& visit) {
    visit(project.id);
    for (const auto& member : project.crew())
        visit(member.id);
    for (const auto& member : project.cast())
        visit(member.id);
    for (const auto& file : project.relatedFiles())
        visit(file.id);
    for (const auto& sheet : project.callSheets()) {
        visit(sheet.id);
        for (const auto& person : sheet.people)
            visit(person.id);
    }
    for (const auto& act : project.acts)
        forEachIdentifier(*act, visit);
}

}  // namespace vantry
