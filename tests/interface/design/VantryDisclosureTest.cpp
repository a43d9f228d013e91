#include "Vantry/interface/design/VantryDisclosure.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QVariantAnimation>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/VantryMotionPreference.h"
#include "Vantry/interface/design/WorkspaceColumns.h"

namespace vantry::test {
namespace {

class VantryDisclosureTest : public testing::Test {
protected:
    void SetUp() override {
        preference.setChoice(true);
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(disclosure);
        column->addStretch();
        disclosure->setTexts(QStringLiteral("Tom & Jerry"), QStringLiteral("Open to view or edit"), true);
        disclosure->content().addWidget(input);
        input->setCaption(QStringLiteral("Lens"));
        window.resize(600, 400);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        settle();
    }
    static void settle() {
        // One turn for the request, one for the layout.
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
    [[nodiscard]] DisclosureHeader& header() { return *disclosure->findChild<DisclosureHeader*>(); }
    [[nodiscard]] QAccessibleInterface& spoken() { return *QAccessible::queryAccessibleInterface(&header()); }

    VantryMotionPreference preference;
    QWidget window;
    VantryDisclosure* disclosure = new VantryDisclosure(Glyph::sliders);
    LabeledInput* input = new LabeledInput;
};

TEST_F(VantryDisclosureTest, IsClosedAtFirstAndAsHighAsItsHeader) {
    EXPECT_FALSE(disclosure->isExpanded());
    EXPECT_EQ(disclosure->height(), 56);
    EXPECT_FALSE(input->isVisible());
}

TEST_F(VantryDisclosureTest, IsAsHighAsItsContentInEachWidth) {
    auto* form = new QWidget;
    auto* columns = new WorkspaceColumns(Metrics::formMinimum, Metrics::gapField, form);
    for (int count = 0; count < 6; ++count)
        columns->addWidget(new LabeledInput(form));
    disclosure->content().addWidget(form);
    disclosure->setExpanded(true);
    window.resize(window.width(), 2000);
    for (const int width : {900, 700, 2 * Metrics::formMinimum + 40, 300, 900}) {
        window.resize(width, 2000);
        settle();
        EXPECT_EQ(disclosure->height(), disclosure->heightForWidth(width)) << width;
        const int end = form->mapTo(disclosure, QPoint(0, form->height())).y();
        EXPECT_EQ(end + Metrics::paddingDisclosure, disclosure->height()) << width;
        EXPECT_EQ(form->height(), form->heightForWidth(form->width())) << width;
    }
}

TEST_F(VantryDisclosureTest, OpensAndClosesByPointerAndKeys) {
    QSignalSpy spy(disclosure, &VantryDisclosure::expandedChanged);
    QTest::mouseClick(&header(), Qt::LeftButton);
    settle();
    EXPECT_TRUE(disclosure->isExpanded());
    EXPECT_TRUE(input->isVisible());
    EXPECT_EQ(disclosure->height(), 56 + input->sizeHint().height() + 16);
    EXPECT_EQ(input->mapTo(disclosure, QPoint()), QPoint(16, 56));
    EXPECT_EQ(input->width(), 600 - 32);
    QTest::keyClick(&header(), Qt::Key_Space);
    EXPECT_FALSE(disclosure->isExpanded());
    QTest::keyClick(&header(), Qt::Key_Return);
    EXPECT_TRUE(disclosure->isExpanded());
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QApplication::sendEvent(&header(), &held);
    EXPECT_TRUE(disclosure->isExpanded()) << "a held key turns it once";
    EXPECT_EQ(spy.count(), 3);
}

TEST_F(VantryDisclosureTest, TellsAssistiveToolsItsStateInBothLanguages) {
    EXPECT_EQ(spoken().role(), QAccessible::Button);
    EXPECT_EQ(spoken().text(QAccessible::Name), QStringLiteral("Tom & Jerry"));
    for (const bool expanded : {false, true}) {
        disclosure->setExpanded(expanded);
        for (const bool english : {true, false}) {
            disclosure->setTexts(QStringLiteral("Tom & Jerry"), {}, english);
            const QString value = english
                                      ? (expanded ? QStringLiteral("Expanded") : QStringLiteral("Collapsed"))
                                      : (expanded ? QStringLiteral("已展开") : QStringLiteral("已收起"));
            EXPECT_EQ(spoken().text(QAccessible::Value), value);
            EXPECT_EQ(spoken().text(QAccessible::Description), value);
        }
        EXPECT_TRUE(spoken().state().expandable);
        EXPECT_EQ(spoken().state().expanded, expanded);
        EXPECT_EQ(spoken().state().collapsed, !expanded);
    }
    spoken().actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(disclosure->isExpanded()) << "a tool presses it as well";
}

TEST_F(VantryDisclosureTest, WhatIsClosedIsOutOfReach) {
    header().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&header(), Qt::Key_Tab);
    EXPECT_FALSE(input->field().hasFocus());
    disclosure->setExpanded(true);
    input->field().setFocus();
    ASSERT_TRUE(input->field().hasFocus());
    disclosure->setExpanded(false);
    EXPECT_TRUE(header().hasFocus()) << "the keyboard stays with what is on screen";
}

TEST_F(VantryDisclosureTest, ABindingHoldsItsState) {
    bool open = true;
    int writes = 0;
    disclosure->setBinding({[&] { return open; },
                            [&](bool now) {
                                ++writes;
                                open = now;
                            }});
    EXPECT_TRUE(disclosure->isExpanded());
    EXPECT_TRUE(input->isVisible());
    EXPECT_EQ(writes, 0) << "showing it changes nothing";
    QTest::mouseClick(&header(), Qt::LeftButton);
    EXPECT_FALSE(open);
    EXPECT_EQ(writes, 1);
    disclosure->setExpanded(false);
    EXPECT_EQ(writes, 1) << "what is so already is not written";
    open = true;
    disclosure->synchronize();
    EXPECT_TRUE(input->isVisible());
}

TEST_F(VantryDisclosureTest, MovesAsADisclosure) {
    preference.setChoice(false);
    QTest::mouseClick(&header(), Qt::LeftButton);
    const auto moves = disclosure->findChildren<QVariantAnimation*>();
    QList<QVariantAnimation*> turning;
    for (QVariantAnimation* move : moves)
        if (move->duration() == 200)
            turning.append(move);
    ASSERT_EQ(turning.size(), 2) << "the chevron and the height";
    const auto heightAt = [&](int milliseconds) {
        for (QVariantAnimation* move : turning) {
            move->pause();
            move->setCurrentTime(milliseconds);
        }
        settle();
        return disclosure->height();
    };
    const int content = input->sizeHint().height() + 16;
    EXPECT_NEAR(heightAt(0), 56, 1);
    EXPECT_NEAR(heightAt(100), 56 + content / 2.0, 2);
    EXPECT_EQ(heightAt(200), 56 + content);
}

TEST_F(VantryDisclosureTest, ContentThatGrowsIsShownInFull) {
    disclosure->setExpanded(true);
    settle();
    const int before = disclosure->height();
    auto* note = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::wrapped);
    note->setPlain(QStringLiteral("Use a duration between 1 and 10080 minutes. ").repeated(8));
    disclosure->content().addWidget(note);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return disclosure->height() == before + 12 + note->heightForWidth(568); }));
}

}  // namespace
}  // namespace vantry::test
