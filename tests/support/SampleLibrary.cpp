#include "tests/support/SampleLibrary.h"

#include "VantryCore/persistence/Codec.h"
#include "tests/support/Files.h"

namespace vantry::support {
namespace {

Identifier named(std::string_view name) {
    return Codec::stableID(name);
}

VantryTake completeTake() {
    VantryTake take;
    take.id = named("take");
    take.conflictKey = "kept";
    take.number = 3;
    take.cameraNumber = 2;
    take.soundNumber = 1;
    take.soundMode = SoundMode::mos;
    take.cameraFile = "A001C003";
    take.mixerFile = "S01_T003.WAV";
    take.notes = "Erste Klappe,\nzweite \"Chance\" \\ 雨夜";
    take.result = TakeResult::good;
    take.stars = 4;
    take.parameters.set("iso", "800");
    take.createdAt.seconds = 700000000.25;
    return take;
}

Shot completeShot() {
    Shot shot;
    shot.id = named("shot");
    shot.conflictKey = "kept";
    shot.code = "01A";
    shot.title = "Platform";
    shot.description = "She waits.";
    shot.framing = "wide";
    shot.movement = "dolly";
    shot.soundDescription = "rain";
    shot.soundMode = SoundMode::roomTone;
    shot.parameters.set("shutter", "1/48");
    shot.imageKey = Text(std::string(64, 'a'));
    shot.strokes = {Stroke{named("stroke"), {{0.25, 0.5}, {1, 0}}}};
    shot.scheduledAt = Moment{800060700};
    shot.durationMinutes = 45;
    shot.cancelled = true;
    shot.takes = {completeTake()};
    return shot;
}

CallSheet completeSheet() {
    CallSheetPerson person;
    person.id = named("row");
    person.sourceID = named("crew");
    person.isCast = true;
    person.role = "Gaffer";
    person.name = "Mei";
    person.callTime = "07:00";
    person.phone = "+49 30 1";
    person.makeup = "06:00";
    person.wardrobe = "06:30";
    person.ready = "07:30";
    person.notes = "vegan";
    CallSheet sheet;
    sheet.id = named("sheet");
    sheet.date.seconds = 800000000;
    sheet.timeZoneID = "Europe/Berlin";
    sheet.set("generalCall", "08:05");
    sheet.people = {person};
    return sheet;
}

Project completeProject() {
    Act act;
    act.id = named("act");
    act.conflictKey = "kept";
    act.title = "One";
    act.shots = {completeShot()};
    Project project;
    project.id = named("project");
    project.conflictKey = "kept";
    project.title = "雨夜车站";
    project.director = "Lin";
    project.setCrew({CrewMember{named("crew"), CrewRole::custom, "Dolly grip", "Mei"}});
    project.setCast({CastMember{named("cast"), "Woman", "Ana"}});
    project.setCallSheets({completeSheet()});
    project.setRelatedFiles({RelatedFile{named("reference"), RelatedFileKind::file, "Script", "/films/a.pdf",
                                         Bytes{0, 255, 62, 63}, "draft"}});
    project.notes = "notes";
    project.defaults.set("fps", "24");
    project.createdAt.seconds = 700000000;
    project.acts = {act};
    return project;
}

}  // namespace

const std::string& sampleFileBytes() {
    static const std::string bytes = contentOf(VANTRY_SAMPLE_FILE);
    return bytes;
}

const Library& sampleLibrary() {
    static const Library library = Codec::decode<Library>(sampleFileBytes());
    return library;
}

Library smallSample(std::size_t bytes) {
    Library small = sampleLibrary();
    small.projects.resize(1, Project{});
    Project& project = small.projects.front().edit();
    while (Codec::encode(small).size() > bytes) {
        if (project.acts.size() > 1)
            project.acts.pop_back();
        else if (project.acts.front()->shots.size() > 1)
            project.acts.front().edit().shots.pop_back();
        else
            break;
    }
    return small;
}

Library completeLibrary() {
    Library library;
    library.projects = {completeProject()};
    return library;
}

Library libraryTitled(const std::string& title) {
    Project project;
    project.id = named("only");
    project.title = Text(title);
    Library library;
    library.projects = {project};
    return library;
}

template <>
Library completeRecord() {
    return completeLibrary();
}
template <>
Project completeRecord() {
    return completeProject();
}
template <>
Act completeRecord() {
    return *completeProject().acts.front();
}
template <>
Shot completeRecord() {
    return completeShot();
}
template <>
VantryTake completeRecord() {
    return completeTake();
}
template <>
Parameters completeRecord() {
    return completeTake().parameters;
}
template <>
Stroke completeRecord() {
    return completeShot().strokes.front();
}
template <>
Point completeRecord() {
    return completeShot().strokes.front().points.front();
}
template <>
CrewMember completeRecord() {
    return completeProject().crew().front();
}
template <>
CastMember completeRecord() {
    return completeProject().cast().front();
}
template <>
CallSheet completeRecord() {
    return completeSheet();
}
template <>
CallSheetPerson completeRecord() {
    return completeSheet().people.front();
}
template <>
RelatedFile completeRecord() {
    return completeProject().relatedFiles().front();
}

}  // namespace vantry::support
