#include "tests/app/StoreFixture.h"

#include <QScopeGuard>

namespace vantry::test {
namespace {

using StoreLifecycleTest = StoreTest;

TEST_F(StoreLifecycleTest, AMissingFolderIsACleanEmptyLibraryAndAppearsWithTheFirstFlush) {
    const auto store = open();
    EXPECT_TRUE(store->library().projects.empty());
    EXPECT_FALSE(store->hasUnsavedChanges());
    EXPECT_FALSE(store->loadFailed());
    EXPECT_FALSE(fs::exists(root()));
    EXPECT_TRUE(store->flush());
    EXPECT_EQ(contentOf(file()), R"({"format":"Vantry","projects":[],"version":1})");
    EXPECT_FALSE(fs::exists(previous()));
}

TEST_F(StoreLifecycleTest, ALoadIsCleanAndLeavesSavedAtAbsent) {
    {
        const auto store = open();
        makeTake(*store);
        store->flush();
    }
    const auto time = fs::last_write_time(file());
    const auto store = open();
    EXPECT_EQ(store->library().projects.size(), 1U);
    EXPECT_FALSE(store->hasUnsavedChanges());
    EXPECT_FALSE(store->savedAt());
    EXPECT_TRUE(store->flush());
    EXPECT_FALSE(store->savedAt());
    EXPECT_EQ(fs::last_write_time(file()), time);
    type(*store, "now");
    store->flush();
    EXPECT_EQ(store->savedAt(), clock.now());
}

TEST_F(StoreLifecycleTest, AFileInAnotherFormIsAnEqualLibraryAndStaysUntouched) {
    const std::string pretty =
        "{\n  \"version\" : 1.0,\n  \"more\" : [null],\n  \"format\" : \"Vantry\",\n  \"projects\" : [ {\n"
        "    \"id\" : \"0a1b2c3d-0000-4000-8000-00000000000a\",\n    \"title\" : \"Cafe\\u0301\",\n"
        "    \"director\" : \"\", \"notes\" : \"\", \"defaults\" : { \"values\" : {} },\n"
        "    \"createdAt\" : 8.0e8, \"acts\" : [ ]\n  } ]\n}\n";
    put(file(), pretty);
    const auto time = fs::last_write_time(file());
    const auto store = open();
    ASSERT_FALSE(store->loadFailed());
    for (int i = 0; i < 100; ++i)
        EXPECT_TRUE(store->flush());
    const Identifier id = store->library().projects.at(0)->id;
    store->updateProject(id, [](Project& record) { record.title = "Caf\u00e9"; });
    clock.advance(1000);
    EXPECT_EQ(contentOf(file()), pretty);
    EXPECT_EQ(fs::last_write_time(file()), time);
    EXPECT_FALSE(fs::exists(previous()));
}

/// What stands at library.json, by the name of its defect.
struct Defect {
    const char* name;
    std::string bytes;
};

class UnreadableLibraryTest : public StoreTest, public testing::WithParamInterface<Defect> {
protected:
    void expectEverythingRefused(const std::function<void()>& expectUntouched) {
        const auto store = open();
        EXPECT_TRUE(store->loadFailed());
        ASSERT_TRUE(store->error());
        EXPECT_FALSE(store->error()->empty());
        EXPECT_FALSE(store->saveFailed());
        const Identifier id = store->addProject("refused", "");
        EXPECT_FALSE(store->project(id));
        EXPECT_FALSE(store->acceptCreation(VantryCreationAction::project()));
        store->addAct(id);
        store->addTake(id, store->addShot(id, id), id);
        store->markCheckpoint();
        store->removeProject(id);
        store->recordDefaults(id, {});
        bool ran = false;
        store->updateProject(id, [&](Project&) { ran = true; });
        EXPECT_FALSE(ran);
        EXPECT_FALSE(store->flush());
        clock.advance(5000);
        EXPECT_FALSE(store->flush());
        EXPECT_TRUE(store->library().projects.empty());
        EXPECT_FALSE(store->saveFailed());
        expectUntouched();
    }
};

TEST_P(UnreadableLibraryTest, IsNeverTouched) {
    put(file(), GetParam().bytes);
    put(previous(), "the generation before");
    expectEverythingRefused([&] {
        EXPECT_EQ(contentOf(file()), GetParam().bytes);
        EXPECT_EQ(contentOf(previous()), "the generation before");
        EXPECT_EQ(std::distance(fs::directory_iterator(root()), {}), 2);
    });
}

const std::string badStars =
    R"({"format":"Vantry","projects":[{"acts":[{"id":"10000000-0000-4000-8000-000000000002","shots":[{"cancelled":false,"code":"01","description":"","durationMinutes":30,"framing":"","id":"10000000-0000-4000-8000-000000000003","movement":"","parameters":{"values":{}},"soundDescription":"","soundMode":"sync","strokes":[],"takes":[{"cameraFile":"","createdAt":0,"id":"10000000-0000-4000-8000-000000000004","mixerFile":"","notes":"","number":1,"parameters":{"values":{}},"result":"pending","soundMode":"sync","stars":6}],"title":""}],"title":""}],"createdAt":0,"defaults":{"values":{}},"director":"","id":"10000000-0000-4000-8000-000000000001","notes":"","title":""}],"version":1})";

INSTANTIATE_TEST_SUITE_P(
    Defects, UnreadableLibraryTest,
    testing::Values(Defect{"invalidJson", "invalid JSON"}, Defect{"zeroBytes", ""},
                    Defect{"zeroFilled", std::string(4096, '\0')},
                    Defect{"truncated", R"({"format":"Vantry","projects":[],"vers)"},
                    Defect{"futureVersion", R"({"format":"Vantry","projects":[],"version":2})"},
                    Defect{"otherFormat", R"({"format":"Other","projects":[],"version":1})"},
                    Defect{"trailingBytes", R"({"format":"Vantry","projects":[],"version":1}})"},
                    Defect{"repeatedKey", R"({"format":"Vantry","projects":[],"projects":[],"version":1})"},
                    Defect{"sixStars", badStars}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(UnreadableLibraryTest, AFolderOfThatNameIsNeverTouched) {
    fs::create_directories(file());
    expectEverythingRefused([&] {
        EXPECT_TRUE(fs::is_directory(file()));
        EXPECT_TRUE(fs::is_empty(file()));
    });
}

TEST_F(StoreLifecycleTest, TheReasonOfAFailedLoadNamesThePlace) {
    put(file(),
        R"({"format":"Vantry","projects":[{"id":"10000000-0000-4000-8000-000000000001"}],"version":1})");
    const auto store = open();
    ASSERT_TRUE(store->error());
    EXPECT_NE(store->error()->utf8().find("projects[0]: missing key \"acts\""), std::string::npos)
        << store->error()->utf8();
}

TEST_F(StoreLifecycleTest, APassedRootWinsOverTheEnvironmentAndTheEnvironmentOverTheDefault) {
    const fs::path named = fs::path(folder.path().toStdString()) / "Named";
    qputenv("VANTRY_DATA_DIR", QByteArray::fromStdString(named.string()));
    const auto restore = qScopeGuard([] { qunsetenv("VANTRY_DATA_DIR"); });
    EXPECT_EQ(open()->root(), root());
    EXPECT_EQ(VantryStore(std::nullopt).root(), named);
    qputenv("VANTRY_DATA_DIR", QByteArray());
    // qputenv with nothing removes the variable on some systems; this is about an empty text.
    ::setenv("VANTRY_DATA_DIR", "", 1);
    EXPECT_EQ(VantryStore(std::nullopt).root(), fs::path());
}

TEST_F(StoreLifecycleTest, WithoutAnyNameTheUsersDataFolderIsUsed) {
    const QByteArray home = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    const auto restore = qScopeGuard([&] {
        if (home.isNull())
            qunsetenv("XDG_DATA_HOME");
        else
            qputenv("XDG_DATA_HOME", home);
    });
    EXPECT_EQ(VantryStore(std::nullopt).root(), fs::path(folder.path().toStdString()) / "Vantry");
    EXPECT_FALSE(fs::exists(fs::path(folder.path().toStdString()) / "Vantry"));
}

TEST_F(StoreLifecycleTest, ObserversHearOfAChangeOnceAndOfAnEqualValueNever) {
    const auto store = open();
    makeTake(*store);
    std::vector<VantryStore::Member> heard;
    QObject::connect(store.get(), &VantryStore::changed,
                     [&](VantryStore::Member member) { heard.push_back(member); });
    type(*store, "changed");
    EXPECT_EQ(heard, std::vector{VantryStore::Member::library});
    heard.clear();
    type(*store, "changed");
    store->setError(std::nullopt);
    store->setNotice(std::nullopt);
    store->setLanguage("zh");
    store->setAppearance("system");
    EXPECT_TRUE(heard.empty());
    store->setNotice(Text("done"));
    store->setNotice(Text("done"));
    EXPECT_EQ(heard, std::vector{VantryStore::Member::notice});
}

}  // namespace
}  // namespace vantry::test
