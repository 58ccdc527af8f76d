// The one step that the state change takes an object by.
#include "stateStep.h"

#include <gtest/gtest.h>

TEST(StateStep, each_transition_leaves_from_its_own_state_alone) {
    const TrfcStateColumn all{true, true, true};
    EXPECT_EQ(stateStep(all, kStatePlanned), TrfcStateStep::toExisting);
    EXPECT_EQ(stateStep(all, kStateExisting), TrfcStateStep::toBeRemoved);
    EXPECT_EQ(stateStep(all, kStateToBeRemoved), TrfcStateStep::deletion);
    for (const int other : {3, 4, -1})
        EXPECT_EQ(stateStep(all, other), TrfcStateStep::none) << other;
}

TEST(StateStep, a_transition_that_is_not_ticked_leaves_the_object) {
    EXPECT_EQ(stateStep({false, true, true}, kStatePlanned), TrfcStateStep::none);
    EXPECT_EQ(stateStep({true, false, true}, kStateExisting), TrfcStateStep::none);
    EXPECT_EQ(stateStep({true, true, false}, kStateToBeRemoved), TrfcStateStep::none);
}
