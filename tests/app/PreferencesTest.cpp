#include "tests/app/StoreFixture.h"

#include <QSettings>

namespace vantry::test {
namespace {

class PreferencesTest : public StoreTest {
protected:
    [[nodiscard]] QString settingsFile() const { return folder.filePath(QStringLiteral("preferences.ini")); }
    [[nodiscard]] std::unique_ptr<VantryStore> openWith(Preferences& preferences) {
        Surroundings around;
        around.clock = &clock;
        around.preferences = &preferences;
        return std::make_unique<VantryStore>(root(), around);
    }
};

TEST_F(PreferencesTest, WithoutAnyTheInterfaceIsChineseAndFollowsTheSystem) {
    StoredPreferences preferences(settingsFile());
    const auto store = openWith(preferences);
    EXPECT_EQ(store->language(), Text("zh"));
    EXPECT_FALSE(store->english());
    EXPECT_EQ(store->appearance(), Text("system"));
    EXPECT_FALSE(preferences.flag(Preferences::reduceMotionKey));
    EXPECT_FALSE(QFile::exists(settingsFile())) << "reading writes nothing";
}

TEST_F(PreferencesTest, AStoredTextIsTakenAsItIs) {
    StoredPreferences preferences(settingsFile());
    preferences.setText(Preferences::languageKey, "fr");
    preferences.setText(Preferences::appearanceKey, "sepia");
    const auto store = openWith(preferences);
    EXPECT_EQ(store->language(), Text("fr"));
    EXPECT_FALSE(store->english());
    EXPECT_EQ(store->appearance(), Text("sepia"));
}

TEST_F(PreferencesTest, EveryAssignmentIsWrittenAtOnceEqualOrNot) {
    StoredPreferences preferences(settingsFile());
    const auto store = openWith(preferences);
    store->setLanguage("zh");
    EXPECT_EQ(QSettings(settingsFile(), QSettings::IniFormat).value("VantryLanguage").toString(), "zh");
    store->setLanguage("en");
    store->setAppearance("dark");
    EXPECT_FALSE(store->reducesMotion());
    store->setReducesMotion(true);
    EXPECT_TRUE(store->reducesMotion());
    QSettings onDisk(settingsFile(), QSettings::IniFormat);
    EXPECT_EQ(onDisk.value("VantryLanguage").toString(), "en");
    EXPECT_EQ(onDisk.value("VantryAppearance").toString(), "dark");
    EXPECT_TRUE(onDisk.value("VantryReduceMotion").toBool());
    EXPECT_EQ(onDisk.allKeys().size(), 3);

    StoredPreferences again(settingsFile());
    const auto next = openWith(again);
    EXPECT_TRUE(next->english());
    EXPECT_EQ(next->appearance(), Text("dark"));
    EXPECT_TRUE(next->reducesMotion());
}

TEST_F(PreferencesTest, ChoicesCanBeMadeAfterAFailedLoad) {
    put(file(), "invalid JSON");
    StoredPreferences preferences(settingsFile());
    const auto store = openWith(preferences);
    ASSERT_TRUE(store->loadFailed());
    store->setLanguage("en");
    EXPECT_TRUE(store->english());
    EXPECT_EQ(contentOf(file()), "invalid JSON");
}

}  // namespace
}  // namespace vantry::test
