#include "tests/documents/SampleProject.h"

#include <utility>

#include "tests/support/Clock.h"

namespace vantry::test {
namespace {

VantryTake goodTake() {
    VantryTake take;
    take.number = 1;
    take.cameraNumber = 1;
    take.soundNumber = 2;
    take.cameraFile = "A001_C001.mov";
    take.mixerFile = "S01_T01.wav";
    take.notes = "第一段：准确。\n\nSecond paragraph.";
    take.result = TakeResult::good;
    take.stars = 5;
    take.parameters.set("iso", "800");
    return take;
}

VantryTake silentTake() {
    VantryTake take;
    take.conflictKey = Text("kept");
    take.number = 2;
    take.cameraNumber = 2;
    take.soundMode = SoundMode::mos;
    take.result = TakeResult::ng;
    return take;
}

VantryTake soundOnlyTake() {
    VantryTake take;
    take.number = 3;
    take.soundNumber = 3;
    take.soundMode = SoundMode::roomTone;
    take.stars = 1;
    return take;
}

Shot drawnShot() {
    Shot shot;
    shot.code = "01";
    shot.title = "她在窗前回头";
    shot.description = "听见广播，回头。";
    shot.framing = "中近景";
    shot.movement = "缓慢推近";
    shot.soundDescription = "广播声";
    shot.parameters.set("manufacturer", "ZEISS");
    shot.parameters.set("focal", "50 mm");
    shot.parameters.set("lut", "Rec.709");
    shot.imageKey = Text(samplePictureKey);
    shot.strokes = {Stroke::make({{0.1, 0.1}, {0.5, 0.9}, {0.9, 0.1}}), Stroke::make({{0.5, 0.5}})};
    shot.scheduledAt = support::utc(2026, 11, 15, 15, 30);  // 23:30 in Shanghai
    shot.durationMinutes = 60;
    shot.takes = {goodTake(), silentTake(), soundOnlyTake()};
    return shot;
}

Shot cancelledShot() {
    Shot shot;
    shot.code = "01A";
    shot.title = "Empty hall";
    shot.soundMode = SoundMode::mos;
    shot.cancelled = true;
    shot.scheduledAt = support::utc(2026, 11, 15, 2);
    return shot;
}

Shot keptShot() {
    Shot shot;
    shot.code = "02";
    shot.conflictKey = Text("kept");
    shot.title = "Platform";
    shot.description = "The train leaves.";
    shot.soundMode = SoundMode::roomTone;
    shot.scheduledAt = support::utc(2026, 11, 15, 1);  // 09:00 in Shanghai
    return shot;
}

CallSheetPerson person(bool isCast, Text role, Text name, Text callTime) {
    CallSheetPerson row;
    row.isCast = isCast;
    row.role = std::move(role);
    row.name = std::move(name);
    row.callTime = std::move(callTime);
    return row;
}

}  // namespace

Project sampleProject() {
    Project project;
    project.title = "候车室 / Waiting Room";
    project.director = "林若水";
    project.notes = "全片手持。\nNo reshoots.";
    project.setCrew({CrewMember{{}, CrewRole::cinematographer, {}, "Lin"},
                     CrewMember{{}, CrewRole::gaffer, {}, " \n\u3000"},
                     CrewMember{{}, CrewRole::custom, "Drone", "Sam"}});
    project.setCast({CastMember{{}, "旅人", "周也"}, CastMember{{}, " ", "\t"}, CastMember{{}, "Guard", ""},
                     CastMember{{}, "", "Mia"}});
    Act first;
    first.title = "第一幕";
    first.shots = {drawnShot(), cancelledShot()};
    Act second;
    second.title = "Night";
    second.shots = {keptShot()};
    project.acts = {first, second};
    return project;
}

CallSheet sampleSheet() {
    CallSheet sheet;
    sheet.date = support::utc(2026, 11, 15, 4);
    sheet.timeZoneID = "Asia/Shanghai";
    sheet.set("company", "Vantry Films");
    sheet.set("generalCall", "06:30");
    sheet.set("address", "虹口区\nGate 3");
    sheet.set("safety", "Mind the tracks.");
    CallSheetPerson lead = person(true, "旅人", "周也", "07:00");
    lead.phone = "555 0100";
    lead.makeup = "07:15";
    lead.ready = "08:30";
    CallSheetPerson gaffer = person(false, "Gaffer", "", "");
    gaffer.makeup = "never printed";
    gaffer.notes = "Brings the generator.";
    sheet.people = {std::move(gaffer), std::move(lead), person(true, "", "Mia", "")};
    return sheet;
}

}  // namespace vantry::test
