#include "Vantry/interface/routes/PageScrollMemory.h"

#include <functional>

#include <gtest/gtest.h>

#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include "Vantry/interface/routes/PageEnvironment.h"

namespace vantry::test {
namespace {

using State = PageScrollMemory::State;

const Route here = Route::act(Identifier::random(), Identifier::random());
const Route elsewhere = Route::library();

/// A page of 3000 by 3000 points in a window of 300 by 200, with its probe.
class PageScrollMemoryTest : public testing::Test {
protected:
    void SetUp() override {
        area = new QScrollArea(&page);
        auto* fill = new QVBoxLayout(&page);
        fill->setContentsMargins(0, 0, 0, 0);
        fill->addWidget(area);
        content = new QWidget;
        content->resize(3000, 3000);
        area->setWidget(content);
        probe = new PageScrollMemory(content);
        new PageEnvironment(page, memory, here);
        memory->active = here;
        memory->onChange([this] { ++changes; });
        window.resize(300, 200);
        page.resize(300, 200);
        page.hide();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    static void settle() {
        for (int turn = 0; turn < 4; ++turn)
            QCoreApplication::processEvents();
    }
    void show() {
        page.show();
        settle();
    }
    /// Shows the page and does something between the two deferred steps: behind the one that attaches the
    /// probe and in front of the one that restores.
    void showAndBetween(const std::function<void()>& action) {
        page.show();
        QMetaObject::invokeMethod(&window, action, Qt::QueuedConnection);
        settle();
    }
    void scroll(int y) const { area->verticalScrollBar()->setValue(y); }
    [[nodiscard]] int y() const { return area->verticalScrollBar()->value(); }

    QWidget window;
    QWidget page{&window};
    QPointer<QScrollArea> area;
    QWidget* content = nullptr;
    QPointer<PageScrollMemory> probe;
    std::shared_ptr<PageMemory> memory = std::make_shared<PageMemory>();
    int changes = 0;
};

TEST_F(PageScrollMemoryTest, IsDetachedThenRestoringThenRecording) {
    EXPECT_EQ(probe->state(), State::detached);
    page.show();
    EXPECT_EQ(probe->state(), State::detached) << "a page that just appeared is not laid out yet";
    State between = State::detached;
    showAndBetween([&] { between = probe->state(); });
    EXPECT_EQ(between, State::restoring);
    EXPECT_EQ(probe->state(), State::recording);
    page.hide();
    EXPECT_EQ(probe->state(), State::detached);
}

TEST_F(PageScrollMemoryTest, GoesFromRestoringBackToDetached) {
    State before = State::detached;
    State after = State::recording;
    showAndBetween([&] {
        before = probe->state();
        page.hide();
        after = probe->state();
    });
    EXPECT_EQ(before, State::restoring);
    EXPECT_EQ(after, State::detached);
    EXPECT_EQ(probe->state(), State::detached) << "the queued step is void";
}

TEST_F(PageScrollMemoryTest, FindsThePageWhereItWasLeft) {
    memory->offsets[here] = {30, 400};
    show();
    EXPECT_EQ(y(), 400);
    EXPECT_EQ(area->horizontalScrollBar()->value(), 30);
    EXPECT_EQ(memory->offsets.at(here), (ScrollOrigin{30, 400}));
}

TEST_F(PageScrollMemoryTest, RecordsEveryMoveAndTellsNobody) {
    show();
    EXPECT_TRUE(memory->offsets.empty());
    for (const int y : {1, 250, 249, 0}) {
        if (y == 0)
            scroll(5);
        scroll(y);
        EXPECT_EQ(memory->offsets.at(here), (ScrollOrigin{0, static_cast<double>(y)}));
    }
    area->horizontalScrollBar()->setValue(12);
    EXPECT_EQ(memory->offsets.at(here), (ScrollOrigin{12, 0}));
    EXPECT_TRUE(memory->scopedOffsets.empty());
    EXPECT_EQ(changes, 0);
}

TEST_F(PageScrollMemoryTest, WithoutASavedPointItScrollsNothingAndRecordsTheNextMove) {
    scroll(120);
    show();
    EXPECT_EQ(y(), 120);
    EXPECT_EQ(probe->state(), State::recording);
    EXPECT_TRUE(memory->offsets.empty());
    scroll(130);
    EXPECT_EQ(memory->offsets.at(here).y, 130);
}

TEST_F(PageScrollMemoryTest, RecordsNothingWhileItRestores) {
    memory->offsets[here] = {0, 400};
    showAndBetween([&] {
        scroll(77);
        EXPECT_EQ(memory->offsets.at(here).y, 400);
    });
    EXPECT_EQ(y(), 400);
}

TEST_F(PageScrollMemoryTest, APageThatIsReplacedBeforeItAttachesStaysDetached) {
    memory->offsets[here] = {0, 400};
    page.show();
    memory->active = elsewhere;
    settle();
    EXPECT_EQ(probe->state(), State::detached);
    EXPECT_EQ(y(), 0);
    scroll(50);
    EXPECT_EQ(memory->offsets.at(here).y, 400);
    EXPECT_EQ(memory->offsets.size(), 1U);
}

TEST_F(PageScrollMemoryTest, APageThatIsReplacedBeforeItIsRestoredRecordsNothingFromThenOn) {
    memory->offsets[here] = {0, 400};
    showAndBetween([&] { memory->active = elsewhere; });
    EXPECT_EQ(probe->state(), State::restoring);
    EXPECT_EQ(y(), 0) << "nor does it move";
    scroll(50);
    EXPECT_EQ(memory->offsets.at(here).y, 400);
    memory->active = here;
    scroll(60);
    EXPECT_EQ(memory->offsets.at(here).y, 400) << "it stays so until it is detached";
    page.hide();
    EXPECT_EQ(probe->state(), State::detached);
    show();
    EXPECT_EQ(probe->state(), State::recording);
    EXPECT_EQ(y(), 400);
}

TEST_F(PageScrollMemoryTest, APageThatIsTakenDownDoesNotWriteOverItsMemory) {
    show();
    scroll(400);
    memory->active = elsewhere;
    content->resize(3000, 100);
    settle();
    EXPECT_EQ(y(), 0) << "the view has collapsed";
    EXPECT_EQ(memory->offsets.at(here).y, 400);
    EXPECT_FALSE(memory->offsets.contains(elsewhere));
}

TEST_F(PageScrollMemoryTest, OffScreenItRecordsNothingAndComesBackToWhereItWasLeft) {
    show();
    scroll(400);
    page.hide();
    scroll(20);
    EXPECT_EQ(memory->offsets.at(here).y, 400);
    show();
    EXPECT_EQ(y(), 400);
}

TEST_F(PageScrollMemoryTest, WhatWasAskedForBeforeItLeftTheScreenIsVoid) {
    memory->offsets[here] = {0, 400};
    showAndBetween([&] {
        page.hide();
        memory->offsets[here] = {0, 555};
        page.show();
        EXPECT_EQ(probe->state(), State::detached);
    });
    EXPECT_EQ(probe->state(), State::recording);
    EXPECT_EQ(y(), 555);
}

TEST_F(PageScrollMemoryTest, ComingAndGoingAtOnceAttachesOnce) {
    memory->offsets[here] = {0, 400};
    page.show();
    page.hide();
    page.show();
    settle();
    EXPECT_EQ(probe->state(), State::recording);
    EXPECT_EQ(y(), 400);
    page.show();
    page.hide();
    settle();
    EXPECT_EQ(probe->state(), State::detached);
}

TEST_F(PageScrollMemoryTest, AScopeHasAPositionOfItsOwn) {
    memory->scopedOffsets[here]["project-1"] = {0, 300};
    probe->setScope("project-1");
    show();
    EXPECT_EQ(y(), 300);
    scroll(310);
    EXPECT_EQ(memory->scopedOffsets.at(here).at("project-1").y, 310);
    EXPECT_TRUE(memory->offsets.empty());
}

TEST_F(PageScrollMemoryTest, AScopeWithoutASavedPointRestoresNothing) {
    memory->offsets[here] = {0, 400};
    memory->scopedOffsets[here]["project-0"] = {0, 300};
    probe->setScope("project-1");
    show();
    EXPECT_EQ(probe->state(), State::recording);
    EXPECT_EQ(y(), 0);
    EXPECT_EQ(memory->scopedOffsets.at(here).size(), 1U);
    scroll(5);
    EXPECT_EQ(memory->scopedOffsets.at(here).at("project-1").y, 5);
    EXPECT_EQ(memory->scopedOffsets.at(here).at("project-0").y, 300);
    EXPECT_EQ(memory->offsets.at(here).y, 400);
}

TEST_F(PageScrollMemoryTest, AnotherScopeOnScreenLeavesThePositionOfTheFirstAlone) {
    probe->setScope("project-0");
    show();
    scroll(200);
    probe->setScope("project-1");
    EXPECT_EQ(probe->state(), State::detached);
    scroll(0);
    settle();
    scroll(90);
    EXPECT_EQ(memory->scopedOffsets.at(here).at("project-0").y, 200);
    EXPECT_EQ(memory->scopedOffsets.at(here).at("project-1").y, 90);
    probe->setScope("project-0");
    settle();
    EXPECT_EQ(y(), 200);
    probe->setScope("project-0");
    EXPECT_EQ(probe->state(), State::recording) << "the same scope changes nothing";
}

TEST_F(PageScrollMemoryTest, AContentThatGotShorterEndsWhereItEnds) {
    memory->offsets[here] = {0, 2900};
    content->resize(3000, 1000);
    show();
    EXPECT_EQ(y(), area->verticalScrollBar()->maximum());
    EXPECT_EQ(memory->offsets.at(here).y, 2900) << "the memory is not brought into bounds";
    EXPECT_EQ(probe->state(), State::recording);
    scroll(10);
    EXPECT_EQ(memory->offsets.at(here).y, 10);
}

TEST_F(PageScrollMemoryTest, RestoresAfterThePageHasItsHeight) {
    memory->offsets[here] = {0, 900};
    area->setWidgetResizable(true);
    auto* column = new QVBoxLayout(content);
    show();
    EXPECT_EQ(area->verticalScrollBar()->maximum(), 0);
    page.hide();
    page.show();
    auto* late = new QWidget;
    late->setFixedHeight(2500);
    column->addWidget(late);
    settle();
    EXPECT_EQ(y(), 900);
}

TEST_F(PageScrollMemoryTest, NothingIsLostWhenThePageDiesBetweenTheSteps) {
    memory->offsets[here] = {0, 400};
    showAndBetween([&] { delete area; });
    EXPECT_TRUE(probe.isNull());
    EXPECT_EQ(memory->offsets.at(here).y, 400);
}

TEST_F(PageScrollMemoryTest, WithoutAScrollAreaOrAWorkspaceItStaysDetached) {
    QWidget plain(&window);
    new PageEnvironment(plain, memory, here);
    auto* lost = new PageScrollMemory(&plain);
    QScrollArea stray(&window);
    auto* inside = new QWidget;
    inside->resize(100, 2000);
    stray.setWidget(inside);
    auto* foreign = new PageScrollMemory(inside);
    plain.show();
    stray.show();
    settle();
    EXPECT_EQ(lost->state(), State::detached);
    EXPECT_EQ(foreign->state(), State::detached);
    stray.verticalScrollBar()->setValue(40);
    EXPECT_TRUE(memory->offsets.empty());
}

TEST_F(PageScrollMemoryTest, TakesNoClickAndNoKey) {
    show();
    EXPECT_NE(content->childAt(0, 0), probe);
    EXPECT_TRUE(probe->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(probe->focusPolicy(), Qt::NoFocus);
    EXPECT_TRUE(probe->rect().isEmpty());
}

}  // namespace
}  // namespace vantry::test
