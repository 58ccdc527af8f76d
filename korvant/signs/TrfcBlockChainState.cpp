// The state change of a chain's signs and lamps.
#include "TrfcBlockChain.h"

#include "TrfcStateChangeData.h"
#include "confirmDeletion.h"

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

// One step from the state the block is in: a planned sign that becomes existing does not go on.
void TrfcBlockChain::stateChange(const TrfcTypedBlock& block, int index, std::vector<int>& toDelete) {
    const TrfcStateChangeData& change = stateChangeData();
    switch (block.blockType()) {
    case kBlockPlanned:
        if (change.signPlannedToExisting)
            setBlockType(index, kBlockExisting);
        break;
    case kBlockExisting:
        if (change.signExistingToBeRemoved)
            setBlockType(index, kBlockToBeRemoved);
        if (change.signExistingToCovered) // with both on the sign ends covered
            setBlockType(index, kBlockCovered);
        break;
    case kBlockToBeRemoved:
        if (change.signToBeRemovedDeleted && confirmDeletion(block, L"Biztosan törölni akarja a kiemelt táblát?"))
            toDelete.push_back(index);
        break;
    case kBlockCovered:
        if (change.signCoveredToExisting)
            setBlockType(index, kBlockExisting);
        break;
    }
}
