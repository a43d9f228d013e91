#include "Vantry/schedule/rules/Locations.h"

#include <gtest/gtest.h>

#include "tests/schedule/Records.h"
#include "tests/support/RandomRecords.h"

namespace vantry::test {
namespace {

const Moment noon = support::utc(2025, 5, 6, 12);

Act actOf(const char* title, const std::vector<Shot>& shots) {
    Act act = Act::make(title);
    act.shots.assign(shots.begin(), shots.end());
    return act;
}

/// Two productions with sheets and shots, one in front of them with neither.
Library sample() {
    Project empty = Project::make("Empty");
    Project first = Project::make("First");
    first.acts.emplace_back(actOf("One", {shotFrom(later(noon, 600), 30, "9"), shotWithoutTime("2")}));
    first.acts.emplace_back(actOf("Two", {}));
    first.acts.emplace_back(
        actOf("Three", {cancelled(shotFrom(noon, 30, "1")), cancelled(shotWithoutTime("1B"))}));
    first.setCallSheets(
        {sheetFor("Asia/Kolkata", noon, "08:05", "late"), sheetFor("UTC", noon, "", "blank")});
    Project second = Project::make("Second");
    second.acts.emplace_back(actOf("One", {shotFrom(noon, 30, "1")}));
    second.setCallSheets({sheetFor("UTC", later(noon, -99999), "07:00", "early")});
    Library library;
    library.projects = {empty, first, second};
    return library;
}

TEST(Locations, AreEveryShotInTheOrderOfTheLibrary) {
    const Library library = sample();
    Names names;
    for (const auto& [project, act, shot] : locations(library))
        names.push_back(project->title.utf8() + "/" + act->title.utf8() + "/" + shot->code.utf8());
    EXPECT_EQ(names,
              (Names{"First/One/9", "First/One/2", "First/Three/1", "First/Three/1B", "Second/One/1"}));
}

TEST(Locations, AreEveryCallSheetInTheOrderOfTheLibrary) {
    const Library library = sample();
    Names names;
    for (const auto& [project, sheet] : callSheetLocations(library))
        names.push_back(project->title.utf8() + "/" + (*sheet)["company"].utf8());
    EXPECT_EQ(names, (Names{"First/late", "First/blank", "Second/early"}));
}

TEST(Locations, HaveTheIdentifiersOfWhatTheyHold) {
    const Library library = sample();
    const auto shots = locations(library);
    ASSERT_EQ(shots.size(), 5U);
    EXPECT_EQ(shots[2].id(), library.projects[1]->acts[2]->shots[0]->id);
    EXPECT_EQ(shots[4].id(), library.projects[2]->acts[0]->shots[0]->id);
    const auto sheets = callSheetLocations(library);
    ASSERT_EQ(sheets.size(), 3U);
    EXPECT_EQ(sheets[1].id(), library.projects[1]->callSheets()[1].id);
}

TEST(Locations, AreNoneOfALibraryWithoutShotsAndSheets) {
    Library library;
    EXPECT_TRUE(locations(library).empty());
    EXPECT_TRUE(callSheetLocations(library).empty());
    library.projects.emplace_back(Project::make("Empty"));
    library.projects[0].edit().acts.emplace_back(Act::make("Without shots"));
    EXPECT_TRUE(locations(library).empty());
    EXPECT_TRUE(callSheetLocations(library).empty());
}

TEST(Locations, ShareTheRecordsOfTheLibrary) {
    const Library library = sample();
    const auto shots = locations(library);
    ASSERT_EQ(shots.size(), 5U);
    EXPECT_EQ(shots[0].project.get(), &*library.projects[1]);
    EXPECT_EQ(shots[0].act.get(), &*library.projects[1]->acts[0]);
    EXPECT_EQ(shots[0].shot.get(), &*library.projects[1]->acts[0]->shots[0]);
    const auto sheets = callSheetLocations(library);
    ASSERT_EQ(sheets.size(), 3U);
    EXPECT_EQ(sheets[1].project.get(), &*library.projects[1]);
    EXPECT_EQ(sheets[1].sheet, &library.projects[1]->callSheets()[1]);
}

TEST(Locations, KeepTheShotsAsTheyWereWhenTheLibraryIsEdited) {
    Library library = sample();
    const auto before = locations(library);
    Project& project = library.projects[1].edit();
    project.title = "Renamed";
    project.acts[0].edit().title = "Renamed act";
    Shot& shot = project.acts[0].edit().shots[0].edit();
    shot.code = "99";
    shot.scheduledAt.reset();
    project.acts.erase(project.acts.begin() + 1, project.acts.end());

    ASSERT_EQ(before.size(), 5U);
    EXPECT_EQ(before[0].project->title, Text("First"));
    EXPECT_EQ(before[0].project->acts.size(), 3U);
    EXPECT_EQ(before[0].act->title, Text("One"));
    EXPECT_EQ(before[0].shot->code, Text("9"));
    EXPECT_EQ(before[0].shot->scheduledAt, later(noon, 600));
    EXPECT_EQ(before[3].shot->code, Text("1B"));

    const auto after = locations(library);
    EXPECT_EQ(namesOf(after), (Names{"99", "2", "1"}));
    EXPECT_EQ(after[0].project->title, Text("Renamed"));
    EXPECT_EQ(after[0].act->title, Text("Renamed act"));
    EXPECT_EQ(after[0].id(), before[0].id());
}

TEST(Locations, KeepTheCallSheetsAsTheyWereWhenTheLibraryIsEdited) {
    Library library = sample();
    const auto before = callSheetLocations(library);
    const auto start = before.at(0).sheet->calendarStart();
    Project& project = library.projects[1].edit();
    auto sheets = project.callSheets();
    sheets[0].set("company", "renamed");
    sheets[0].set("generalCall", "");
    sheets.resize(1);
    project.setCallSheets(sheets);
    library.projects.pop_back();

    ASSERT_EQ(before.size(), 3U);
    EXPECT_EQ((*before[0].sheet)["company"], Text("late"));
    EXPECT_EQ(before[0].sheet->calendarStart(), start);
    EXPECT_EQ((*before[1].sheet)["company"], Text("blank"));
    EXPECT_EQ((*before[2].sheet)["company"], Text("early"));

    const auto after = callSheetLocations(library);
    ASSERT_EQ(after.size(), 1U);
    EXPECT_EQ((*after[0].sheet)["company"], Text("renamed"));
    EXPECT_EQ(after[0].id(), before[0].id());
}

TEST(Locations, OutliveTheLibrary) {
    std::vector<ShotLocation> shots;
    std::vector<CallSheetLocation> sheets;
    {
        const Library library = sample();
        shots = locations(library);
        sheets = callSheetLocations(library);
    }
    EXPECT_EQ(namesOf(shots), (Names{"9", "2", "1", "1B", "1"}));
    EXPECT_EQ(shots.back().project->title, Text("Second"));
    ASSERT_EQ(sheets.size(), 3U);
    EXPECT_EQ((*sheets[2].sheet)["company"], Text("early"));
}

TEST(Locations, AreAsManyAsTheLibraryHasShotsAndSheets) {
    support::RandomRecords random(3);
    std::size_t seen = 0;
    for (int round = 0; round < 20; ++round) {
        const Library library = random.validLibrary(4);
        std::vector<Identifier> shots;
        std::vector<Identifier> sheets;
        for (const auto& project : library.projects) {
            for (const auto& shot : project->shots())
                shots.push_back(shot->id);
            for (const auto& sheet : project->callSheets())
                sheets.push_back(sheet.id);
        }
        std::vector<Identifier> found;
        for (const auto& location : locations(library))
            found.push_back(location.id());
        EXPECT_EQ(found, shots);
        found.clear();
        for (const auto& location : callSheetLocations(library))
            found.push_back(location.id());
        EXPECT_EQ(found, sheets);
        seen += shots.size() + sheets.size();
    }
    EXPECT_GT(seen, 40U);
}

}  // namespace
}  // namespace vantry::test
