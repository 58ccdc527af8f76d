// The state change of a chain's signs and lamps.
#include "TrfcBlockChain.h"

#include "stateStep.h"

Acad::ErrorStatus TrfcBlockChain::stateChanges() {
    assertWriteEnabled();
    std::vector<int> toDelete; // public indices, ascending, from before the first deletion
    int index = 0;
    for (BlockList* blocks : {&mUpBlocks, &mDownBlocks}) {
        for (std::size_t i = 0; i < blocks->size(); ++i, ++index) {
            TrfcTypedBlock* typed = TrfcTypedBlock::cast((*blocks)[i].get());
            if (typed == nullptr)
                continue;
            stateChange(*typed, index, toDelete);
            closeUpFrom(*blocks, i);
        }
    }
    int gone = 0;
    for (const int doomed : toDelete)
        deleteBlock(doomed - gone++);
    return Acad::eOk;
}

// One step from the state the block is in. An existing sign can be covered instead of removed: with both on
// it ends covered.
void TrfcBlockChain::stateChange(const TrfcTypedBlock& block, int index, std::vector<int>& toDelete) {
    const TrfcSignStateColumn& change = stateChangeData().sign;
    const TRFC_BLOCK_TYPE state = block.blockType();
    switch (stateStep(change, state)) {
    case TrfcStateStep::toExisting:
        setBlockType(index, kBlockExisting);
        break;
    case TrfcStateStep::toBeRemoved:
        setBlockType(index, kBlockToBeRemoved);
        break;
    case TrfcStateStep::deletion:
        if (confirmDeletion(block, L"Biztosan törölni akarja a kiemelt táblát?"))
            toDelete.push_back(index);
        break;
    case TrfcStateStep::none:
        break;
    }
    if (state == kBlockExisting && change.existingToCovered)
        setBlockType(index, kBlockCovered);
    else if (state == kBlockCovered && change.coveredToExisting)
        setBlockType(index, kBlockExisting);
}
