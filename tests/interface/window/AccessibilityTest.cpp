// Every control of every page has a role and a name, in both languages.

#include <QMenuBar>

#include "Vantry/interface/design/Sheet.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

struct Spoken {
    QAccessible::Role role;
    QString name;

    friend bool operator==(const Spoken&, const Spoken&) = default;
};

void PrintTo(const Spoken& spoken, std::ostream* out) {
    *out << spoken.role << ' ' << spoken.name.toStdString();
}

class AccessibilityTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
        store->setLanguage("en");
        settle();
    }
    /// What can be operated within a widget, in the order of the tree that tools walk through.
    static void collect(QAccessibleInterface* from, std::vector<Spoken>& found) {
        if (from == nullptr || from->state().invisible)
            return;
        const bool operable = from->state().focusable || from->role() == QAccessible::Button;
        if (operable && from->role() != QAccessible::Pane && from->role() != QAccessible::Client)
            found.push_back({from->role(), from->text(QAccessible::Name)});
        for (int at = 0; at < from->childCount(); ++at)
            collect(from->child(at), found);
    }
    [[nodiscard]] std::vector<Spoken> controls(QWidget& within) const {
        std::vector<Spoken> found;
        collect(QAccessible::queryAccessibleInterface(&within), found);
        std::erase_if(found, [](const Spoken& spoken) { return spoken.role == QAccessible::ScrollBar; });
        return found;
    }
    [[nodiscard]] QString frameName() const {
        return QStringLiteral("Enlarge storyboard · ") + toQString(shotRecord().code);
    }
    /// Whether something on the page has that name and description.
    [[nodiscard]] bool isSpoken(const QString& name, const QString& description) const {
        const QList<QWidget*> parts = page().findChildren<QWidget*>();
        return std::any_of(parts.cbegin(), parts.cend(), [&](const QWidget* part) {
            return part->isVisible() && part->accessibleName() == name &&
                   part->accessibleDescription() == description;
        });
    }
    void expectOnPage(const Route& place, const std::vector<Spoken>& expected) {
        go(place);
        const auto found = controls(page());
        for (const Spoken& spoken : expected)
            EXPECT_NE(std::find(found.begin(), found.end(), spoken), found.end())
                << testing::PrintToString(spoken);
        for (const Spoken& spoken : found)
            EXPECT_NE(std::find(expected.begin(), expected.end(), spoken), expected.end())
                << testing::PrintToString(spoken);
        EXPECT_EQ(found.size(), expected.size());
    }
};

TEST_F(AccessibilityTest, TheLibrary) {
    expectOnPage(Route::library(), {{QAccessible::Button, "New project"},
                                    {QAccessible::Button, "候车室"},
                                    {QAccessible::Button, "Open calendar"},
                                    {QAccessible::Button, "Search library"}});
}

TEST_F(AccessibilityTest, AProduction) {
    const std::vector<Spoken> heading{
        {QAccessible::ButtonMenu, "Export PDF"}, {QAccessible::RadioButton, "Overview"},
        {QAccessible::RadioButton, "People"},    {QAccessible::RadioButton, "Call Sheet"},
        {QAccessible::RadioButton, "Details"},   {QAccessible::RadioButton, "Related files"}};
    const auto with = [&](std::vector<Spoken> tab) {
        tab.insert(tab.begin(), heading.begin(), heading.end());
        return tab;
    };
    expectOnPage(Route::project(project), with({{QAccessible::Button, "第 1 幕"},
                                                {QAccessible::Button, "Add act"},
                                                {QAccessible::Button, "Open people board"},
                                                {QAccessible::Button, "Manage call sheets"}}));
    for (const char* tab : {"People", "Call Sheet", "Related files"}) {
        openTab(Route::project(project), QString::fromUtf8(tab));
        expectOnPage(Route::project(project), heading);
    }
    openTab(Route::project(project), QStringLiteral("Details"));
    expectOnPage(Route::project(project), with({{QAccessible::EditableText, "Project name"},
                                                {QAccessible::EditableText, "Director"},
                                                {QAccessible::EditableText, "Project notes"},
                                                {QAccessible::Button, "Project defaults"},
                                                {QAccessible::Button, "Delete project…"}}));
}

TEST_F(AccessibilityTest, AnAct) {
    const std::vector<Spoken> expected{
        {QAccessible::Button, "Add shot"},        {QAccessible::EditableText, "Act name"},
        {QAccessible::RadioButton, "List"},       {QAccessible::RadioButton, "Grid"},
        {QAccessible::Button, frameName()},       {QAccessible::Button, "Edit shot"},
        {QAccessible::Button, "New take"},        {QAccessible::ButtonMenu, "Shot actions"},
        {QAccessible::Button, "Delete this act…"}};
    expectOnPage(Route::act(project, act), expected);
    EXPECT_TRUE(isSpoken(toQString(shotRecord().code) + QStringLiteral(" 未命名镜头"),
                         QStringLiteral("1 Take · 0 ★ · To shoot")));
    clickOnPage(QStringLiteral("Grid"));
    expectOnPage(Route::act(project, act), expected);
}

TEST_F(AccessibilityTest, AShot) {
    expectOnPage(shotRoute(), {{QAccessible::Button, "Previous shot"},
                               {QAccessible::Button, "Choose shot"},
                               {QAccessible::Button, "Next shot"},
                               {QAccessible::Button, "New take · ⌘ Return"},
                               {QAccessible::Button, frameName()},
                               {QAccessible::Button, "Import"},
                               {QAccessible::Button, "Draw"},
                               {QAccessible::Button, "Remove image"},
                               {QAccessible::EditableText, "Code"},
                               {QAccessible::EditableText, "Title"},
                               {QAccessible::EditableText, "Image & action"},
                               {QAccessible::EditableText, "Framing"},
                               {QAccessible::EditableText, "Position / movement"},
                               {QAccessible::RadioButton, "Sync sound"},
                               {QAccessible::RadioButton, "MOS"},
                               {QAccessible::RadioButton, "Room Tone"},
                               {QAccessible::EditableText, "Sound"},
                               {QAccessible::CheckBox, "Schedule a shot"},
                               {QAccessible::Button, "Lens, camera & recording"},
                               {QAccessible::Button, "Take 01"},
                               {QAccessible::Button, "Insert shot after"},
                               {QAccessible::Button, "Cancel shot (keep records)"},
                               {QAccessible::Button, "Delete shot…"}});
}

TEST_F(AccessibilityTest, ATake) {
    expectOnPage(takeRoute(), {{QAccessible::Button, "Previous shot"},
                               {QAccessible::Button, "Choose shot"},
                               {QAccessible::Button, "Next shot"},
                               {QAccessible::Button, "New take · ⌘ Return"},
                               {QAccessible::RadioButton, "Pending"},
                               {QAccessible::RadioButton, "Good"},
                               {QAccessible::RadioButton, "NG"},
                               {QAccessible::Button, "1 stars"},
                               {QAccessible::Button, "2 stars"},
                               {QAccessible::Button, "3 stars"},
                               {QAccessible::Button, "4 stars"},
                               {QAccessible::Button, "5 stars"},
                               {QAccessible::EditableText, "On-set notes · write freely"},
                               {QAccessible::Button, frameName()},
                               {QAccessible::Button, "View shot plan"},
                               {QAccessible::RadioButton, "Sync sound"},
                               {QAccessible::RadioButton, "MOS"},
                               {QAccessible::RadioButton, "Room Tone"},
                               {QAccessible::EditableText, "Camera media names"},
                               {QAccessible::EditableText, "Mixer media name"},
                               {QAccessible::Button, "Camera, lens, recording & monitoring"},
                               {QAccessible::Button, "Back to shot"},
                               {QAccessible::Button, "Next shot"},
                               {QAccessible::Button, "Delete take…"}});
    const auto* group = QAccessible::queryAccessibleInterface(&get(QStringLiteral("Take result"), &page()));
    ASSERT_NE(group, nullptr);
}

TEST_F(AccessibilityTest, AMissingRecord) {
    expectOnPage(Route::project(Identifier::random()), {{QAccessible::Button, "Back to library"}});
    EXPECT_TRUE(shows(QStringLiteral("This record was deleted")));
}

TEST_F(AccessibilityTest, TheFrameOfTheWindow) {
    go(takeRoute());
    const auto found = controls(*window);
    for (const Spoken& spoken : std::vector<Spoken>{{QAccessible::Button, "Library"},
                                                    {QAccessible::Button, "Expand all"},
                                                    {QAccessible::Button, "Collapse"},
                                                    {QAccessible::Tree, "Contents"},
                                                    {QAccessible::TreeItem, "候车室"},
                                                    {QAccessible::Button, "New project"},
                                                    {QAccessible::Button, "Back"},
                                                    {QAccessible::Button, "Undo structure change"},
                                                    {QAccessible::Button, "Save"}})
        EXPECT_NE(std::find(found.begin(), found.end(), spoken), found.end())
            << testing::PrintToString(spoken);
    for (const Spoken& spoken : found)
        EXPECT_FALSE(spoken.name.isEmpty()) << spoken.role;
    const auto& library = get<QAbstractButton>(QStringLiteral("Library"), tree().parentWidget());
    EXPECT_FALSE(
        QAccessible::queryAccessibleInterface(&const_cast<QAbstractButton&>(library))->state().selected);
    go(Route::library());
    EXPECT_TRUE(
        QAccessible::queryAccessibleInterface(&const_cast<QAbstractButton&>(library))->state().selected);
}

TEST_F(AccessibilityTest, TheMenusOpenByTheirKey) {
    QTest::keyClick(window.get(), Qt::Key_F10);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->menuAction(), window->menuBar()->actions().constFirst());
    menu->close();
}

TEST_F(AccessibilityTest, TheSheet) {
    clickOnPage(QStringLiteral("New project"));
    auto* sheet = QApplication::activeModalWidget();
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(sheet)->text(QAccessible::Name),
              QStringLiteral("New project"));
    EXPECT_EQ(controls(*sheet), (std::vector<Spoken>{{QAccessible::EditableText, "Project name"},
                                                     {QAccessible::EditableText, "Director"},
                                                     {QAccessible::Button, "Cancel"},
                                                     {QAccessible::Button, "Create"}}));
}

TEST_F(AccessibilityTest, TheQuestion) {
    go(takeRoute());
    clickOnPage(QStringLiteral("Delete take…"));
    auto* sheet = topmost<QuestionSheet>();
    ASSERT_NE(sheet, nullptr);
    const auto* spoken = QAccessible::queryAccessibleInterface(sheet);
    EXPECT_EQ(spoken->role(), QAccessible::Dialog);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Delete this take? This can be undone."));
    EXPECT_EQ(controls(*sheet),
              (std::vector<Spoken>{{QAccessible::Button, "Cancel"}, {QAccessible::Button, "Delete"}}));
}

}  // namespace
}  // namespace vantry::test
