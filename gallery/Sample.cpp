#include "gallery/Sample.h"

#include <filesystem>
#include <fstream>

namespace vantry::gallery {

Moment Sample::StillClock::now() {
    // 2026-11-21 13:46 UTC.
    return Moment{816961560};
}

std::unique_ptr<DelayedCall> Sample::StillClock::callAfter(std::chrono::milliseconds, std::function<void()>) {
    return std::make_unique<DelayedCall>();
}

Sample::Sample()
    : savedStore(storeIn("saved"))
    , pendingStore(storeIn("pending")) {
    fill(*savedStore);
    savedStore->flush();

    const Identifier project = pendingStore->addProject("Fog Harbour", {});
    pendingStore->updateProject(project, [](Project& record) { record.notes = "Not saved yet"; });

    // A file in the place of the data folder.
    const auto blocked = std::filesystem::path(folder.path().toStdString()) / "failed";
    std::ofstream(blocked) << "A file blocks creation of the data directory";
    failedStore = storeIn("failed");
    failedStore->addProject("Fog Harbour", {});
    failedStore->flush();
}

std::unique_ptr<VantryStore> Sample::storeIn(const char* name) {
    Surroundings around;
    around.clock = &clock;
    return std::make_unique<VantryStore>(std::filesystem::path(folder.path().toStdString()) / name, around);
}

void Sample::fill(VantryStore& store) {
    const Identifier project = store.addProject("雾港 Fog Harbour", "林晓雨");
    const Identifier act = store.addAct(project);
    store.updateAct(project, act, [](Act& record) { record.title = "第二幕 夜航"; });
    const Identifier shot = store.addShot(project, act);
    store.updateShot(project, act, shot, [](Shot& record) {
        record.code = "20B";
        record.title = "陈舟回头";
    });
    const TakeResult results[] = {TakeResult::ng, TakeResult::good};
    for (const TakeResult result : results) {
        const Identifier take = store.addTake(project, act, shot);
        store.updateTake(project, act, shot, take, [result](VantryTake& record) {
            record.result = result;
            record.stars = result == TakeResult::good ? 4 : 1;
        });
        takeRoute = Route::take(project, act, shot, take);
    }
}

}  // namespace vantry::gallery
