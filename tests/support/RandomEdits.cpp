#include "tests/support/RandomEdits.h"

#include <limits>
#include <utility>

namespace vantry::support {
namespace {

std::size_t placeIn(std::size_t size, RandomRecords& random) {
    return static_cast<std::size_t>(random.number(0, static_cast<std::int64_t>(size) - 1));
}

/// A random record of the list for editing; a new one when the list is empty.
template <class T, class Make>
T& anyOf(NodeList<T>& list, RandomRecords& random, Make&& make) {
    if (list.empty())
        list.emplace_back(make());
    return list[placeIn(list.size(), random)].edit();
}

Project& anyProject(Library& library, RandomRecords& random) {
    return anyOf(library.projects, random, [&] { return random.validProject(); });
}

Act& anyAct(Library& library, RandomRecords& random) {
    return anyOf(anyProject(library, random).acts, random, [&] { return random.validAct(); });
}

Shot& anyShot(Library& library, RandomRecords& random) {
    return anyOf(anyAct(library, random).shots, random, [&] { return random.validShot(); });
}

VantryTake& anyTake(Library& library, RandomRecords& random) {
    return anyOf(anyShot(library, random).takes, random, [&] { return random.validTake(); });
}

template <class List>
void dropOne(List& list, RandomRecords& random) {
    if (!list.empty())
        list.erase(list.begin() + static_cast<std::ptrdiff_t>(placeIn(list.size(), random)));
}

template <class List>
void tradePlaces(List& list, RandomRecords& random) {
    if (list.size() > 1)
        std::swap(list[placeIn(list.size(), random)], list[placeIn(list.size(), random)]);
}

/// Puts a second copy of a record, identifier included, at the end.
template <class List>
void repeatOne(List& list, RandomRecords& random) {
    if (!list.empty()) {
        auto copy = list[placeIn(list.size(), random)];
        list.push_back(std::move(copy));
    }
}

template <class T>
std::vector<T> with(std::vector<T> list, T item) {
    list.push_back(std::move(item));
    return list;
}

void editPeople(Project& project, RandomRecords& random) {
    switch (random.number(0, 5)) {
    case 0:
        project.setCrew(with(project.crew(), random.make<CrewMember>()));
        break;
    case 1:
        project.setCast(with(project.cast(), random.make<CastMember>()));
        break;
    case 2:
        project.setCallSheets(with(project.callSheets(), random.validCallSheet()));
        break;
    case 3:
        project.setRelatedFiles(with(project.relatedFiles(), random.validReference()));
        break;
    case 4:
        if (project.crewMembers)
            tradePlaces(*project.crewMembers, random);
        break;
    default:
        project.setCast({});
    }
}

/// An identifier that is in use somewhere.
Identifier usedIdentifier(const Library& library, RandomRecords& random) {
    std::vector<Identifier> used;
    for (const auto& project : library.projects) {
        used.push_back(project->id);
        for (const auto& member : project->crew())
            used.push_back(member.id);
        for (const auto& sheet : project->callSheets())
            used.push_back(sheet.id);
        for (const auto& act : project->acts) {
            used.push_back(act->id);
            for (const auto& shot : act->shots) {
                used.push_back(shot->id);
                for (const auto& take : shot->takes)
                    used.push_back(take->id);
            }
        }
    }
    return used.empty() ? random.identifier() : used[placeIn(used.size(), random)];
}

void spoilPeople(Project& project, RandomRecords& random, const Identifier& used) {
    editPeople(project, random);
    if (project.crewMembers && !project.crewMembers->empty() && random.chance(0.3))
        project.crewMembers->front().id = used;
    if (project.castMembers && !project.castMembers->empty() && random.chance(0.3))
        project.castMembers->back().id = used;
    if (project.relatedFileRecords && !project.relatedFileRecords->empty() && random.chance(0.5))
        project.relatedFileRecords->front().location = random.chance(0.5) ? "data:x" : "relative";
    if (project.callSheetRecords && !project.callSheetRecords->empty()) {
        CallSheet& sheet = project.callSheetRecords->front();
        switch (random.number(0, 4)) {
        case 0:
            sheet.timeZoneID = "Nowhere/Else";
            break;
        case 1:
            sheet.date.seconds = std::numeric_limits<double>::infinity();
            break;
        case 2:
            if (!sheet.people.empty())
                sheet.people.front().id = sheet.id;
            break;
        default:
            sheet.people.push_back(random.make<CallSheetPerson>());
        }
    }
}

void spoilShot(Shot& shot, RandomRecords& random) {
    switch (random.number(0, 4)) {
    case 0:
        shot.durationMinutes = random.number(-1, 10082);
        break;
    case 1:
        shot.scheduledAt = Moment{std::numeric_limits<double>::quiet_NaN()};
        break;
    case 2:
        shot.imageKey = Text(std::string(static_cast<std::size_t>(random.number(63, 65)), 'a'));
        break;
    case 3:
        shot.strokes.push_back(Stroke{random.identifier(), {{random.chance(0.5) ? 1.0 : 1.5, 0}}});
        break;
    default:
        repeatOne(shot.strokes, random);
    }
}

void spoilTake(VantryTake& take, RandomRecords& random) {
    switch (random.number(0, 4)) {
    case 0:
        take.number = random.number(0, 1);
        break;
    case 1:
        take.stars = random.number(-1, 6);
        break;
    case 2:
        take.cameraNumber = random.number(0, 1);
        break;
    case 3:
        take.soundNumber = random.number(0, 1);
        break;
    default:
        take.createdAt.seconds = random.chance(0.5) ? 5 : -std::numeric_limits<double>::infinity();
    }
}

}  // namespace

void editValidly(Library& library, RandomRecords& random) {
    switch (random.number(0, 12)) {
    case 0:
        library.projects.emplace_back(random.validProject());
        break;
    case 1:
        if (library.projects.size() > 1)
            dropOne(library.projects, random);
        break;
    case 2:
        tradePlaces(library.projects, random);
        break;
    case 3:
        editPeople(anyProject(library, random), random);
        break;
    case 4:
        random.fill(anyProject(library, random).notes);
        break;
    case 5:
        anyAct(library, random).shots.emplace_back(random.validShot());
        break;
    case 6:
        dropOne(anyAct(library, random).shots, random);
        break;
    case 7:
        tradePlaces(anyAct(library, random).shots, random);
        break;
    case 8: {
        Shot& shot = anyShot(library, random);
        shot.takes.emplace_back(random.validTake());
        shot.durationMinutes = random.number(1, 10080);
        break;
    }
    case 9: {
        Shot& shot = anyShot(library, random);
        shot.title = Text(shot.title.utf8());
        break;
    }
    case 10:
        random.fill(anyTake(library, random).parameters);
        break;
    default:
        random.fill(anyTake(library, random).notes);
    }
}

void editFreely(Library& library, RandomRecords& random) {
    const Identifier used = usedIdentifier(library, random);
    switch (random.number(0, 13)) {
    case 0:
        library.version = random.number(0, 2);
        break;
    case 1:
        library.format = random.chance(0.5) ? "Vantry" : "vantry";
        break;
    case 2:
        repeatOne(library.projects, random);
        break;
    case 3:
        spoilPeople(anyProject(library, random), random, used);
        break;
    case 4:
        anyProject(library, random).createdAt.seconds =
            random.chance(0.5) ? 0 : std::numeric_limits<double>::infinity();
        break;
    case 5:
        repeatOne(anyAct(library, random).shots, random);
        break;
    case 6:
        repeatOne(anyShot(library, random).takes, random);
        break;
    case 7:
        spoilShot(anyShot(library, random), random);
        break;
    case 8:
    case 9:
        spoilTake(anyTake(library, random), random);
        break;
    case 10:
        anyTake(library, random).id = used;
        break;
    case 11:
        anyAct(library, random).id = used;
        break;
    case 12:
        anyShot(library, random).id = used;
        break;
    default:
        editValidly(library, random);
    }
}

}  // namespace vantry::support
