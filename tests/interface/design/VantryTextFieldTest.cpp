#include "Vantry/interface/design/VantryTextField.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QInputMethodEvent>
#include <QTest>

#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryMotionPreference.h"

namespace vantry::test {
namespace {

/// A field bound to a text that stands for the stored one.
class VantryTextFieldTest : public testing::Test {
protected:
    void SetUp() override {
        field.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&field));
        field.activateWindow();
        field.setFocus();
    }
    void bind(const QString& text) {
        stored = text;
        field.setBinding({[this] { return stored; },
                          [this](const QString& next) {
                              ++writes;
                              stored = next;
                          }});
    }

    VantryTextField field;
    std::optional<QString> stored;
    int writes = 0;
};

TEST_F(VantryTextFieldTest, PublishesWhatIsTyped) {
    bind(QStringLiteral("Night"));
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClicks(&field, QStringLiteral(" Ferry"));
    EXPECT_EQ(stored, QStringLiteral("Night Ferry"));
}

TEST_F(VantryTextFieldTest, PublishesWhatAnAssistiveToolEnters) {
    bind(QStringLiteral("Night"));
    QAccessibleEditableTextInterface* tool =
        QAccessible::queryAccessibleInterface(&field)->editableTextInterface();
    ASSERT_NE(tool, nullptr);
    tool->insertText(5, QStringLiteral(" Ferry"));
    EXPECT_EQ(stored, QStringLiteral("Night Ferry"));
    tool->replaceText(0, 5, QStringLiteral("Day"));
    EXPECT_EQ(stored, QStringLiteral("Day Ferry"));
    tool->deleteText(3, 9);
    EXPECT_EQ(stored, QStringLiteral("Day"));
}

TEST_F(VantryTextFieldTest, ATextWithLineEndsIsNotTouched) {
    const QString text =
        QStringLiteral("one\r\ntwo\nthree\u2028four\u2029five") + QChar(u'\0') + QStringLiteral("six");
    bind(text);
    field.clearFocus();
    field.setFocus();
    field.synchronize();
    EXPECT_EQ(writes, 0);
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClicks(&field, QStringLiteral("!"));
    EXPECT_EQ(stored, text + QLatin1Char('!'));
}

TEST_F(VantryTextFieldTest, AVeryLongTextIsKeptWhole) {
    const QString text(100000, QLatin1Char('x'));
    bind(text);
    QTest::keyClick(&field, Qt::Key_Home);
    QTest::keyClicks(&field, QStringLiteral("y"));
    EXPECT_EQ(stored, QLatin1Char('y') + text);
}

TEST_F(VantryTextFieldTest, AnOutsideTextLeavesTheCaretWhereItCanStand) {
    bind(QStringLiteral("A long title"));
    field.setCursorPosition(6);
    stored = QStringLiteral("A longer title");
    field.synchronize();
    EXPECT_EQ(field.text(), *stored);
    EXPECT_EQ(field.cursorPosition(), 6);
    stored = QStringLiteral("A");
    field.synchronize();
    EXPECT_EQ(field.cursorPosition(), 1);
    EXPECT_EQ(writes, 0);
}

TEST_F(VantryTextFieldTest, AnOpenCompositionIsNotDisturbed) {
    bind(QStringLiteral("ab"));
    QTest::keyClick(&field, Qt::Key_End);
    QInputMethodEvent compose(QStringLiteral("zhong"), {});
    QApplication::sendEvent(&field, &compose);
    stored = QStringLiteral("abc");
    field.synchronize();
    EXPECT_EQ(field.text(), QStringLiteral("ab"));
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("中"));
    QApplication::sendEvent(&field, &commit);
    EXPECT_EQ(stored, QStringLiteral("abc中")) << "the change from outside is still there";
    field.synchronize();
    EXPECT_EQ(field.text(), QStringLiteral("abc中"));
}

TEST_F(VantryTextFieldTest, ARecordThatIsGoneIsNotWritten) {
    bind(QStringLiteral("title"));
    stored.reset();
    QTest::keyClicks(&field, QStringLiteral("x"));
    field.synchronize();
    EXPECT_EQ(writes, 0);
}

TEST_F(VantryTextFieldTest, ItsTitleIsThereWhileThereIsNothingElse) {
    field.setTitle(QStringLiteral("Tom & Jerry <b>"));
    EXPECT_TRUE(field.showsTitle());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&field)->text(QAccessible::Name),
              QStringLiteral("Tom & Jerry <b>"));
    QTest::keyClicks(&field, QStringLiteral("a"));
    EXPECT_FALSE(field.showsTitle());
    field.clear();
    EXPECT_TRUE(field.showsTitle());
    QInputMethodEvent compose(QStringLiteral("zhong"), {});
    QApplication::sendEvent(&field, &compose);
    EXPECT_FALSE(field.showsTitle()) << "what is being composed has the place";
    QInputMethodEvent cancel;
    QApplication::sendEvent(&field, &cancel);
    EXPECT_TRUE(field.showsTitle());
    EXPECT_EQ(field.childAt(20, 20), nullptr) << "nothing lies over the field";
}

TEST_F(VantryTextFieldTest, ALabelNamesItBeforeItsTitleDoes) {
    LabeledInput input;
    input.setCaption(QStringLiteral("Planned duration"));
    input.field().setTitle(QStringLiteral("min"));
    EXPECT_EQ(input.field().accessibleName(), QStringLiteral("Planned duration"));
}

/// The darkest pixels of a row say how wide its text is.
int inked(const QImage& image, int left, int right) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = left; x < right; ++x)
            count += image.pixelColor(x, y).lightness() < 200 ? 1 : 0;
    return count;
}

TEST_F(VantryTextFieldTest, ItLooksLikeAField) {
    const QPalette before = QApplication::palette();
    QApplication::setPalette(Palette::light().controls());
    VantryMotionPreference preference;
    preference.setChoice(true);
    field.resize(200, field.minimumHeight());
    EXPECT_EQ(field.height(), 44);
    EXPECT_EQ(field.font().pixelSize(), 16);
    const auto seen = [this](int x, int y) { return field.grab().toImage().pixelColor(x, y); };
    EXPECT_EQ(seen(0, 22), Palette::light().link) << "it has the keyboard";
    EXPECT_EQ(seen(1, 22), Palette::light().link) << "two wide";
    EXPECT_EQ(seen(2, 22), Palette::light().card);
    field.clearFocus();
    EXPECT_EQ(seen(0, 22), Palette::light().rule);
    EXPECT_EQ(seen(1, 22), Palette::light().card) << "one wide";
    field.setText(QStringLiteral("|||||"));
    const QImage image = field.grab().toImage();
    EXPECT_EQ(inked(image, 2, 12), 0);
    EXPECT_GT(inked(image, 12, 16), 0) << "twelve in";
    QApplication::setPalette(before);
}

TEST_F(VantryTextFieldTest, APlainOneHasNoSurfaceAndABoldTitle) {
    const QPalette before = QApplication::palette();
    QApplication::setPalette(Palette::light().controls());
    VantryTextField plain(VantryTextField::Look::plain);
    VantryTextField framed;
    for (VantryTextField* shown : {&plain, &framed}) {
        shown->resize(300, 44);
        shown->setTitle(QStringLiteral("Image"));
    }
    const QImage image = plain.grab().toImage();
    EXPECT_EQ(image.pixelColor(150, 20), Palette::light().canvas);
    EXPECT_EQ(image.pixelColor(150, 43), Palette::light().rule);
    EXPECT_GT(inked(image, 0, 8), 0) << "it begins at the edge";
    EXPECT_GT(inked(image, 0, 200), inked(framed.grab().toImage(), 0, 200));
    QApplication::setPalette(before);
}

}  // namespace
}  // namespace vantry::test
