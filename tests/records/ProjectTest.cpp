#include "VantryCore/records/Project.h"

#include <gtest/gtest.h>

namespace vantry {
namespace {

Project withOneShot() {
    Project project = Project::make("Film");
    project.acts = {Act::make("One")};
    project.acts[0].edit().insertShot({}, {}, "");
    return project;
}

TEST(Project, StartsWithTheDefaultsOfANewRecord) {
    const double before = Moment::now().seconds;
    const Project project = Project::make("Film");
    EXPECT_NE(project.id, Identifier());
    EXPECT_EQ(project.title, Text("Film"));
    EXPECT_FALSE(project.conflictKey);
    EXPECT_TRUE(project.director.empty() && project.notes.empty());
    EXPECT_FALSE(project.crewMembers || project.castMembers || project.callSheetRecords ||
                 project.relatedFileRecords);
    EXPECT_TRUE(project.defaults.values.empty());
    EXPECT_GE(project.createdAt.seconds, before);
    EXPECT_TRUE(project.acts.empty());
    EXPECT_NE(Project::make("Film").id, project.id);
}

TEST(Project, ReadsAnAbsentListAsAnEmptyOne) {
    const Project absent = Project::make("");
    Project empty = absent;
    empty.crewMembers.emplace();
    empty.castMembers.emplace();
    empty.callSheetRecords.emplace();
    empty.relatedFileRecords.emplace();
    EXPECT_TRUE(absent.crew().empty() && absent.cast().empty() && absent.callSheets().empty() &&
                absent.relatedFiles().empty());
    EXPECT_EQ(absent.crew(), empty.crew());
    EXPECT_FALSE(absent == empty);
}

TEST(Project, StoresAnEmptyListAsAbsent) {
    Project project = Project::make("");
    project.setCrew({CrewMember::make(CrewRole::grip)});
    project.setCast({CastMember::make()});
    project.setCallSheets({CallSheet{}});
    project.setRelatedFiles({RelatedFile{}});
    EXPECT_TRUE(project.crewMembers && project.castMembers && project.callSheetRecords &&
                project.relatedFileRecords);
    EXPECT_EQ(project.crew().size(), 1U);
    project.setCrew({});
    project.setCast({});
    project.setCallSheets({});
    project.setRelatedFiles({});
    EXPECT_FALSE(project.crewMembers || project.castMembers || project.callSheetRecords ||
                 project.relatedFileRecords);
}

TEST(Project, ListsTheShotsOfAllActsActByAct) {
    Project project = Project::make("");
    project.acts = {Act::make("1"), Act::make("2"), Act::make("3")};
    std::vector<Identifier> expected;
    for (const std::size_t act : {0U, 0U, 2U})
        expected.push_back(project.acts[act].edit().insertShot({}, {}, ""));
    std::vector<Identifier> found;
    for (const auto& shot : project.shots())
        found.push_back(shot->id);
    EXPECT_EQ(found, expected);
}

TEST(CaptureFirstValues, LearnsOnlyWhatIsNotThereYet) {
    Project project = Project::make("");
    project.defaults.set("iso", "400");
    project.defaults.set("wb", "  ");
    Parameters values;
    values.set("iso", "800");
    values.set("wb", " 5600 ");
    values.set("fps", "24");
    values.set("tint", "  ");
    values.set("focal", "50");
    project.captureFirstValues(values);
    EXPECT_EQ(project.defaults["iso"].utf8(), "400");
    EXPECT_EQ(project.defaults["wb"].utf8(), " 5600 ");
    EXPECT_EQ(project.defaults["fps"].utf8(), "24");
    EXPECT_EQ(project.defaults.values.find("tint"), nullptr);
    EXPECT_EQ(project.defaults.values.find("focal"), nullptr);
    EXPECT_EQ(project.defaults.values.size(), 3U);
}

TEST(AddTake, CapturesThenFillsThenLogs) {
    Project project = withOneShot();
    project.defaults.set("fps", "24");
    const Identifier act = project.acts[0]->id;
    const Identifier shot = project.acts[0]->shots[0]->id;
    editRecord(project.acts[0].edit().shots, shot)->parameters.set("iso", "800");
    const auto take = project.addTake(act, shot);
    ASSERT_TRUE(take);
    EXPECT_EQ(project.defaults["iso"], Text("800"));
    const Shot& filled = *project.acts[0]->shots[0];
    EXPECT_EQ(filled.parameters["fps"], Text("24"));
    EXPECT_EQ(filled.parameters["iso"], Text("800"));
    EXPECT_EQ(filled.parameters.values.size(), Parameters::inheritedKeys.size());
    ASSERT_EQ(filled.takes.size(), 1U);
    EXPECT_EQ(filled.takes[0]->id, *take);
    EXPECT_EQ(filled.takes[0]->parameters, filled.parameters);
    EXPECT_EQ(filled.takes[0]->number, 1);
}

TEST(AddTake, ChangesNothingWithoutAShotThatTakesOne) {
    Project project = withOneShot();
    const Identifier act = project.acts[0]->id;
    const Identifier shot = project.acts[0]->shots[0]->id;
    project.acts[0].edit().shots[0].edit().parameters.set("iso", "800");
    const Project before = project;
    EXPECT_FALSE(project.addTake(Identifier::random(), shot));
    EXPECT_FALSE(project.addTake(act, Identifier::random()));
    EXPECT_TRUE(project == before);
    project.acts[0].edit().shots[0].edit().cancelled = true;
    const Project cancelled = project;
    EXPECT_FALSE(project.addTake(act, shot));
    EXPECT_TRUE(project == cancelled);
}

TEST(AddTake, DoesNotReachASnapshotOfTheProject) {
    Project project = withOneShot();
    const Project snapshot = project;
    ASSERT_TRUE(project.addTake(project.acts[0]->id, project.acts[0]->shots[0]->id));
    EXPECT_TRUE(snapshot.acts[0]->shots[0]->takes.empty());
    EXPECT_TRUE(snapshot.acts[0]->shots[0]->parameters.values.empty());
}

RelatedFile reference(RelatedFileKind kind, const char* location, const char* name = "") {
    return RelatedFile::make(kind, name, location);
}

TEST(Attach, MakesAListOfOneOutOfAnAbsentList) {
    Project project = Project::make("");
    EXPECT_TRUE(project.attach(reference(RelatedFileKind::file, "/a")));
    ASSERT_TRUE(project.relatedFileRecords);
    EXPECT_EQ(project.relatedFiles().size(), 1U);
}

TEST(Attach, RefusesTheSameThingUnderAnotherName) {
    using Kind = RelatedFileKind;
    struct Case {
        RelatedFile first, second;
        bool attached;
    };
    const Case cases[] = {
        {reference(Kind::file, "/a/b", "x"), reference(Kind::file, "/a/b", "y"), false},
        {reference(Kind::file, "/a/b"), reference(Kind::file, "/a/./c/../b"), false},
        {reference(Kind::folder, "/a/b"), reference(Kind::folder, "/a/b/"), false},
        {reference(Kind::file, "/a/b"), reference(Kind::folder, "/a/b"), true},
        {reference(Kind::file, "/a/b"), reference(Kind::link, "/a/b"), true},
        {reference(Kind::file, "/a/caf\u00E9"), reference(Kind::file, "/a/cafe\u0301"), false},
        {reference(Kind::file, "/a/b"), reference(Kind::file, "/a/B"), true},
        {reference(Kind::link, "https://a.de/x"), reference(Kind::link, " https://a.de/x\n"), false},
        {reference(Kind::link, "https://a.de"), reference(Kind::link, "a.de"), false},
        {reference(Kind::link, "https://a.de/x"), reference(Kind::link, "https://a.de/y"), true},
        {reference(Kind::link, "https://a.de"), reference(Kind::link, "https://a.de/"), true},
        {reference(Kind::link, "javascript:x"), reference(Kind::link, "javascript:x"), false},
    };
    for (const auto& c : cases) {
        Project project = Project::make("");
        ASSERT_TRUE(project.attach(c.first));
        EXPECT_EQ(project.attach(c.second), c.attached)
            << c.first.location.utf8() << " " << c.second.location.utf8();
        EXPECT_EQ(project.relatedFiles().size(), c.attached ? 2U : 1U);
        EXPECT_TRUE(project.relatedFiles()[0] == c.first);
    }
}

TEST(Attach, KeepsTheOrderOfAttaching) {
    Project project = Project::make("");
    for (const auto* path : {"/c", "/a", "/b"})
        EXPECT_TRUE(project.attach(reference(RelatedFileKind::file, path)));
    EXPECT_EQ(project.relatedFiles()[0].location, Text("/c"));
    EXPECT_EQ(project.relatedFiles()[2].location, Text("/b"));
}

}  // namespace
}  // namespace vantry
