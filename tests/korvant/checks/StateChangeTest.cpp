// The state change over a drawing.
#include "ChecksFixture.h"

#include "applyStateChange.h"

namespace {
class StateChange : public ChecksFixture {
protected:
    AcDbObjectId addPost(TRFC_BLOCK_TYPE state, const std::vector<TRFC_BLOCK_TYPE>& signs = {}) {
        auto made = newPost(0);
        made->setPostType(state);
        for (const TRFC_BLOCK_TYPE sign : signs) {
            TrfcTable* const table = newTable(L"tábla");
            made->signChain().appendBlockUpward(table);
            table->setType(sign);
        }
        made->signChain().repos(made->pointD(), made->rotation());
        return resident(std::move(made));
    }
    int postState(AcDbObjectId id) const { return post(id)->postData().postType; }
    std::vector<int> signStates(AcDbObjectId id) const {
        std::vector<int> states;
        const auto open = post(id);
        for (int i = 0; i < open->signChain().size(); ++i)
            states.push_back(TrfcTypedBlock::cast(open->signChain().getAt(i))->blockType());
        return states;
    }
    static int markingState(AcDbObjectId id) { return AcDbObjectPointer<TrfcBlockEnt>(id)->entType(); }
    TrfcStateChangeData& data() const { return stateChangeData(); }
};
using States = std::vector<int>;
} // namespace

TEST_F(StateChange, without_a_tick_nothing_changes) {
    const AcDbObjectId planned = addPost(kBlockPlanned, {kBlockPlanned, kBlockCovered}), marking = addMarking(kBlockEntPlanned);
    const std::vector<std::wstring> before = filed(*post(planned).object());
    applyStateChange();
    EXPECT_EQ(filed(*post(planned).object()), before);
    EXPECT_EQ(markingState(marking), kBlockEntPlanned);
}

TEST_F(StateChange, each_kind_of_object_follows_its_own_column) {
    const AcDbObjectId id = addPost(kBlockPlanned, {kBlockPlanned}), marking = addMarking(kBlockEntPlanned);
    data().post.plannedToExisting = true;
    applyStateChange();
    EXPECT_EQ(postState(id), kBlockExisting);
    EXPECT_EQ(signStates(id), States{kBlockPlanned});
    EXPECT_EQ(markingState(marking), kBlockEntPlanned);
    data() = TrfcStateChangeData();
    data().sign.plannedToExisting = data().crossing.plannedToExisting = true;
    applyStateChange();
    EXPECT_EQ(signStates(id), States{kBlockExisting});
    EXPECT_EQ(markingState(marking), kBlockEntPlanned);
    data().marking.plannedToExisting = true;
    applyStateChange();
    EXPECT_EQ(markingState(marking), kBlockEntExisting);
}

TEST_F(StateChange, an_object_moves_by_one_step_even_with_every_tick) {
    data().post.plannedToExisting = data().post.existingToBeRemoved = data().post.toBeRemovedDeleted = true;
    data().marking.plannedToExisting = data().marking.existingToBeRemoved = data().marking.toBeRemovedDeleted = true;
    data().confirmOnDelete = false;
    const AcDbObjectId planned = addPost(kBlockPlanned), existing = addPost(kBlockExisting), removed = addPost(kBlockToBeRemoved);
    const AcDbObjectId plannedMarking = addMarking(kBlockEntPlanned), removedMarking = addMarking(kBlockEntToBeRemoved);
    applyStateChange();
    EXPECT_EQ(postState(planned), kBlockExisting);
    EXPECT_EQ(postState(existing), kBlockToBeRemoved);
    EXPECT_TRUE(removed.isErased());
    EXPECT_EQ(markingState(plannedMarking), kBlockEntExisting);
    EXPECT_TRUE(removedMarking.isErased());
}

TEST_F(StateChange, signs_are_covered_and_uncovered) {
    const AcDbObjectId id = addPost(kBlockExisting, {kBlockExisting, kBlockPlanned});
    data().sign.existingToCovered = true;
    applyStateChange();
    EXPECT_EQ(signStates(id), (States{kBlockCovered, kBlockPlanned}));
    data() = TrfcStateChangeData();
    data().sign.coveredToExisting = true;
    applyStateChange();
    EXPECT_EQ(signStates(id), (States{kBlockExisting, kBlockPlanned}));
}

TEST_F(StateChange, lamps_follow_the_signs_column) {
    auto made = newPost(0);
    const int lamp = made->addLampChain({10.0, 0.0, 0.0});
    made->lampChain(lamp).appendBlockDownward(newLamp());
    TrfcTypedBlock::cast(made->lampChain(lamp).getAt(0))->setType(kBlockPlanned);
    const AcDbObjectId id = resident(std::move(made));
    data().sign.plannedToExisting = true;
    applyStateChange();
    EXPECT_EQ(TrfcTypedBlock::cast(post(id)->lampChain(lamp).getAt(0))->blockType(), kBlockExisting);
}

TEST_F(StateChange, the_signs_of_a_post_go_before_the_post_and_close_up) {
    const AcDbObjectId id = addPost(kBlockExisting, {kBlockToBeRemoved, kBlockExisting, kBlockToBeRemoved});
    data().sign.toBeRemovedDeleted = true;
    data().confirmOnDelete = false;
    applyStateChange();
    EXPECT_EQ(signStates(id), States{kBlockExisting});
    expectLaidWithoutGap(post(id)->signChain());
}

TEST_F(StateChange, each_deletion_asks_where_confirmation_is_on) {
    const AcDbObjectId id = addPost(kBlockToBeRemoved, {kBlockToBeRemoved}), marking = addMarking(kBlockEntToBeRemoved);
    data().sign.toBeRemovedDeleted = data().post.toBeRemovedDeleted = data().marking.toBeRemovedDeleted = true;
    DialogUser user;
    user.does(L"@cancel").sees([&] { EXPECT_TRUE(post(id).object() == nullptr) << "the post is in hand"; }).does(L"@cancel").does(L"@cancel");
    applyStateChange();
    EXPECT_EQ(signStates(id), States{kBlockToBeRemoved});
    EXPECT_FALSE(id.isErased());
    EXPECT_FALSE(marking.isErased());
    EXPECT_FALSE(post(id)->isHighlighted());
    for (const wchar_t* question : {L"Biztosan törölni akarja a kiemelt táblát?", L"Biztosan törölni akarja a kiemelt oszlopot és összes tábláját/lámpáját?",
                                    L"Biztosan törölni akarja a kiemelt burkolati jelet?"})
        EXPECT_TRUE(hasLineWith(user.printed(), std::wstring(L"Korvant - Törlés megerősítése: ") + question));
    user.does(L"@ok").does(L"@ok").does(L"@ok");
    applyStateChange();
    EXPECT_TRUE(id.isErased());
    EXPECT_TRUE(marking.isErased());
}

TEST_F(StateChange, foreign_objects_are_left_alone) {
    const AcDbObjectId line = addEntity(new AcDbLine(AcGePoint3d(), AcGePoint3d(1, 1, 0)));
    data().post.toBeRemovedDeleted = data().marking.toBeRemovedDeleted = data().crossing.toBeRemovedDeleted = true;
    data().confirmOnDelete = false;
    applyStateChange();
    EXPECT_FALSE(line.isErased());
}

TEST_F(StateChange, an_object_in_use_is_passed_by_without_a_word) {
    const AcDbObjectId inUse = addPost(kBlockPlanned), free = addPost(kBlockPlanned);
    data().post.plannedToExisting = true;
    {
        const AcDbObjectPointer<TrfcPost> reader(inUse);
        applyStateChange();
    }
    EXPECT_EQ(postState(inUse), kBlockPlanned);
    EXPECT_EQ(postState(free), kBlockExisting);
    EXPECT_EQ(printed, L"");
}

TEST_F(StateChange, a_selection_that_was_cancelled_changes_nothing) {
    const AcDbObjectId id = addPost(kBlockPlanned);
    data().post.plannedToExisting = data().selectionOnly = true;
    applyStateChange(); // nobody answers the prompt
    EXPECT_EQ(postState(id), kBlockPlanned);
}

TEST_F(StateChange, without_a_drawing_nothing_happens) {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    applyStateChange();
    acdbHostApplicationServices()->setWorkingDatabase(drawing);
}
