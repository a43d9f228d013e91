#include "Vantry/interface/shots/ParametersEditor.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "tests/support/Files.h"

namespace vantry::test {
namespace {

class ParametersEditorTest : public testing::Test {
protected:
    void SetUp() override {
        store = std::make_unique<VantryStore>(folder / "Data");
        store->setLanguage("en");
        editor = new ParametersEditor(
            {*store, [](const Route&) {}, [] {}},
            {[this]() -> std::optional<Parameters> { return isGone ? std::nullopt : std::optional(held); },
             [this](std::string_view key, const Text& value) {
                 ++writes;
                 held.set(key, value);
             }});
        auto* column = new QVBoxLayout(&window);
        column->addWidget(editor);
        column->addWidget(other);
        window.resize(800, 900);
        editor->refresh();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    [[nodiscard]] VantryTextField& field(const char* name) const {
        for (auto* line : editor->findChildren<VantryTextField*>())
            if (QAccessible::queryAccessibleInterface(line)->text(QAccessible::Name) ==
                QString::fromUtf8(name))
                return *line;
        throw std::runtime_error(name);
    }
    [[nodiscard]] QStringList titles() const {
        QStringList all;
        for (auto* line : editor->findChildren<VantryTextField*>())
            all.append(line->title());
        return all;
    }

    support::TemporaryFolder folder;
    std::unique_ptr<VantryStore> store;
    Parameters held;
    bool isGone = false;
    int writes = 0;
    QWidget window;
    QLineEdit* other = new QLineEdit;
    ParametersEditor* editor = nullptr;
};

TEST_F(ParametersEditorTest, HasAFieldForEachKeyInTheOrderOfItsSections) {
    for (const char* language : {"en", "zh"}) {
        store->setLanguage(language);
        editor->refresh();
        QStringList expected;
        QStringList sections;
        for (const ParameterSection& section : parameterSections()) {
            const auto text = [&](std::string_view zh, std::string_view en) {
                const auto shown = store->english() ? en : zh;
                return QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
            };
            sections.append(text(section.zh, section.en));
            for (const ParameterField& setting : section.fields)
                expected.append(text(setting.zh, setting.en));
        }
        EXPECT_EQ(titles(), expected);
        EXPECT_EQ(titles().size(), 16);
        for (const QString& name : sections) {
            bool found = false;
            for (auto* label : editor->findChildren<Label*>())
                found = found || label->text() == name;
            EXPECT_TRUE(found) << name.toStdString();
        }
    }
}

TEST_F(ParametersEditorTest, WritesWhatIsTypedUnderItsKey) {
    QTest::keyClicks(&field("ISO"), QStringLiteral("800"));
    QTest::keyClicks(&field("Monitoring LUT name / information"), QStringLiteral("a & <b>"));
    EXPECT_EQ(held["iso"], Text("800"));
    EXPECT_EQ(held["lut"], Text("a & <b>"));
    EXPECT_EQ(writes, 3 + 7) << "one for each key";
}

TEST_F(ParametersEditorTest, AnEmptiedFieldStoresTheEmptyText) {
    held.set("iso", "8");
    editor->refresh();
    EXPECT_EQ(field("ISO").text(), QStringLiteral("8"));
    EXPECT_EQ(writes, 0);
    field("ISO").selectAll();
    QTest::keyClick(&field("ISO"), Qt::Key_Backspace);
    EXPECT_EQ(writes, 1);
    Parameters expected;
    expected.set("iso", "");
    EXPECT_TRUE(held.values == expected.values);
}

TEST_F(ParametersEditorTest, ShowsWhatComesFromElsewhereAndWritesNothing) {
    held.set("fps", "24");
    held.set("unknown", "kept");
    editor->refresh();
    EXPECT_EQ(field("Frame rate (fps)").text(), QStringLiteral("24"));
    isGone = true;
    editor->refresh();
    EXPECT_EQ(writes, 0);
    EXPECT_EQ(held["unknown"], Text("kept"));
}

TEST_F(ParametersEditorTest, TellsWhenTheKeyboardHasLeftAField) {
    QSignalSpy finished(editor, &ParametersEditor::finished);
    field("ISO").setFocus();
    QTest::keyClicks(&field("ISO"), QStringLiteral("800"));
    EXPECT_EQ(finished.count(), 0);
    field("Tint").setFocus();
    EXPECT_EQ(finished.count(), 1);
    QTest::keyClicks(&field("Tint"), QStringLiteral("5"));
    other->setFocus();
    EXPECT_EQ(finished.count(), 2);
}

TEST_F(ParametersEditorTest, ReturnLeavesNoField) {
    QSignalSpy finished(editor, &ParametersEditor::finished);
    field("ISO").setFocus();
    QTest::keyClicks(&field("ISO"), QStringLiteral("800"));
    QTest::keyClick(&field("ISO"), Qt::Key_Return);
    EXPECT_EQ(finished.count(), 0);
    EXPECT_TRUE(field("ISO").hasFocus());
}

TEST_F(ParametersEditorTest, StandsInTwoColumnsWhereTheyFit) {
    const auto place = [&](const char* name) { return field(name).mapTo(&window, QPoint()); };
    QApplication::processEvents();
    EXPECT_EQ(place("Manufacturer").y(), place("Focal length (mm)").y());
    EXPECT_GT(place("Focal length (mm)").x(), place("Manufacturer").x());
    window.resize(400, 900);
    for (int turn = 0; turn < 3; ++turn)
        QApplication::processEvents();
    EXPECT_EQ(place("Manufacturer").x(), place("Focal length (mm)").x());
    EXPECT_GT(place("Focal length (mm)").y(), place("Manufacturer").y());
}

}  // namespace
}  // namespace vantry::test
