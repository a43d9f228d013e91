#include "VantryCore/records/Project.h"

#include <algorithm>

namespace vantry {

static_assert(listsEveryMember<Project>());
static_assert(listsEveryMember<CastMember>());

Project Project::make(Text title) {
    Project project;
    project.id = Identifier::random();
    project.title = std::move(title);
    project.createdAt = Moment::now();
    return project;
}

std::vector<Node<Shot>> Project::shots() const {
    std::vector<Node<Shot>> all;
    for (const auto& act : acts)
        all.insert(all.end(), act->shots.begin(), act->shots.end());
    return all;
}

void Project::captureFirstValues(const Parameters& values) {
    for (const auto key : Parameters::inheritedKeys)
        if (isBlank(defaults[key].utf8()) && !isBlank(values[key].utf8()))
            defaults.set(key, values[key]);
}

std::optional<Identifier> Project::addTake(const Identifier& actID, const Identifier& shotID) {
    const Act* found = findRecord(acts, actID);
    const Shot* plan = found != nullptr ? findRecord(found->shots, shotID) : nullptr;
    if (plan == nullptr || plan->cancelled)
        return std::nullopt;
    captureFirstValues(plan->parameters);
    Shot& shot = *editRecord(editRecord(acts, actID)->shots, shotID);
    shot.parameters = shot.parameters.fillingDefaults(defaults);
    return shot.newTake();
}

bool Project::attach(RelatedFile file) {
    const Text identity = file.identity();
    const auto& references = relatedFiles();
    if (std::any_of(references.begin(), references.end(), [&](const RelatedFile& other) {
            return other.kind == file.kind && other.identity() == identity;
        }))
        return false;
    if (!relatedFileRecords)
        relatedFileRecords.emplace();
    relatedFileRecords->push_back(std::move(file));
    return true;
}

}  // namespace vantry
