#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "Vantry/app/VantryStore.h"
#include "Vantry/schedule/rules/CalendarAgendaItem.h"
#include "Vantry/verification/Smoke.h"
#include "VantryCore/persistence/DiskStore.h"
#include "VantryCore/persistence/VantryBackup.h"

namespace vantry {
namespace {

constexpr const char* takeNotes =
    "第一段：演员回头准确。\n\n第二段：声音需要补录。\nEnglish paragraph preserved.";

FixturePlace makeFixture(VantryStore& store) {
    FixturePlace made;
    made.project = store.addProject("候车室 · 验证项目", "测试导演");
    made.act = store.addAct(made.project);
    made.shot = store.addShot(made.project, made.act);
    store.updateShot(made.project, made.act, made.shot, [](Shot& shot) {
        shot.title = "她在窗前回头";
        shot.description = "听见广播，回头。停两秒。";
        shot.framing = "中近景";
        shot.movement = "缓慢推近";
        shot.parameters.set("manufacturer", "ZEISS");
        shot.parameters.set("focal", "50 mm");
    });
    made.take = store.addTake(made.project, made.act, made.shot);
    store.updateTake(made.project, made.act, made.shot, made.take, [](VantryTake& take) {
        take.cameraFile = "A001_C001.mov\nB001_C001.mov";
        take.mixerFile = "S01_T01.wav";
        take.notes = takeNotes;
    });
    return made;
}

void verifyTakes(VantryStore& store, const FixturePlace& made) {
    const Identifier second = store.addTake(made.project, made.act, made.shot);
    const auto clean = store.take(made.project, made.act, made.shot, second);
    Smoke::demand(clean && clean->cameraFile.empty() && clean->mixerFile.empty(),
                  "New take filenames leaked");
    Smoke::demand(clean->notes.empty(), "New take notes leaked");
    store.updateTake(made.project, made.act, made.shot, second,
                     [](VantryTake& take) { take.result = TakeResult::good; });
    Smoke::demand(store.shot(made.project, made.act, made.shot)->complete(), "Good take completion");
    store.flush();
    VantryStore reopened(store.root());
    const auto take = reopened.take(made.project, made.act, made.shot, made.take);
    Smoke::demand(take && take->notes == Text(takeNotes), "Reopen paragraphs");
}

/// Changes the project's first call sheet.
void updateSheet(VantryStore& store, const Identifier& project,
                 const std::function<void(CallSheet&)>& mutate) {
    store.updateProject(project, [&](Project& record) {
        auto sheets = record.callSheets();
        mutate(sheets.front());
        record.setCallSheets(std::move(sheets));
    });
}

CallSheetSyncResult synchronise(VantryStore& store, const Identifier& project) {
    CallSheetSyncResult result;
    const auto people = store.project(project);
    updateSheet(store, project,
                [&](CallSheet& sheet) { result = sheet.syncProjectPeople(*people, store.english()); });
    return result;
}

void verifyPeople(VantryStore& store, const FixturePlace& made) {
    store.updateProject(made.project, [&](Project& project) {
        project.setCrew(
            {CrewMember::make(CrewRole::cinematographer, "摄影甲"), CrewMember::make(CrewRole::gaffer, " ")});
        project.setCast({CastMember::make("旅客", "演员甲")});
        CallSheet sheet = CallSheet::make(Moment::now());
        sheet.set("address", "示例街道 123 号\n北门入场");
        sheet.set("generalCall", "07:15");
        sheet.addProjectPeople(project, store.english());
        project.setCallSheets({std::move(sheet)});
    });
    const Identifier row = store.project(made.project)->callSheets().front().people.back().id;
    updateSheet(store, made.project, [&](CallSheet& sheet) {
        for (auto& person : sheet.people)
            if (person.id == row)
                person.callTime = "06:45";
    });
    store.updateProject(made.project, [](Project& project) {
        auto crew = project.crew();
        crew.push_back(CrewMember::make(CrewRole::boomOperator, "Added after call sheet"));
        project.setCrew(std::move(crew));
    });
    const auto before = store.project(made.project)->callSheets();
    store.markCheckpoint();
    const CallSheetSyncResult result = synchronise(store, made.project);
    Smoke::demand(result.added == 1, "Call sheet sync missed new project person");
    store.undo();
    Smoke::demand(store.project(made.project)->callSheets() == before, "Sync undo failed");
    synchronise(store, made.project);
    store.flush();
    VantryStore reopened(store.root());
    const auto project = reopened.project(made.project);
    Smoke::demand(project && project->callSheets() == store.project(made.project)->callSheets(),
                  "Sync did not persist");
    bool kept = false;
    for (const auto& person : project->callSheets().front().people)
        kept = kept || (person.id == row && person.callTime == Text("06:45"));
    Smoke::demand(kept, "Sync erased call time");
}

void verifyBackup(const VantryStore& store) {
    const VantryBackup backup(store.library(), {});
    Smoke::demand(VantryBackup::decode(Codec::encode(backup)) == backup, "Backup roundtrip");
}

void verifyMerge(VantryStore& store, const FixturePlace& made) {
    const Text elsewhere = "另一台设备的不同内容";
    Library other = store.library();
    Shot& shot = other.projects[0].edit().acts[0].edit().shots[0].edit();
    shot.takes[0].edit().notes = elsewhere;
    const MergeReport report = store.mergeBackupData(Codec::encode(VantryBackup(other, {})));
    const auto merged = store.shot(made.project, made.act, made.shot);
    const auto mine = store.take(made.project, made.act, made.shot, made.take);
    Smoke::demand(report.conflicts == 1 && merged && merged->takes.back()->notes == elsewhere &&
                      merged->takes.back()->conflictKey,
                  "Merge lost a conflicting version");
    Smoke::demand(mine && mine->notes == Text(takeNotes), "Merge changed the local version");
}

void verifyAgenda(VantryStore& store, const FixturePlace& made) {
    const auto project = store.project(made.project);
    const CallSheet& sheet = project->callSheets().front();
    const auto call = sheet.calendarStart();
    Smoke::demand(call.has_value(), "Calendar missed call sheet");
    const auto schedule = [&](const std::optional<Moment>& start) {
        store.updateShot(made.project, made.act, made.shot, [&](Shot& shot) { shot.scheduledAt = start; });
    };
    for (const double minutes : {60.0, -60.0, 0.0}) {
        schedule(Moment{call->seconds + minutes * 60});
        const auto agenda = CalendarAgendaItem::daily(
            locations(store.library()), callSheetLocations(store.library()), *call, sheet.calendar());
        Smoke::demand(std::any_of(agenda.begin(), agenda.end(),
                                  [&](const auto& item) { return item.id() == sheet.id; }),
                      "Calendar missed call sheet");
        Smoke::demand(agenda.size() == 2 && agenda[0].start() <= agenda[1].start(),
                      "Agenda not chronological");
    }
    schedule(std::nullopt);
}

}  // namespace

void FixtureVerification::run(const std::filesystem::path& root) {
    VantryStore store(root);
    Smoke::skip("reference files");
    const FixturePlace made = makeFixture(store);
    verifyTakes(store, made);
    verifyBackup(store);
    verifyPeople(store, made);
    verifyMerge(store, made);
    verifyAgenda(store, made);
    DocumentVerification::run(store, made);
    if (const char* folder = std::getenv("VANTRY_UI_FIXTURE_DIR"))
        DiskStore::write(store.library(), std::filesystem::path(folder) / "library.json");
}

}  // namespace vantry
