// Lookups, edits and creations: the one road to the library.

#include "Vantry/app/VantryStore.h"

#include <algorithm>
#include <string>

#include "Vantry/app/KeyEvents.h"

namespace vantry {
namespace {

/// The shortest pause that tells two creations apart, however fast the desktop's double click is.
constexpr double shortestCreationPause = 0.5;

template <class T>
std::shared_ptr<const T> lookUp(const NodeList<T>& list, const Identifier& id) {
    const std::size_t index = indexOfRecord(list, id);
    return index < list.size() ? list[index].handle() : nullptr;
}

}  // namespace

std::shared_ptr<const Project> VantryStore::project(Identifier projectID) const {
    return lookUp(library().projects, projectID);
}

std::shared_ptr<const Act> VantryStore::act(Identifier projectID, Identifier actID) const {
    const auto found = project(projectID);
    return found ? lookUp(found->acts, actID) : nullptr;
}

std::shared_ptr<const Shot> VantryStore::shot(Identifier projectID, Identifier actID,
                                              Identifier shotID) const {
    const auto found = act(projectID, actID);
    return found ? lookUp(found->shots, shotID) : nullptr;
}

std::shared_ptr<const VantryTake> VantryStore::take(Identifier projectID, Identifier actID, Identifier shotID,
                                                    Identifier takeID) const {
    const auto found = shot(projectID, actID, shotID);
    return found ? lookUp(found->takes, takeID) : nullptr;
}

void VantryStore::updateProject(Identifier projectID, const Change<Project>& mutate) {
    if (loadFailed())
        return;
    const std::size_t index = indexOfRecord(library().projects, projectID);
    if (index == library().projects.size())
        return;
    // The copy shares all nodes; `edit` copies the path to the record and nothing else.
    Library next = library();
    mutate(next.projects[index].edit());
    library_.set(std::move(next));
    saveSoon();
}

void VantryStore::updateAct(Identifier projectID, Identifier actID, const Change<Act>& mutate) {
    updateProject(projectID, [&](Project& project) {
        if (Act* act = editRecord(project.acts, actID))
            mutate(*act);
    });
}

void VantryStore::updateShot(Identifier projectID, Identifier actID, Identifier shotID,
                             const Change<Shot>& mutate) {
    updateAct(projectID, actID, [&](Act& act) {
        if (Shot* shot = editRecord(act.shots, shotID))
            mutate(*shot);
    });
}

void VantryStore::updateTake(Identifier projectID, Identifier actID, Identifier shotID, Identifier takeID,
                             const Change<VantryTake>& mutate) {
    updateShot(projectID, actID, shotID, [&](Shot& shot) {
        if (VantryTake* take = editRecord(shot.takes, takeID))
            mutate(*take);
    });
}

Identifier VantryStore::addProject(const Text& title, const Text& director) {
    if (loadFailed())
        return Identifier::random();
    markCheckpoint();
    Project project = Project::make(title);
    project.director = director;
    const Identifier id = project.id;
    Library next = library();
    next.projects.emplace_back(std::move(project));
    library_.set(std::move(next));
    flush();
    return id;
}

Identifier VantryStore::addAct(Identifier projectID) {
    markCheckpoint();
    Identifier id = Identifier::random();
    updateProject(projectID, [&](Project& project) {
        const std::string number = std::to_string(project.acts.size() + 1);
        Act act = Act::make(Text(english() ? "Act " + number : "第 " + number + " 幕"));
        id = act.id;
        project.acts.emplace_back(std::move(act));
    });
    return id;
}

Identifier VantryStore::addShot(Identifier projectID, Identifier actID,
                                const std::optional<Identifier>& after) {
    const auto found = project(projectID);
    const Parameters defaults = found ? found->defaults : Parameters{};
    markCheckpoint();
    Identifier id = Identifier::random();
    updateAct(projectID, actID, [&](Act& act) {
        id = act.insertShot(after, defaults, english() ? "Untitled shot" : "未命名镜头");
    });
    return id;
}

Identifier VantryStore::addTake(Identifier projectID, Identifier actID, Identifier shotID) {
    markCheckpoint();
    Identifier id = Identifier::random();
    updateProject(projectID, [&](Project& project) { id = project.addTake(actID, shotID).value_or(id); });
    return id;
}

void VantryStore::moveShot(Identifier projectID, Identifier actID, Identifier shotID, std::int64_t offset) {
    updateAct(projectID, actID, [&](Act& act) { act.moveShot(shotID, offset); });
}

void VantryStore::moveShotBefore(Identifier projectID, Identifier actID, Identifier shotID,
                                 Identifier targetID) {
    updateAct(projectID, actID, [&](Act& act) { act.moveShotBefore(shotID, targetID); });
}

void VantryStore::removeProject(Identifier projectID) {
    if (loadFailed())
        return;
    Library next = library();
    std::erase_if(next.projects, [&](const auto& project) { return project->id == projectID; });
    library_.set(std::move(next));
    flush();
}

void VantryStore::recordDefaults(Identifier projectID, const Parameters& values) {
    updateProject(projectID, [&](Project& project) { project.captureFirstValues(values); });
}

bool VantryStore::acceptCreation(const VantryCreationAction& action) {
    if (loadFailed())
        return false;
    const double interval = around_.doubleClickSeconds ? around_.doubleClickSeconds() : shortestCreationPause;
    // The gate is asked in any case: a refused attempt renews its time.
    const bool accepted =
        creationGate.accept(action, around_.clock->uptime(), std::max(interval, shortestCreationPause));
    return accepted && !(around_.keys != nullptr && around_.keys->isRepeat());
}

}  // namespace vantry
