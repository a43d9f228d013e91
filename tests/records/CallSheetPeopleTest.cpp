#include <gtest/gtest.h>

#include "VantryCore/records/Project.h"

namespace vantry {
namespace {

Project production() {
    Project project = Project::make("Film");
    project.director = "Lin";
    project.setCrew({CrewMember::make(CrewRole::gaffer, "Mei", "unused"),
                     CrewMember::make(CrewRole::custom, "", " Dolly grip "),
                     CrewMember::make(CrewRole::custom, "Bo", "  ")});
    project.setCast({CastMember::make("Woman", "Ana"), CastMember::make("", "")});
    return project;
}

struct Row {
    Identifier source;
    std::string role, name;
    bool isCast;

    friend bool operator==(const Row&, const Row&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Row& row) {
        return out << row.source.text() << " " << row.role << " " << row.name << " " << row.isCast;
    }
};

std::vector<Row> rowsOf(const CallSheet& sheet) {
    std::vector<Row> rows;
    for (const auto& person : sheet.people)
        rows.push_back(
            {person.sourceID.value_or(Identifier()), person.role.utf8(), person.name.utf8(), person.isCast});
    return rows;
}

TEST(AddProjectPeople, AppendsDirectorCrewAndCast) {
    const Project project = production();
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    EXPECT_EQ(rowsOf(sheet), (std::vector<Row>{{project.id, "Director", "Lin", false},
                                               {project.crew()[0].id, "Gaffer", "Mei", false},
                                               {project.crew()[1].id, " Dolly grip ", "", false},
                                               {project.crew()[2].id, "Custom role", "Bo", false},
                                               {project.cast()[0].id, "Woman", "Ana", true},
                                               {project.cast()[1].id, "", "", true}}));
    CallSheet chinese;
    chinese.addProjectPeople(project, false);
    EXPECT_EQ(rowsOf(chinese)[0].role, "导演");
    EXPECT_EQ(rowsOf(chinese)[1].role, "灯光师");
    EXPECT_EQ(rowsOf(chinese)[3].role, "自定义职位");
    EXPECT_EQ(rowsOf(chinese)[4].role, "Woman");
}

TEST(AddProjectPeople, GivesEachRowAFreshIdentifierAndEmptyDayFacts) {
    const Project project = production();
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    std::vector<Identifier> ids;
    for (const auto& person : sheet.people) {
        EXPECT_NE(person.id, Identifier());
        EXPECT_NE(person.id, *person.sourceID);
        EXPECT_EQ(std::count(ids.begin(), ids.end(), person.id), 0);
        ids.push_back(person.id);
        EXPECT_TRUE(person.callTime.empty() && person.phone.empty() && person.makeup.empty() &&
                    person.wardrobe.empty() && person.ready.empty() && person.notes.empty());
    }
}

TEST(AddProjectPeople, AddsNothingTheSecondTime) {
    const Project project = production();
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    const CallSheet before = sheet;
    sheet.addProjectPeople(project, false);
    EXPECT_TRUE(sheet == before);
}

TEST(AddProjectPeople, TakesADirectorOfBlanksForADirectorAndAnEmptyOneForNone) {
    Project project = Project::make("");
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    EXPECT_TRUE(sheet.people.empty());
    project.director = "  ";
    sheet.addProjectPeople(project, true);
    EXPECT_EQ(rowsOf(sheet), (std::vector<Row>{{project.id, "Director", "  ", false}}));
}

TEST(AddProjectPeople, KeepsWhatIsThereAndAppendsWhoIsMissing) {
    const Project project = production();
    CallSheet sheet;
    CallSheetPerson byHand;
    byHand.id = Identifier::random();
    byHand.name = "Driver";
    CallSheetPerson follower;
    follower.id = Identifier::random();
    follower.sourceID = project.cast()[0].id;
    follower.name = "Old name";
    sheet.people = {byHand, follower};
    sheet.addProjectPeople(project, true);
    ASSERT_EQ(sheet.people.size(), 7U);
    EXPECT_TRUE(sheet.people[0] == byHand);
    EXPECT_TRUE(sheet.people[1] == follower);
    EXPECT_EQ(sheet.people[2].sourceID, project.id);
    EXPECT_EQ(sheet.people[6].sourceID, project.cast()[1].id);
}

TEST(AddProjectPeople, SkipsASecondPersonWithOneIdentifier) {
    Project project = production();
    project.castMembers->front().id = project.crewMembers->front().id;
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    EXPECT_EQ(sheet.people.size(), 5U);
    EXPECT_FALSE(sheet.people[1].isCast);
}

TEST(SyncProjectPeople, AppendsEverybodyToAnEmptySheet) {
    const Project project = production();
    CallSheet synced;
    EXPECT_EQ(synced.syncProjectPeople(project, true), (CallSheetSyncResult{6, 0}));
    CallSheet added;
    added.addProjectPeople(project, true);
    EXPECT_EQ(rowsOf(synced), rowsOf(added));
    EXPECT_EQ(synced.syncProjectPeople(project, true), (CallSheetSyncResult{0, 0}));
}

TEST(SyncProjectPeople, UpdatesNameRoleAndKindAndKeepsTheDaysFacts) {
    Project project = production();
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    auto& row = sheet.people[1];
    row.callTime = "07:00";
    row.phone = "1";
    row.makeup = "2";
    row.wardrobe = "3";
    row.ready = "4";
    row.notes = "5";
    row.isCast = true;
    const CallSheet before = sheet;
    project.crewMembers->front().name = "Mei Lin";
    EXPECT_EQ(sheet.syncProjectPeople(project, true), (CallSheetSyncResult{0, 1}));
    CallSheet expected = before;
    expected.people[1].name = "Mei Lin";
    expected.people[1].isCast = false;
    EXPECT_TRUE(sheet == expected);
}

TEST(SyncProjectPeople, CountsARowOnceHoweverMuchOfItDiffers) {
    Project project = production();
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    project.crewMembers->front() = CrewMember{project.crew()[0].id, CrewRole::grip, "", "New"};
    EXPECT_EQ(sheet.syncProjectPeople(project, true), (CallSheetSyncResult{0, 1}));
    EXPECT_EQ(rowsOf(sheet)[1], (Row{project.crew()[0].id, "Grip", "New", false}));
}

TEST(SyncProjectPeople, RewritesTitlesAfterALanguageChangeButNoCharacter) {
    const Project project = production();
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    // Director, gaffer and the blank custom role change; the custom title and the cast do not.
    EXPECT_EQ(sheet.syncProjectPeople(project, false), (CallSheetSyncResult{0, 3}));
    EXPECT_EQ(rowsOf(sheet)[0].role, "导演");
}

TEST(SyncProjectPeople, LeavesRowsOfPeopleWhoLeftAndRowsMadeByHand) {
    Project project = production();
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    CallSheetPerson byHand;
    byHand.id = Identifier::random();
    byHand.name = "Mei";
    sheet.people.insert(sheet.people.begin(), byHand);
    const CallSheet before = sheet;
    project.setCrew({});
    project.setCast({});
    project.director = "";
    EXPECT_EQ(sheet.syncProjectPeople(project, true), (CallSheetSyncResult{0, 0}));
    EXPECT_TRUE(sheet == before);
}

TEST(SyncProjectPeople, KeepsTheOrderOfTheSheetWhenTheProjectsPeopleTradePlaces) {
    Project project = production();
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    const CallSheet before = sheet;
    std::swap(project.crewMembers->at(0), project.crewMembers->at(2));
    EXPECT_EQ(sheet.syncProjectPeople(project, true), (CallSheetSyncResult{0, 0}));
    EXPECT_TRUE(sheet == before);
}

TEST(SyncProjectPeople, UpdatesAndCountsEachRowOfASharedSource) {
    Project project = production();
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    sheet.people.push_back(sheet.people[1]);
    sheet.people.back().id = Identifier::random();
    project.crewMembers->front().name = "New";
    EXPECT_EQ(sheet.syncProjectPeople(project, true), (CallSheetSyncResult{0, 2}));
    EXPECT_EQ(sheet.people.front().name, Text("Lin"));
    EXPECT_EQ(sheet.people[1].name, Text("New"));
    EXPECT_EQ(sheet.people.back().name, Text("New"));
}

TEST(SyncProjectPeople, TakesAnotherSpellingOfANameForTheSameName) {
    Project project = production();
    project.crewMembers->front().name = "Ren\u00E9";
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    project.crewMembers->front().name = "Rene\u0301";
    EXPECT_EQ(sheet.syncProjectPeople(project, true), (CallSheetSyncResult{0, 0}));
}

TEST(SyncProjectPeople, AppendsOnlyWhoIsNew) {
    Project project = production();
    CallSheet sheet;
    sheet.addProjectPeople(project, true);
    project.crewMembers->insert(project.crewMembers->begin(), CrewMember::make(CrewRole::editor, "Kim"));
    EXPECT_EQ(sheet.syncProjectPeople(project, true), (CallSheetSyncResult{1, 0}));
    EXPECT_EQ(rowsOf(sheet).back(), (Row{project.crew()[0].id, "Editor", "Kim", false}));
}

}  // namespace
}  // namespace vantry
