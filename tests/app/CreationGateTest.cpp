#include "tests/app/StoreFixture.h"

namespace vantry::test {
namespace {

TEST(CreationGateTest, AStormIsRefusedUntilItHasPaused) {
    VantryCreationGate gate;
    const Identifier shotA = Identifier::random();
    const auto take = VantryCreationAction::take(shotA);
    EXPECT_TRUE(gate.accept(take, 0, 0.5));
    for (int i = 1; i <= 10; ++i)
        EXPECT_FALSE(gate.accept(take, i / 10.0, 0.5)) << i;
    EXPECT_TRUE(gate.accept(VantryCreationAction::take(Identifier::random()), 1.1, 0.5));
    EXPECT_TRUE(gate.accept(VantryCreationAction::cast(shotA), 1.1, 0.5));
    EXPECT_TRUE(gate.accept(take, 1.6, 0.5));
    EXPECT_FALSE(gate.accept(take, 1.61, 0.5));
}

TEST(CreationGateTest, APauseOfExactlyTheIntervalIsEnough) {
    VantryCreationGate gate;
    EXPECT_TRUE(gate.accept(VantryCreationAction::project(), 1, 0.5));
    EXPECT_TRUE(gate.accept(VantryCreationAction::project(), 1.5, 0.5));
}

TEST(CreationGateTest, EveryKindIsAKeyOfItsOwn) {
    VantryCreationGate gate;
    const Identifier id = Identifier::random();
    using Action = VantryCreationAction;
    for (const auto& action :
         {Action::act(id), Action::shot(id), Action::take(id), Action::callSheet(id), Action::crew(id),
          Action::cast(id), Action::callSheetPerson(id), Action::project()}) {
        EXPECT_TRUE(gate.accept(action, 0, 0.5));
        EXPECT_FALSE(gate.accept(action, 0.1, 0.5));
    }
    EXPECT_EQ(gate.attempts.size(), 8U);
    EXPECT_TRUE(gate.accept(Action::project(), 10, 0.5));
    EXPECT_EQ(gate.attempts.size(), 1U) << "old attempts are dropped, whatever their key";
}

using AcceptCreationTest = StoreTest;

TEST_F(AcceptCreationTest, TheIntervalIsTheDesktopsButAtLeastHalfASecond) {
    const auto store = open();
    const auto action = VantryCreationAction::project();
    EXPECT_TRUE(store->acceptCreation(action));
    clock.advance(450);
    EXPECT_FALSE(store->acceptCreation(action));
    clock.advance(501);
    EXPECT_TRUE(store->acceptCreation(action));
    doubleClick = 0.9;
    clock.advance(800);
    EXPECT_FALSE(store->acceptCreation(action));
    clock.advance(901);
    EXPECT_TRUE(store->acceptCreation(action));
}

TEST_F(AcceptCreationTest, AHeldKeyIsRefusedWhateverTheGateSaysAndRenewsItsTime) {
    const auto store = open();
    const auto action = VantryCreationAction::take(Identifier::random());
    keys.held = true;
    EXPECT_FALSE(store->acceptCreation(action));
    keys.held = false;
    clock.advance(400);
    EXPECT_FALSE(store->acceptCreation(action)) << "the refused attempt of the held key counts";
    clock.advance(501);
    EXPECT_TRUE(store->acceptCreation(action));
}

}  // namespace
}  // namespace vantry::test
