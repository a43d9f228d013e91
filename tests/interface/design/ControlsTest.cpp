#include <gtest/gtest.h>

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/SegmentedChoice.h"
#include "Vantry/interface/design/StarRating.h"
#include "Vantry/interface/design/VantryType.h"
#include "Vantry/interface/design/VantryWorkLayout.h"
#include "tests/interface/design/HelpOver.h"

namespace vantry::test {
namespace {

const QString name = QStringLiteral("Tom & Jerry <b>");

QAccessibleInterface& spoken(QWidget& widget) {
    return *QAccessible::queryAccessibleInterface(&widget);
}

TEST(ControlsTest, AButtonShowsAndSpeaksItsTextAsItIs) {
    Button button(Button::Kind::quiet);
    button.setPlain(name);
    EXPECT_EQ(button.text(), QStringLiteral("Tom && Jerry <b>"));
    EXPECT_TRUE(button.shortcut().isEmpty());
    EXPECT_EQ(spoken(button).text(QAccessible::Name), name);
    EXPECT_EQ(spoken(button).role(), QAccessible::Button);
}

TEST(ControlsTest, ALabelShowsAndSpeaksItsTextAsItIs) {
    Label label(VantryType::Role::body);
    label.setPlain(name);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(spoken(label).text(QAccessible::Name), name);
    EXPECT_EQ(spoken(label).role(), QAccessible::StaticText);
    EXPECT_EQ(spoken(label).text(QAccessible::Description), QString());
}

TEST(ControlsTest, AWrappedLabelIsAsHighAsItsLines) {
    Label label(VantryType::Role::caption, &Palette::ink, Label::Length::wrapped);
    label.setPlain(QStringLiteral("MOS 为无声拍摄，Room Tone 仅记录声音。").repeated(4));
    const int line = VantryType::lineHeight(VantryType::Role::caption);
    const int wide = label.heightForWidth(2000);
    const int narrow = label.heightForWidth(200);
    EXPECT_EQ(wide, line);
    EXPECT_GE(narrow, 4 * line);
    EXPECT_EQ(narrow % line, 0);
    label.setPlain(QString(300, QLatin1Char('x')));
    EXPECT_GT(label.heightForWidth(200), line) << "a word that is too long is broken";
}

TEST(ControlsTest, LinesHaveTheSameHeightInEveryScript) {
    Label latin(VantryType::Role::title);
    latin.setPlain(QStringLiteral("Library"));
    Label chinese(VantryType::Role::title);
    chinese.setPlain(QStringLiteral("资料库"));
    EXPECT_EQ(latin.sizeHint().height(), chinese.sizeHint().height());
}

TEST(ControlsTest, AButtonIsPressedBySpaceAndReturn) {
    Button button(Button::Kind::quiet);
    button.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&button));
    QSignalSpy spy(&button, &Button::clicked);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(spy.count(), 3);
    QTest::keyClick(&button, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(spy.count(), 3) << "a shortcut's key is not the button's";
}

TEST(ControlsTest, AChoiceIsAGroupOfRadioButtons) {
    SegmentedChoice choice({{}, {}, {}}, SegmentedChoice::Size::regular);
    choice.setName(QStringLiteral("Take result"));
    choice.setTitles({QStringLiteral("Pending"), QStringLiteral("Good"), name});
    choice.setChosen(1);
    EXPECT_EQ(spoken(choice).role(), QAccessible::Grouping);
    EXPECT_EQ(spoken(choice).text(QAccessible::Name), QStringLiteral("Take result"));
    ASSERT_EQ(spoken(choice).childCount(), 3);
    for (int index = 0; index < 3; ++index) {
        QAccessibleInterface* segment = spoken(choice).child(index);
        EXPECT_EQ(segment->role(), QAccessible::RadioButton);
        EXPECT_EQ(segment->state().checked, index == 1);
    }
    EXPECT_EQ(spoken(choice).child(2)->text(QAccessible::Name), name);
}

TEST(ControlsTest, AChoiceTellsWhatThePersonChoseAndNothingElse) {
    SegmentedChoice choice({{}, {}, {}}, SegmentedChoice::Size::large);
    choice.setTitles({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    choice.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&choice));
    QSignalSpy spy(&choice, &SegmentedChoice::chosen);
    choice.setChosen(0);
    EXPECT_EQ(spy.count(), 0);
    const auto segments = choice.findChildren<Segment*>();
    for (const QString& action :
         {QAccessibleActionInterface::pressAction(), QAccessibleActionInterface::toggleAction()})
        spoken(*segments[1]).actionInterface()->doAction(action);
    ASSERT_EQ(spy.count(), 2) << "a tool chooses as well";
    spy.clear();
    QTest::mouseClick(segments[2], Qt::LeftButton);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].toInt(), 2);
    choice.activateWindow();
    segments[2]->setFocus();
    QTest::keyClick(segments[2], Qt::Key_Left);
    ASSERT_EQ(spy.count(), 2) << "the arrow keys choose";
    EXPECT_EQ(spy[1][0].toInt(), 1);
}

TEST(ControlsTest, AStarSpeaksItsValueAndCanBePressedByATool) {
    StarRating rating;
    rating.setStars(2);
    QSignalSpy spy(&rating, &StarRating::pressed);
    for (int number = 1; number <= StarRating::count; ++number) {
        StarButton& star = rating.star(number);
        star.setTexts(QStringLiteral("%1 stars").arg(number), QStringLiteral("Selected"),
                      QStringLiteral("Not selected"));
        setHelp(star, QStringLiteral("Click again to clear the rating"));
        EXPECT_EQ(spoken(star).role(), QAccessible::Button);
        EXPECT_EQ(spoken(star).text(QAccessible::Name), QStringLiteral("%1 stars").arg(number));
        const QString value = number <= 2 ? QStringLiteral("Selected") : QStringLiteral("Not selected");
        EXPECT_EQ(spoken(star).text(QAccessible::Value), value);
        EXPECT_EQ(spoken(star).text(QAccessible::Description), value);
    }
    spoken(rating.star(4)).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].toInt(), 4);
}

TEST(ControlsTest, AWorkLayoutHasTwoColumnsWhereThereIsRoom) {
    QWidget desk;
    auto* layout = new VantryWorkLayout(336, 24, &desk);
    auto* main = new Label(VantryType::Role::body, &Palette::ink, Label::Length::wrapped);
    main->setPlain(QStringLiteral("main ").repeated(200));
    auto* side = new Label(VantryType::Role::body, &Palette::ink, Label::Length::wrapped);
    side->setPlain(QStringLiteral("side ").repeated(20));
    layout->addWidget(main);
    layout->addWidget(side);
    const auto place = [&](int width) {
        desk.resize(width, layout->heightForWidth(width));
        layout->setGeometry(desk.rect());
    };
    place(840);
    EXPECT_EQ(main->width(), 480);
    EXPECT_EQ(side->geometry().topLeft(), QPoint(504, 0));
    EXPECT_EQ(desk.height(), std::max(main->heightForWidth(480), side->heightForWidth(336)));
    place(839);
    EXPECT_EQ(main->width(), 839);
    EXPECT_EQ(side->geometry().topLeft(), QPoint(0, main->heightForWidth(839) + 24));
    EXPECT_EQ(desk.height(), main->heightForWidth(839) + 24 + side->heightForWidth(839));
}

TEST(ControlsTest, HoverHelpIsSpokenWithoutItsMarkup) {
    Button button(Button::Kind::quiet);
    setHelp(button, name);
    EXPECT_TRUE(button.toolTip().endsWith(QStringLiteral(">Tom &amp; Jerry &lt;b&gt;</span>")));
    EXPECT_EQ(spoken(button).text(QAccessible::Description), name);
    setHelp(button, {});
    EXPECT_TRUE(button.toolTip().isEmpty());
}

TEST(ControlsTest, HoverHelpThatIsTheNameIsForTheEyesAlone) {
    Button button(Button::Kind::crumb);
    button.setPlain(name);
    setHelp(button, name);
    EXPECT_EQ(helpOver(button), asHelp(name));
    EXPECT_EQ(spoken(button).text(QAccessible::Name), name);
    EXPECT_TRUE(spoken(button).text(QAccessible::Description).isEmpty());
    const QString more = QStringLiteral("Says more");
    setHelp(button, more);
    EXPECT_EQ(helpOver(button), asHelp(more));
    EXPECT_EQ(spoken(button).text(QAccessible::Description), more);
    setHelp(button, {});
    EXPECT_TRUE(helpOver(button).isEmpty());
}

}  // namespace
}  // namespace vantry::test
