#include "VantryCore/persistence/LibraryValidation.h"

#include <functional>
#include <limits>

#include <gtest/gtest.h>

#include "VantryCore/persistence/VantryError.h"
#include "tests/support/RandomEdits.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

using Limits = std::numeric_limits<double>;

bool passes(const Library& library) {
    try {
        validate(library);
    } catch (const VantryError& failure) {
        EXPECT_EQ(failure.which(), VantryError::Case::invalidBackup);
        return false;
    }
    return true;
}

bool passesAfter(const Library& library, const Library& valid) {
    try {
        KnownValid known;
        known.accept(valid);
        known.accept(library);
    } catch (const VantryError& failure) {
        EXPECT_EQ(failure.which(), VantryError::Case::invalidBackup);
        return false;
    }
    return true;
}

Project& project(Library& library) {
    return library.projects[0].edit();
}
Act& act(Library& library) {
    return project(library).acts[0].edit();
}
Shot& shot(Library& library) {
    return act(library).shots[0].edit();
}
VantryTake& take(Library& library) {
    return shot(library).takes[0].edit();
}
CallSheet& sheet(Library& library) {
    return project(library).callSheetRecords->front();
}
RelatedFile& reference(Library& library) {
    return project(library).relatedFileRecords->front();
}

struct Case {
    std::string name;
    bool valid;
    std::function<void(Library&)> change;
};

/// Changes the complete library in each way and asks both overloads.
void expectEach(const std::vector<Case>& cases) {
    const Library complete = support::completeLibrary();
    for (const auto& c : cases) {
        Library library = complete;
        c.change(library);
        EXPECT_EQ(passes(library), c.valid) << c.name;
        EXPECT_EQ(passesAfter(library, complete), c.valid) << c.name << ", by the differences";
        EXPECT_EQ(passesAfter(library, Library{}), c.valid) << c.name << ", after an empty library";
    }
}

TEST(Validation, PassesNewAndCompleteLibraries) {
    EXPECT_TRUE(passes(Library{}));
    EXPECT_TRUE(passes(support::completeLibrary()));
    EXPECT_TRUE(passes(support::sampleLibrary()));
    for (std::uint64_t seed = 0; seed < 50; ++seed)
        EXPECT_TRUE(passes(support::RandomRecords(seed).validLibrary())) << seed;
}

TEST(Validation, KnowsOneFormatAndOneVersion) {
    std::vector<Case> cases;
    for (const std::string format : {"", "vantry", "Vantry ", " Vantry", "Vantry2", "VANTRY"})
        cases.push_back({"format " + format, false, [=](Library& l) { l.format = Text(format); }});
    for (const std::int64_t version : {0, 2, -1, 10})
        cases.push_back(
            {"version " + std::to_string(version), false, [=](Library& l) { l.version = version; }});
    cases.push_back({"no change", true, [](Library&) {}});
    expectEach(cases);
}

TEST(Validation, AllowsFewerThanTenThousandProjects) {
    Library library;
    for (std::size_t i = 0; i < 9999; ++i)
        library.projects.emplace_back(Project::make(""));
    EXPECT_TRUE(passes(library));
    const Library valid = library;
    library.projects.emplace_back(Project::make(""));
    EXPECT_FALSE(passes(library));
    EXPECT_FALSE(passesAfter(library, valid));
}

TEST(Validation, KeepsAShotWithinItsLimits) {
    std::vector<Case> cases;
    for (const auto& [minutes, valid] :
         std::vector<std::pair<std::int64_t, bool>>{{0, false},
                                                    {-1, false},
                                                    {1, true},
                                                    {30, true},
                                                    {10080, true},
                                                    {10081, false},
                                                    {std::numeric_limits<std::int64_t>::max(), false},
                                                    {std::numeric_limits<std::int64_t>::min(), false}})
        cases.push_back({"minutes " + std::to_string(minutes), valid,
                         [m = minutes](Library& l) { shot(l).durationMinutes = m; }});
    for (const double bad : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()})
        cases.push_back({"scheduled never", false, [=](Library& l) { shot(l).scheduledAt = Moment{bad}; }});
    for (const double good : {0.0, -1e300, Limits::max()})
        cases.push_back({"scheduled far", true, [=](Library& l) { shot(l).scheduledAt = Moment{good}; }});
    cases.push_back({"not scheduled", true, [](Library& l) { shot(l).scheduledAt.reset(); }});
    expectEach(cases);
}

TEST(Validation, DemandsAnImageKeyOfSixtyFourHexadecimalDigits) {
    const auto repeated = [](const std::string& piece, int times) {
        std::string text;
        for (int i = 0; i < times; ++i)
            text += piece;
        return text;
    };
    const std::vector<std::pair<std::string, bool>> keys{
        {repeated("a", 64), true},
        {repeated("F", 64), true},
        {repeated("0", 64), true},
        {repeated("9aF", 21) + "b", true},
        {repeated("a", 63), false},
        {repeated("a", 65), false},
        {"", false},
        {repeated("a", 63) + "g", false},
        {"g" + repeated("a", 63), false},
        {repeated("a", 63) + " ", false},
        {repeated("a", 63) + "-", false},
        {repeated("\uFF10", 64), true},
        {repeated("\uFF21", 32) + repeated("\uFF46", 32), true},
        {repeated("\uFF10", 63), false},
        {repeated("\uFF10", 65), false},
        {repeated("a", 63) + "\uFF27", false},
        {repeated("a", 63) + "\u0661", false},
        {repeated("a", 63) + "\u00E9", false},
        {repeated("a", 64) + "\u0301", false},
        {repeated("\U0001F3AC", 16), false},
        {repeated("a", 64) + std::string(1, '\0'), false},
    };
    std::vector<Case> cases;
    for (const auto& [key, valid] : keys)
        cases.push_back({"key " + key, valid, [k = key](Library& l) { shot(l).imageKey = Text(k); }});
    cases.push_back({"no key", true, [](Library& l) { shot(l).imageKey.reset(); }});
    expectEach(cases);
}

TEST(Validation, KeepsPointsInsideTheImage) {
    std::vector<Case> cases;
    for (const auto& [value, valid] : std::vector<std::pair<double, bool>>{{0, true},
                                                                           {1, true},
                                                                           {-0.0, true},
                                                                           {0.5, true},
                                                                           {1.0000001, false},
                                                                           {1.0000000000000002, false},
                                                                           {0.9999999999999999, true},
                                                                           {-5e-324, false},
                                                                           {5e-324, true},
                                                                           {Limits::quiet_NaN(), false},
                                                                           {Limits::infinity(), false},
                                                                           {-Limits::infinity(), false}}) {
        cases.push_back({"x " + std::to_string(value), valid,
                         [v = value](Library& l) { shot(l).strokes[0].points[1].x = v; }});
        cases.push_back({"y " + std::to_string(value), valid,
                         [v = value](Library& l) { shot(l).strokes[0].points[1].y = v; }});
    }
    cases.push_back({"a stroke without points", true, [](Library& l) { shot(l).strokes[0].points.clear(); }});
    expectEach(cases);
}

TEST(Validation, KeepsATakeWithinItsLimits) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    std::vector<Case> cases;
    for (const std::int64_t stars : {-1, 0, 5, 6})
        cases.push_back({"stars " + std::to_string(stars), stars >= 0 && stars <= 5,
                         [=](Library& l) { take(l).stars = stars; }});
    for (const std::int64_t number : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1}, most}) {
        const bool valid = number >= 1;
        const std::string name = std::to_string(number);
        cases.push_back({"number " + name, valid, [=](Library& l) { take(l).number = number; }});
        cases.push_back({"camera " + name, valid, [=](Library& l) { take(l).cameraNumber = number; }});
        cases.push_back({"sound " + name, valid, [=](Library& l) { take(l).soundNumber = number; }});
    }
    cases.push_back({"no camera and no sound", true, [](Library& l) {
                         take(l).cameraNumber.reset();
                         take(l).soundNumber.reset();
                     }});
    for (const double bad : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()})
        cases.push_back({"made never", false, [=](Library& l) { take(l).createdAt.seconds = bad; }});
    expectEach(cases);
}

TEST(Validation, KnowsWhereAReferenceMayPoint) {
    using Kind = RelatedFileKind;
    struct Place {
        Kind kind;
        const char* location;
        bool valid;
    };
    const Place places[] = {
        {Kind::file, "/a/b.txt", true},      {Kind::file, "/", true},
        {Kind::file, "a.txt", false},        {Kind::file, "", false},
        {Kind::file, " /a", false},          {Kind::file, "~/a", false},
        {Kind::file, "https://a.de", false}, {Kind::folder, "/a", true},
        {Kind::folder, "C:\\a", false},      {Kind::folder, "a/", false},
        {Kind::link, "https://a.de", true},  {Kind::link, "a.de", true},
        {Kind::link, "mailto:m@a.de", true}, {Kind::link, "", false},
        {Kind::link, "  ", false},           {Kind::link, "javascript:x", false},
        {Kind::link, "DATA:x", false},       {Kind::link, "https://", false},
        {Kind::link, "/a/b", false},
    };
    std::vector<Case> cases;
    for (const auto& place : places)
        cases.push_back({place.location, place.valid, [=](Library& l) {
                             reference(l).kind = place.kind;
                             reference(l).location = place.location;
                         }});
    expectEach(cases);
}

TEST(Validation, KeepsACallSheetOnAKnownCalendar) {
    std::vector<Case> cases;
    for (const std::string zone : {"", "Mars/Phobos", "CST-8", "Not a zone", "上海", "localtime",
                                   "/usr/share/zoneinfo/UTC", "america/new_york", "Etc/Unknown"})
        cases.push_back({"zone " + zone, false, [=](Library& l) { sheet(l).timeZoneID = Text(zone); }});
    for (const std::string zone : {"UTC", "America/Ciudad_Juarez", "Asia/Shanghai"})
        cases.push_back({"zone " + zone, true, [=](Library& l) { sheet(l).timeZoneID = Text(zone); }});
    for (const double bad : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()})
        cases.push_back({"date never", false, [=](Library& l) { sheet(l).date.seconds = bad; }});
    cases.push_back({"date far", true, [](Library& l) { sheet(l).date.seconds = 1e300; }});
    cases.push_back({"any field", true, [](Library& l) { sheet(l).set("unknown", "25:99"); }});
    cases.push_back(
        {"any source", true, [](Library& l) { sheet(l).people[0].sourceID = sheet(l).people[0].id; }});
    expectEach(cases);
}

TEST(Validation, RefusesAProjectMadeNever) {
    expectEach({{"infinite", false, [](Library& l) { project(l).createdAt.seconds = Limits::infinity(); }},
                {"no number", false, [](Library& l) { project(l).createdAt.seconds = Limits::quiet_NaN(); }},
                {"before the epoch", true, [](Library& l) { project(l).createdAt.seconds = -1e9; }}});
}

TEST(Validation, DoesNotAskForWhatIsNotDemanded) {
    expectEach({
        {"empty texts", true,
         [](Library& l) {
             project(l).title = project(l).director = act(l).title = shot(l).code = shot(l).title = "";
             take(l).notes = sheet(l).people[0].name = reference(l).name = "";
         }},
        {"two shots with one code", true,
         [](Library& l) { act(l).shots.emplace_back(Shot::make(shot(l).code, "", {})); }},
        {"two takes with one number", true,
         [](Library& l) {
             const VantryTake& first = take(l);
             shot(l).takes.emplace_back(VantryTake::make(first.number, {}, {}, SoundMode::sync, {}));
         }},
        {"numbers that do not fit the mode", true,
         [](Library& l) { take(l).soundMode = SoundMode::roomTone; }},
        {"any conflict key", true, [](Library& l) { act(l).conflictKey = ""; }},
        {"two strokes with one identifier", true,
         [](Library& l) { shot(l).strokes.push_back(shot(l).strokes[0]); }},
        {"a stroke with the identifier of its shot", true,
         [](Library& l) { shot(l).strokes[0].id = shot(l).id; }},
        {"empty lists of people", true,
         [](Library& l) {
             project(l).crewMembers.emplace().clear();
             project(l).castMembers.emplace().clear();
         }},
    });
}

/// The identifier of one record of each kind that must be unique in the library.
const std::vector<std::pair<const char*, std::function<Identifier&(Library&)>>> identifiers{
    {"project", [](Library& l) -> Identifier& { return project(l).id; }},
    {"crew member", [](Library& l) -> Identifier& { return project(l).crewMembers->front().id; }},
    {"cast member", [](Library& l) -> Identifier& { return project(l).castMembers->front().id; }},
    {"reference", [](Library& l) -> Identifier& { return reference(l).id; }},
    {"call sheet", [](Library& l) -> Identifier& { return sheet(l).id; }},
    {"row", [](Library& l) -> Identifier& { return sheet(l).people[0].id; }},
    {"act", [](Library& l) -> Identifier& { return act(l).id; }},
    {"shot", [](Library& l) -> Identifier& { return shot(l).id; }},
    {"take", [](Library& l) -> Identifier& { return take(l).id; }},
};

TEST(Validation, RefusesOneIdentifierForTwoRecordsOfAnyKinds) {
    std::vector<Case> cases;
    for (const auto& [name, of] : identifiers)
        for (const auto& [otherName, other] : identifiers)
            cases.push_back({std::string(name) + " like " + otherName, std::string(name) == otherName,
                             [of = of, other = other](Library& l) { of(l) = other(l); }});
    expectEach(cases);
}

TEST(Validation, RefusesOneIdentifierInTwoProjects) {
    Library two = support::completeLibrary();
    const Library one = two;
    two.projects.emplace_back(support::RandomRecords(1).validProject());
    ASSERT_TRUE(passes(two));
    for (const auto& [name, of] : identifiers) {
        Library library = one;
        const Identifier used = of(library);
        library = two;
        library.projects[1].edit().id = used;
        EXPECT_FALSE(passes(library)) << name;
        EXPECT_FALSE(passesAfter(library, two)) << name;
    }
}

TEST(Validation, RefusesOneIdentifierTwiceInOneList) {
    expectEach({
        {"projects", false, [](Library& l) { l.projects.push_back(l.projects[0]); }},
        {"acts", false, [](Library& l) { project(l).acts.push_back(project(l).acts[0]); }},
        {"shots", false, [](Library& l) { act(l).shots.push_back(act(l).shots[0]); }},
        {"takes", false, [](Library& l) { shot(l).takes.push_back(shot(l).takes[0]); }},
        {"crew", false, [](Library& l) { project(l).crewMembers->push_back(project(l).crew()[0]); }},
        {"rows", false, [](Library& l) { sheet(l).people.push_back(sheet(l).people[0]); }},
    });
}

TEST(Validation, LooksAtTheLastRecordToo) {
    Library library = support::sampleLibrary();
    const Library valid = library;
    library.projects.back().edit().acts.back().edit().shots.back().edit().takes.back().edit().stars = 6;
    EXPECT_FALSE(passes(library));
    EXPECT_FALSE(passesAfter(library, valid));
}

}  // namespace
}  // namespace vantry
