// The state change of a chain.
#include "SignsFixture.h"

#include "DialogUser.h"
#include "TrfcStateChangeData.h"

namespace {
class BlockChainState : public SignsFixture {
protected:
    void add(TRFC_BLOCK_TYPE type, bool down = false) {
        TrfcTable* table = newTable(acFormat(L"t%d", chain.size()));
        if (down)
            chain.appendBlockDownward(table);
        else
            chain.appendBlockUpward(table);
        table->setType(type);
        chain.repos(chain.position(), chain.rotation());
    }
    std::vector<int> types() const {
        std::vector<int> found;
        for (int i = 0; i < chain.size(); ++i)
            found.push_back(TrfcTypedBlock::cast(chain.getAt(i))->blockType());
        return found;
    }
    TrfcBlockChain chain;
};
using Types = std::vector<int>;
} // namespace

TEST_F(BlockChainState, without_a_tick_nothing_changes) {
    for (const TRFC_BLOCK_TYPE type : {kBlockExisting, kBlockPlanned, kBlockToBeRemoved, kBlockCovered})
        add(type);
    chain.stateChanges();
    EXPECT_EQ(types(), (Types{0, 1, 2, 3}));
}

TEST_F(BlockChainState, each_sign_moves_on_by_one_step) {
    TrfcStateChangeData& change = stateChangeData();
    change.sign.plannedToExisting = change.sign.existingToBeRemoved = change.sign.toBeRemovedDeleted = change.sign.coveredToExisting = true;
    change.confirmOnDelete = false;
    for (const TRFC_BLOCK_TYPE type : {kBlockExisting, kBlockPlanned, kBlockToBeRemoved, kBlockCovered})
        add(type);
    chain.stateChanges();
    EXPECT_EQ(types(), (Types{2, 0, 0}));
    expectLaidWithoutGap(chain);
}

TEST_F(BlockChainState, to_be_removed_and_covered_both_ticked_ends_covered) {
    stateChangeData().sign.existingToBeRemoved = stateChangeData().sign.existingToCovered = true;
    add(kBlockExisting);
    chain.stateChanges();
    EXPECT_EQ(types(), Types{3});
}

TEST_F(BlockChainState, a_changed_size_closes_the_lists_up) {
    stateChangeData().sign.plannedToExisting = true;
    add(kBlockPlanned);
    add(kBlockPlanned);
    add(kBlockPlanned, true);
    add(kBlockPlanned, true);
    chain.stateChanges();
    expectLaidWithoutGap(chain);
    expectNear(chain.ptTop(), {0.0, 8.0, 0.0});
    expectNear(chain.ptBottom(), {0.0, -8.0, 0.0});
}

TEST_F(BlockChainState, deletions_in_both_lists_hit_the_signs_that_were_marked) {
    stateChangeData().sign.toBeRemovedDeleted = true;
    stateChangeData().confirmOnDelete = false;
    for (const bool down : {false, true})
        for (const TRFC_BLOCK_TYPE type : {kBlockToBeRemoved, kBlockPlanned, kBlockToBeRemoved})
            add(type, down);
    chain.stateChanges();
    EXPECT_EQ(types(), (Types{1, 1}));
    EXPECT_EQ(upFiles(chain), std::vector<std::wstring>{L"t1"});
    EXPECT_STREQ(chain[1]->descriptor().blockFile, L"t4");
}

TEST_F(BlockChainState, blocks_without_a_state_are_passed_by) {
    stateChangeData().sign.existingToBeRemoved = true;
    chain.appendBlockUpward(new TrfcBlock(plate(L"plain"), {}, 0.0, 1.0));
    chain.stateChanges();
    EXPECT_EQ(chain.size(), 1);
}

TEST_F(BlockChainState, a_deletion_is_confirmed_sign_by_sign) {
    stateChangeData().sign.toBeRemovedDeleted = true;
    add(kBlockToBeRemoved);
    add(kBlockToBeRemoved);
    DialogUser user;
    user.sees([this] { EXPECT_TRUE(chain[0]->isHighlighted()); }).does(L"@cancel").does(L"@ok");
    chain.stateChanges();
    EXPECT_EQ(upFiles(chain), std::vector<std::wstring>{L"t0"});
    EXPECT_FALSE(chain[0]->isHighlighted());
    EXPECT_NE(user.printed().find(L"Biztosan törölni akarja a kiemelt táblát?"), std::wstring::npos);
    EXPECT_NE(user.printed().find(L"Korvant - Törlés megerősítése"), std::wstring::npos);
}
