#include "bench/Workload.h"

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/DiskStore.h"

namespace vantry::bench {

Workload Workload::load(const std::filesystem::path& file) {
    SavedFile known;
    Workload work;
    work.file = file;
    work.scratch = file.parent_path() / "scratch" / file.stem();
    work.library = DiskStore::read(file, &known);
    work.bytes = std::move(known.bytes);
    work.bytes.reserve(work.bytes.size() + readingPadding);
    return work;
}

std::vector<TakePlace> takePlaces(const Library& library) {
    std::vector<TakePlace> places;
    for (std::size_t p = 0; p < library.projects.size(); ++p)
        for (std::size_t a = 0; a < library.projects[p]->acts.size(); ++a)
            for (std::size_t s = 0; s < library.projects[p]->acts[a]->shots.size(); ++s)
                for (std::size_t t = 0; t < library.projects[p]->acts[a]->shots[s]->takes.size(); ++t)
                    places.push_back({p, a, s, t});
    return places;
}

void typeInto(Library& library, const TakePlace& place) {
    const Project& project = *library.projects[place.project];
    const Act& act = *project.acts[place.act];
    const Shot& shot = *act.shots[place.shot];
    const Identifier projectID = project.id;
    const Identifier actID = act.id;
    const Identifier shotID = shot.id;
    const Identifier takeID = shot.takes[place.take]->id;

    Act* edited = editRecord(editRecord(library.projects, projectID)->acts, actID);
    VantryTake* take = editRecord(editRecord(edited->shots, shotID)->takes, takeID);
    take->notes = Text(take->notes.utf8() + "x");
}

}  // namespace vantry::bench
