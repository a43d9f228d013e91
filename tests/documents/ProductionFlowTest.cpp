#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Vantry/documents/PDFExport.h"
#include "conformance/RecordedFlow.h"
#include "tests/documents/PrintedFile.h"
#include "tests/documents/SampleProject.h"

namespace vantry::test {
namespace {

using Calls = std::vector<std::string>;

Calls operator+(Calls first, const Calls& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

Calls callsOf(const Project& project, bool report, bool english) {
    conformance::RecordedFlow flow;
    PDFExport::write(project, report, {english, made, *Zone::find("Asia/Shanghai")}, flow);
    return flow.calls;
}

/// The three lines of parameters, none of which is set but those that are given.
Calls englishParameters(const std::string& manufacturer, const std::string& focal, const std::string& iso,
                        const std::string& lut) {
    return {"text Lens · Manufacturer: " + manufacturer + " · Focal length: " + focal +
                " · Aperture: — · Filters: — · ND: —",
            "text Camera · ISO: " + iso + " · Shutter mode: — · Shutter: — · WB: — · Tint: —",
            "text Recording & monitoring · Resolution: — · Aspect ratio: — · Frame rate: — · LOG: — · RAW: — "
            "· Monitoring LUT: " +
                lut};
}

Calls chineseParameters(const std::string& manufacturer, const std::string& focal, const std::string& iso,
                        const std::string& lut) {
    return {"text 镜头 · 厂商: " + manufacturer + " · 焦段: " + focal + " · 光圈: — · 滤镜: — · ND: —",
            "text 相机 · ISO: " + iso + " · 快门模式: — · 快门: — · 白平衡: — · Tint: —",
            "text 录制与监视 · 分辨率: — · 画幅: — · 帧率: — · LOG: — · RAW: — · 监视 LUT: " + lut};
}

Calls englishHead(const std::string& kind) {
    return {"text 候车室 / Waiting Room",
            "text " + kind,
            "text Director: 林若水",
            "text Director of photography: Lin",
            "text Drone: Sam",
            "text 2026-10-07 01:20",
            "text Cast",
            "text 旅人 — 周也",
            "text Guard — Not cast yet",
            "text Character not set — Mia",
            "text 全片手持。\nNo reshoots.",
            "advance 15"};
}

TEST(ProductionFlow, OfThePlanHasAFrameAndParametersForEachShot) {
    const Calls expected = englishHead("Storyboard plan · DP") +
                           Calls{"ensure 80",
                                 "text 第一幕",
                                 "text 1 shots · 1 complete",
                                 "ensure 355",
                                 "text 01 · 她在窗前回头",
                                 "text Schedule: 2026-11-15 23:30 → 2026-11-16 00:30",
                                 "storyboard 01",
                                 "text Description: 听见广播，回头。",
                                 "text Framing / movement: 中近景 / 缓慢推近",
                                 "text Sound: Sync sound · 广播声"} +
                           englishParameters("ZEISS", "50 mm", "—", "Rec.709") +
                           Calls{"advance 20",
                                 "ensure 150",
                                 "text 01A · Empty hall [Cancelled]",
                                 "text Schedule: 2026-11-15 10:00 → 2026-11-15 10:30",
                                 "storyboard 01A",
                                 "text Description: ",
                                 "text Framing / movement:  / ",
                                 "text Sound: MOS · "} +
                           englishParameters("—", "—", "—", "—") +
                           Calls{"advance 20",
                                 "ensure 80",
                                 "text Night",
                                 "text 1 shots · 0 complete",
                                 "ensure 150",
                                 "text 02 · Platform",
                                 "text Retained merge version",
                                 "text Schedule: 2026-11-15 09:00 → 2026-11-15 09:30",
                                 "storyboard 02",
                                 "text Description: The train leaves.",
                                 "text Framing / movement:  / ",
                                 "text Sound: Room Tone · "} +
                           englishParameters("—", "—", "—", "—") + Calls{"advance 20"};
    EXPECT_EQ(callsOf(sampleProject(), false, true), expected);
}

TEST(ProductionFlow, OfTheReportHasTheTakesOfEachShotAndNoFrame) {
    const Calls expected =
        englishHead("Shoot report · Director") +
        Calls{"ensure 80", "text 第一幕", "text 1 shots · 1 complete", "ensure 150", "text 01 · 她在窗前回头",
              "text Schedule: 2026-11-15 23:30 → 2026-11-16 00:30", "text Description: 听见广播，回头。",
              "text Framing / movement: 中近景 / 缓慢推近", "text Sound: Sync sound · 广播声",
              // The first take
              "ensure 115", "text Take 1 · Good · 5/5",
              "text On-set notes: ", "text 第一段：准确。\n\nSecond paragraph.",
              "text Camera media: A001_C001.mov", "text Mixer media: S01_T01.wav",
              "text Sync sound · Camera take 1 / Sound take 2"} +
        englishParameters("—", "—", "800", "—") +
        Calls{"advance 14",
              "ensure 115",
              "text Take 2 · NG · 0/5 [Retained version]",
              "text On-set notes: ",
              "text —",
              "text Camera media: —",
              "text Mixer media: —",
              "text MOS · Camera take 2 / Sound take —"} +
        englishParameters("—", "—", "—", "—") +
        Calls{"advance 14",
              "ensure 115",
              "text Take 3 · Pending · 1/5",
              "text On-set notes: ",
              "text —",
              "text Camera media: —",
              "text Mixer media: —",
              "text Room Tone · Camera take — / Sound take 3"} +
        englishParameters("—", "—", "—", "—") +
        Calls{"advance 14",
              "advance 20",
              "ensure 150",
              "text 01A · Empty hall [Cancelled]",
              "text Schedule: 2026-11-15 10:00 → 2026-11-15 10:30",
              "text Description: ",
              "text Framing / movement:  / ",
              "text Sound: MOS · ",
              "text Not shot · No takes",
              "advance 20",
              "ensure 80",
              "text Night",
              "text 1 shots · 0 complete",
              "ensure 150",
              "text 02 · Platform",
              "text Retained merge version",
              "text Schedule: 2026-11-15 09:00 → 2026-11-15 09:30",
              "text Description: The train leaves.",
              "text Framing / movement:  / ",
              "text Sound: Room Tone · ",
              "text Not shot · No takes",
              "advance 20"};
    EXPECT_EQ(callsOf(sampleProject(), true, true), expected);
}

TEST(ProductionFlow, IsTheSameInChineseWithChineseLabels) {
    Project project = sampleProject();
    project.acts.pop_back();
    const Calls head{"text 候车室 / Waiting Room",
                     "text 分镜计划 · 给 DP",
                     "text 导演：林若水",
                     "text 摄影指导: Lin",
                     "text Drone: Sam",
                     "text 2026-10-07 01:20",
                     "text 演员表",
                     "text 旅人 — 周也",
                     "text Guard — 演员待定",
                     "text 角色待填写 — Mia",
                     "text 全片手持。\nNo reshoots.",
                     "advance 15",
                     "ensure 80",
                     "text 第一幕",
                     "text 1 镜 · 已完成 1"};
    const Calls expected = head +
                           Calls{"ensure 355",
                                 "text 01 · 她在窗前回头",
                                 "text 排期：2026-11-15 23:30 → 2026-11-16 00:30",
                                 "storyboard 01",
                                 "text 描述：听见广播，回头。",
                                 "text 景别 / 机位与运动：中近景 / 缓慢推近",
                                 "text 声音：同期声 · 广播声"} +
                           chineseParameters("ZEISS", "50 mm", "—", "Rec.709") +
                           Calls{"advance 20",
                                 "ensure 150",
                                 "text 01A · Empty hall [取消拍摄]",
                                 "text 排期：2026-11-15 10:00 → 2026-11-15 10:30",
                                 "storyboard 01A",
                                 "text 描述：",
                                 "text 景别 / 机位与运动： / ",
                                 "text 声音：MOS · "} +
                           chineseParameters("—", "—", "—", "—") + Calls{"advance 20"};
    EXPECT_EQ(callsOf(project, false, false), expected);
    const Calls report = callsOf(project, true, false);
    EXPECT_EQ(report.at(1), "text 拍摄报告 · 给导演");
    for (const char* line :
         {"text Take 3 · 待定 · 1/5", "text Take 2 · NG · 0/5 [保留版本]", "text 现场笔记：",
          "text 相机素材名：A001_C001.mov", "text Mixer 素材名：—", "text 同期声 · 相机 Take 1 / 声音 Take 2",
          "text Room Tone · 相机 Take — / 声音 Take 3", "text 未拍摄 · 暂无 Take"})
        EXPECT_NE(std::find(report.begin(), report.end(), line), report.end()) << line;
}

TEST(ProductionFlow, OfAnEmptyProjectHasItsHeadOnly) {
    for (const bool report : {false, true})
        EXPECT_EQ(callsOf(Project{}, report, true),
                  (Calls{"text ", report ? "text Shoot report · Director" : "text Storyboard plan · DP",
                         "text Director: ", "text 2026-10-07 01:20", "advance 15"}));
}

TEST(ProductionFlow, AsksForTheRoomOfAFrameWithAnImageKeyOrAnyStrokeInThePlanOnly) {
    Shot withKey;
    withKey.imageKey = Text("gone");
    Shot withStroke;
    withStroke.strokes = {Stroke::make({})};
    const struct {
        Shot shot;
        const char* room;
    } cases[] = {{Shot{}, "ensure 150"}, {withKey, "ensure 355"}, {withStroke, "ensure 355"}};
    for (const auto& [shot, room] : cases) {
        Project project;
        Act act;
        act.shots = {shot};
        project.acts = {act};
        const Calls plan = callsOf(project, false, true);
        EXPECT_EQ(plan.at(8), room);
        EXPECT_EQ(std::count(plan.begin(), plan.end(), "storyboard "), 1);
        const Calls report = callsOf(project, true, true);
        EXPECT_EQ(report.at(8), "ensure 150");
        EXPECT_EQ(std::count(report.begin(), report.end(), "storyboard "), 0);
    }
}

TEST(ProductionFlow, TellsTheMomentByTheClockOfItsZone) {
    const struct {
        const char* zone;
        const char* now;
        const char* schedule;
    } cases[] = {
        {"UTC", "text 2026-10-06 17:20", "text Schedule: 2026-11-15 15:30 → 2026-11-15 16:30"},
        {"America/New_York", "text 2026-10-06 13:20", "text Schedule: 2026-11-15 10:30 → 2026-11-15 11:30"},
        {"Asia/Kolkata", "text 2026-10-06 22:50", "text Schedule: 2026-11-15 21:00 → 2026-11-15 22:00"},
    };
    for (const auto& [zone, now, schedule] : cases) {
        conformance::RecordedFlow flow;
        PDFExport::write(sampleProject(), false, {true, made, *Zone::find(zone)}, flow);
        EXPECT_EQ(flow.calls.at(5), now);
        EXPECT_NE(std::find(flow.calls.begin(), flow.calls.end(), schedule), flow.calls.end()) << zone;
    }
}

TEST(ProductionFlow, WritesItsLinesInTheirSizes) {
    conformance::RecordedFlow flow;
    PDFExport::write(sampleProject(), true, {true, made, *Zone::find("UTC")}, flow);
    const struct {
        const char* text;
        double size;
        bool bold;
    } lines[] = {
        {"候车室 / Waiting Room", 25, true},
        {"Shoot report · Director", 17, false},
        {"Director: 林若水", 11, false},
        {"Drone: Sam", 11, false},
        {"2026-10-06 17:20", 10, false},
        {"Cast", 14, true},
        {"旅人 — 周也", 11, false},
        {"第一幕", 20, true},
        {"1 shots · 1 complete", 11, false},
        {"01 · 她在窗前回头", 16, true},
        {"Retained merge version", 10, false},
        {"Take 1 · Good · 5/5", 14, true},
        {"On-set notes: ", 11, true},
        {"Camera media: A001_C001.mov", 11, false},
    };
    for (const auto& [text, size, bold] : lines) {
        const conformance::RecordedFlow::Line line{text, size, bold};
        EXPECT_NE(std::find(flow.lines.begin(), flow.lines.end(), line), flow.lines.end()) << text;
    }
}

}  // namespace
}  // namespace vantry::test
