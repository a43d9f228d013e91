#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Vantry/documents/CallSheetPDF.h"
#include "conformance/MachineZone.h"
#include "conformance/RecordedFlow.h"
#include "tests/documents/PrintedFile.h"
#include "tests/documents/SampleProject.h"
#include "tests/support/Clock.h"

namespace vantry::test {
namespace {

using Calls = std::vector<std::string>;

Calls callsOf(const Project& project, const CallSheet& sheet, bool english) {
    conformance::RecordedFlow flow;
    CallSheetPDF::write(project, sheet, english, flow);
    return flow.calls;
}

bool has(const Calls& calls, const std::string& call) {
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}

bool mentions(const Calls& calls, const std::string& word) {
    return std::any_of(calls.begin(), calls.end(),
                       [&](const std::string& call) { return call.find(word) != std::string::npos; });
}

CallSheet emptySheet(const char* zone = "Asia/Shanghai") {
    CallSheet sheet;
    sheet.date = support::utc(2026, 11, 15, 4);
    sheet.timeZoneID = zone;
    return sheet;
}

Shot shotAt(const char* code, Moment start, std::int64_t minutes = 30) {
    Shot shot;
    shot.code = code;
    shot.scheduledAt = start;
    shot.durationMinutes = minutes;
    return shot;
}

Project projectOf(std::vector<Shot> shots) {
    Project project;
    Act act;
    act.title = "Act";
    for (auto& shot : shots)
        act.shots.emplace_back(std::move(shot));
    project.acts = {act};
    return project;
}

std::vector<std::string> codesOn(const CallSheet& sheet, const Project& project) {
    std::vector<std::string> codes;
    for (const auto& [act, shot] : CallSheetPDF::scheduledShots(project, sheet))
        codes.push_back(shot->code.utf8());
    return codes;
}

TEST(CallSheetFlow, HasTheFilledSectionsThePeopleAndTheShotsOfTheDay) {
    EXPECT_EQ(
        callsOf(sampleProject(), sampleSheet(), true),
        (Calls{"text 候车室 / Waiting Room", "text Call Sheet", "text 2026-11-15 · Asia/Shanghai",
               // The form
               "advance 12", "ensure 65", "text Day overview", "text Production company: Vantry Films",
               "text General call: 06:30", "advance 12", "ensure 65", "text Locations & transport",
               "text Main location: Not set", "text Street address: 虹口区\nGate 3", "advance 12",
               "ensure 65", "text Emergency & notes", "text Safety / location requirements: Mind the tracks.",
               // The people
               "advance 12", "ensure 90", "text Cast calls", "ensure 70", "text 旅人 · 周也",
               "text Call: 07:00 · Phone: 555 0100", "text Makeup: 07:15 · Ready: 08:30", "ensure 70",
               "text  · Mia", "text Call: TBD", "advance 12", "ensure 90", "text Crew calls", "ensure 70",
               "text Gaffer · Name not set", "text Call: TBD", "text Brings the generator.",
               // The shots
               "advance 12", "ensure 90", "text Daily shot schedule", "ensure 65",
               "text 09:00 – 09:30 · Night / 02", "text Platform", "text The train leaves.", "ensure 65",
               "text 11-15 23:30 – 11-16 00:30 · 第一幕 / 01", "text 她在窗前回头",
               "text 听见广播，回头。"}));
}

TEST(CallSheetFlow, HasChineseLabelsInChinese) {
    EXPECT_EQ(callsOf(sampleProject(), sampleSheet(), false),
              (Calls{"text 候车室 / Waiting Room",
                     "text 拍摄通告单 · Call Sheet",
                     "text 2026-11-15 · Asia/Shanghai",
                     "advance 12",
                     "ensure 65",
                     "text 基本安排",
                     "text 制作单位: Vantry Films",
                     "text 统一集合时间: 06:30",
                     "advance 12",
                     "ensure 65",
                     "text 场地与交通",
                     "text 主要场地名称: 待填写",
                     "text 详细地址: 虹口区\nGate 3",
                     "advance 12",
                     "ensure 65",
                     "text 应急与注意事项",
                     "text 安全／场地要求: Mind the tracks.",
                     "advance 12",
                     "ensure 90",
                     "text 演员到场安排",
                     "ensure 70",
                     "text 旅人 · 周也",
                     "text 到场：07:00 · 电话：555 0100",
                     "text 化妆: 07:15 · 就绪: 08:30",
                     "ensure 70",
                     "text  · Mia",
                     "text 到场：待定",
                     "advance 12",
                     "ensure 90",
                     "text 剧组到场安排",
                     "ensure 70",
                     "text Gaffer · 姓名待填",
                     "text 到场：待定",
                     "text Brings the generator.",
                     "advance 12",
                     "ensure 90",
                     "text 当日镜头安排",
                     "ensure 65",
                     "text 09:00 – 09:30 · Night / 02",
                     "text Platform",
                     "text The train leaves.",
                     "ensure 65",
                     "text 11-15 23:30 – 11-16 00:30 · 第一幕 / 01",
                     "text 她在窗前回头",
                     "text 听见广播，回头。"}));
}

TEST(CallSheetFlow, OfAnEmptySheetAsksForTheCallTheLocationAndTheAddress) {
    const Calls expected{"text Title",
                         "text Call Sheet",
                         "text 2026-11-15 · Asia/Shanghai",
                         "advance 12",
                         "ensure 65",
                         "text Day overview",
                         "text General call: Not set",
                         "advance 12",
                         "ensure 65",
                         "text Locations & transport",
                         "text Main location: Not set",
                         "text Street address: Not set",
                         "advance 12",
                         "ensure 90",
                         "text Daily shot schedule",
                         "text No shots scheduled for this day."};
    Project project;
    project.title = "Title";
    EXPECT_EQ(callsOf(project, emptySheet(), true), expected) << "and neither contacts nor people";
    EXPECT_EQ(callsOf(project, emptySheet(), false).back(), "text 当天尚未安排镜头。");
}

TEST(CallSheetFlow, ShowsAFieldThatHoldsABlankOnly) {
    CallSheet sheet = emptySheet();
    sheet.set("locationContact", " ");
    const Calls calls = callsOf({}, sheet, true);
    EXPECT_TRUE(has(calls, "text Contacts"));
    EXPECT_TRUE(has(calls, "text Location contact & phone:  "));
    EXPECT_FALSE(mentions(calls, "Production contact"));
}

TEST(CallSheetFlow, PrintsMakeupWardrobeAndReadyForTheCastOnly) {
    for (const bool isCast : {true, false}) {
        CallSheetPerson row;
        row.isCast = isCast;
        row.role = "Role";
        row.makeup = "07:15";
        row.wardrobe = "07:45";
        row.ready = "08:30";
        CallSheet sheet = emptySheet();
        sheet.people = {row};
        const Calls calls = callsOf({}, sheet, true);
        EXPECT_EQ(has(calls, "text Makeup: 07:15 · Wardrobe: 07:45 · Ready: 08:30"), isCast);
        EXPECT_EQ(mentions(calls, "07:15"), isCast);
        EXPECT_EQ(has(calls, "text Cast calls"), isCast);
        EXPECT_EQ(has(calls, "text Crew calls"), !isCast);
    }
}

TEST(CallSheetFlow, BeginsTheLineOfAPersonWithoutARoleWithTheDot) {
    CallSheetPerson row;
    row.name = "Sam";
    CallSheet sheet = emptySheet();
    sheet.people = {row};
    EXPECT_TRUE(has(callsOf({}, sheet, true), "text  · Sam"));
    const PrintedFile file([&](PDFWriter& writer) { CallSheetPDF::write(Project{}, sheet, true, writer); });
    EXPECT_TRUE(file.textByPoppler().contains(QString::fromUtf8("\n· Sam\n")) ||
                file.textByPoppler().contains(QString::fromUtf8("\n · Sam\n")))
        << file.textByPoppler().toStdString();
}

TEST(CallSheetFlow, WritesAnEmptyTitleOfAShotButNoEmptyDescription) {
    const Calls calls = callsOf(projectOf({shotAt("7", support::utc(2026, 11, 15, 2))}), emptySheet(), true);
    EXPECT_EQ(calls.at(calls.size() - 2), "text 10:00 – 10:30 · Act / 7");
    EXPECT_EQ(calls.back(), "text ");
}

TEST(CallSheetFlow, WritesItsLinesInTheirSizes) {
    conformance::RecordedFlow flow;
    CallSheetPDF::write(sampleProject(), sampleSheet(), true, flow);
    const conformance::RecordedFlow::Line lines[] = {
        {"候车室 / Waiting Room", 24, true},
        {"Call Sheet", 18, true},
        {"2026-11-15 · Asia/Shanghai", 11, false},
        {"Day overview", 15, true},
        {"General call: 06:30", 11, false},
        {"Cast calls", 15, true},
        {"旅人 · 周也", 11, true},
        {"Call: 07:00 · Phone: 555 0100", 11, false},
        {"Daily shot schedule", 15, true},
        {"09:00 – 09:30 · Night / 02", 11, true},
        {"Platform", 11, false},
        {"The train leaves.", 10, false},
    };
    for (const auto& line : lines)
        EXPECT_NE(std::find(flow.lines.begin(), flow.lines.end(), line), flow.lines.end()) << line.text;
}

TEST(CallSheetShots, AreThoseOfTheDayThatAreNotCancelledByTheirStart) {
    Shot cancelled = shotAt("cancelled", support::utc(2026, 11, 15, 3));
    cancelled.cancelled = true;
    const Project project = projectOf({
        shotAt("late", support::utc(2026, 11, 15, 9)),
        shotAt("day before", support::utc(2026, 11, 14, 9)),
        shotAt("early", support::utc(2026, 11, 15, 1)),
        cancelled,
        shotAt("early too", support::utc(2026, 11, 15, 1)),
        Shot{},
        shotAt("day after", support::utc(2026, 11, 16, 1)),
    });
    EXPECT_EQ(codesOn(emptySheet(), project), (std::vector<std::string>{"early", "early too", "late"}));
    const Calls calls = callsOf(project, emptySheet(), true);
    EXPECT_FALSE(mentions(calls, "cancelled"));
    EXPECT_FALSE(mentions(calls, "day before"));
    EXPECT_FALSE(mentions(calls, "day after"));
}

TEST(CallSheetShots, OfANightStandOnBothDaysUnlessTheyEndAtMidnight) {
    const Project project = projectOf({shotAt("over", support::utc(2026, 11, 15, 15, 30), 60),
                                       shotAt("until", support::utc(2026, 11, 15, 15, 30), 30)});
    CallSheet next = emptySheet();
    next.date = support::utc(2026, 11, 16, 4);
    EXPECT_EQ(codesOn(emptySheet(), project), (std::vector<std::string>{"over", "until"}));
    EXPECT_EQ(codesOn(next, project), (std::vector<std::string>{"over"}));
}

TEST(CallSheetShots, AreChosenAndToldByTheZoneOfTheSheetWhateverTheMachines) {
    // 22:00 in New York, 03:00 of the next day in London, 11:00 in Shanghai.
    const Shot shot = shotAt("7", support::utc(2026, 11, 16, 3));
    const struct {
        const char* zone;
        Moment day;
        const char* date;
        const char* range;
    } cases[] = {
        {"America/New_York", support::utc(2026, 11, 15, 17), "2026-11-15", "22:00 – 22:30"},
        {"Europe/London", support::utc(2026, 11, 16, 12), "2026-11-16", "03:00 – 03:30"},
        {"Asia/Shanghai", support::utc(2026, 11, 16, 4), "2026-11-16", "11:00 – 11:30"},
    };
    for (const char* machine : {"UTC", "Pacific/Kiritimati", "America/Los_Angeles"}) {
        const conformance::MachineZone here(machine);
        for (const auto& [zone, day, date, range] : cases) {
            CallSheet sheet = emptySheet(zone);
            sheet.date = day;
            EXPECT_EQ(CallSheetPDF::dateText(sheet), date);
            EXPECT_EQ(CallSheetPDF::timeRange(shot, sheet), range);
            EXPECT_TRUE(
                has(callsOf(projectOf({shot}), sheet, true), std::string("text ") + range + " · Act / 7"));
            sheet.date.seconds -= 86400;
            EXPECT_TRUE(codesOn(sheet, projectOf({shot})).empty()) << zone;
        }
    }
}

TEST(CallSheetTimeRange, HasTheDayOnBothSidesWhenTheShotRunsIntoAnother) {
    const struct {
        Moment start;
        std::int64_t minutes;
        const char* text;
    } cases[] = {
        {support::utc(2026, 11, 15, 14), 60, "22:00 – 23:00"},
        {support::utc(2026, 11, 15, 15, 30), 60, "11-15 23:30 – 11-16 00:30"},
        {support::utc(2026, 11, 15, 15, 30), 30, "11-15 23:30 – 11-16 00:00"},
        {support::utc(2026, 11, 15, 15, 30), 29, "23:30 – 23:59"},
        {support::utc(2026, 12, 31, 15), 10080, "12-31 23:00 – 01-07 23:00"},
        {support::utc(2026, 11, 14, 16), 1, "00:00 – 00:01"},
    };
    for (const auto& [start, minutes, text] : cases)
        EXPECT_EQ(CallSheetPDF::timeRange(shotAt("", start, minutes), emptySheet()), text);
    EXPECT_EQ(CallSheetPDF::timeRange(Shot{}, emptySheet()), "—");
}

TEST(CallSheetDate, IsThatOfTheMachineWhenTheZoneIsUnknown) {
    const conformance::MachineZone here("Asia/Tokyo");
    CallSheet sheet = emptySheet("No/Such_Zone");
    sheet.date = support::utc(2026, 11, 15, 15);
    EXPECT_EQ(CallSheetPDF::dateText(sheet), "2026-11-16");
    EXPECT_TRUE(has(callsOf({}, sheet, true), "text 2026-11-16 · No/Such_Zone")) << "as it is stored";
}

TEST(CallSheetDocument, HoldsEverythingThatWasFilledIn) {
    for (const bool english : {true, false}) {
        const PrintedFile file(
            [&](PDFWriter& writer) { CallSheetPDF::write(sampleProject(), sampleSheet(), english, writer); });
        conformance::RecordedFlow flow;
        CallSheetPDF::write(sampleProject(), sampleSheet(), english, flow);
        ASSERT_GT(flow.lines.size(), 20U);
        for (const auto& line : flow.lines) {
            EXPECT_TRUE(withoutBlanks(file.text()).contains(withoutBlanks(line.text))) << line.text;
            EXPECT_TRUE(withoutBlanks(file.textByPoppler()).contains(withoutBlanks(line.text))) << line.text;
        }
        EXPECT_FALSE(file.text().contains("never printed"));
        EXPECT_FALSE(file.text().contains("Empty hall")) << "a cancelled shot";
    }
}

}  // namespace
}  // namespace vantry::test
