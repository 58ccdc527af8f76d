// Whatever is done to a chain, it stays one stack of the same plates whose complementary signs belong to
// a main sign.
#include "SignsFixture.h"

#include "TrfcStateChangeData.h"

#include <rapidcheck/gtest.h>

#include <map>

namespace {
constexpr double kUnitExisting = 4.0, kUnitPlanned = 6.0; // plate sizes at 1:500

class BlockChainProperty : public SignsFixture {
public:
    void TestBody() override {}

    void step() {
        switch (*rc::gen::inRange(0, 12)) {
        case 0:
        case 1:
        case 2:
            return add(true);
        case 3:
            return add(false);
        case 4:
            return onAny([this](int i) { move(&TrfcBlockChain::moveDnBlock, i); });
        case 5:
            return onAny([this](int i) { move(&TrfcBlockChain::moveUpBlock, i); });
        case 6:
            return onAny([this](int i) { drop(i); });
        case 7:
            return onAny([this](int i) { declare(i); });
        case 8:
            return onAny([this](int i) { setState(i); });
        case 9:
            return onAny([this](int i) { setUniqueScale(i); });
        case 10:
            return turn();
        default:
            return changeStates();
        }
    }

    void check() {
        checkPlates();
        checkComplements();
        expectLaidWithoutGap(mChain);
        const std::unique_ptr<TrfcBlockChain> copy(TrfcBlockChain::cast(mChain.clone()));
        RC_ASSERT(filed(*copy) == filed(mChain));
        RC_ASSERT(!testing::Test::HasFailure());
    }

private:
    // What a plate should be, whatever its place.
    struct Plate {
        TRFC_BLOCK_TYPE state = kBlockExisting;
        double height = 1.0, uniqueScale = 1.0;
    };
    std::wstring fileAt(int index) const { return mChain[index]->descriptor().blockFile; }
    std::vector<std::wstring> files() const {
        std::vector<std::wstring> files;
        for (int i = 0; i < mChain.size(); ++i)
            files.push_back(fileAt(i));
        return files;
    }

    // ---- what stands
    void checkPlates() const {
        RC_ASSERT(static_cast<std::size_t>(mChain.size()) == mPlates.size());
        for (int i = 0; i < mChain.size(); ++i) {
            const auto plate = mPlates.find(fileAt(i));
            RC_ASSERT(plate != mPlates.end());
            const TrfcTable& table = *TrfcTable::cast(mChain[i]);
            RC_ASSERT(table.blockType() == plate->second.state);
            const double size = plate->second.state == kBlockPlanned ? kUnitPlanned : kUnitExisting;
            RC_ASSERT(std::abs(table.height() - plate->second.height * plate->second.uniqueScale * size) < 1e-9);
            RC_ASSERT(table.hasOverlay() == (table.blockType() == kBlockToBeRemoved || table.blockType() == kBlockCovered));
        }
    }
    // Each complementary sign names the nearest main sign above it.
    void checkComplements() const {
        int main = -1;
        for (int i = mChain.upCount() - 1; i >= 0; --i) {
            const int index = TrfcTable::cast(mChain[i])->complIndex();
            RC_ASSERT(index == -1 || index == main);
            if (index == -1)
                main = i;
        }
    }

    // ---- steps
    void add(bool up) {
        const std::wstring file = acFormat(L"p%d", ++mMade);
        const double height = *rc::gen::element(0.5, 1.0, 2.0);
        TrfcTable* const table = newTable(file, height);
        RC_ASSERT((up ? mChain.appendBlockUpward(table) : mChain.appendBlockDownward(table)) == Acad::eOk);
        mPlates[file].height = height;
    }
    template <class Action> void onAny(const Action& action) {
        if (mChain.size() > 0)
            action(*rc::gen::inRange(0, mChain.size()));
    }
    // The returned index is the moved plate's, except that the lowest group's falls though it stays.
    void move(Acad::ErrorStatus (TrfcBlockChain::*operation)(int, int*), int index) {
        const std::wstring file = fileAt(index);
        int at = index;
        const Acad::ErrorStatus es = (mChain.*operation)(index, &at);
        RC_ASSERT(at >= 0 && at < mChain.size());
        if (es != Acad::eOk)
            RC_ASSERT(fileAt(index) == file);
        else
            RC_ASSERT(fileAt(at) == file || fileAt(index) == file);
    }
    void drop(int index) {
        mPlates.erase(fileAt(index));
        RC_ASSERT(mChain.deleteBlock(index) == Acad::eOk);
    }
    void declare(int index) {
        const bool on = *rc::gen::arbitrary<bool>();
        const Acad::ErrorStatus es = mChain.setComplementary(index, on);
        RC_ASSERT(es == Acad::eOk || index >= mChain.upCount() || on);
        mChain.resetComplIndices();
        if (es == Acad::eOk && !on)
            RC_ASSERT(!TrfcTable::cast(mChain[index])->isComplementary());
    }
    void setState(int index) {
        const auto state = *rc::gen::element(kBlockExisting, kBlockPlanned, kBlockToBeRemoved, kBlockCovered);
        mPlates[fileAt(index)].state = state;
        mChain.setBlockType(index, state);
    }
    void setUniqueScale(int index) {
        const double scale = *rc::gen::element(0.5, 1.0, 2.0);
        mPlates[fileAt(index)].uniqueScale = scale;
        mChain.setBlockUniqueScale(index, scale);
    }
    void changeStates() {
        TrfcStateChangeData& change = stateChangeData();
        change.confirmOnDelete = false;
        for (bool* const tick : {&change.sign.plannedToExisting, &change.sign.existingToBeRemoved, &change.sign.toBeRemovedDeleted,
                                 &change.sign.existingToCovered, &change.sign.coveredToExisting})
            *tick = *rc::gen::arbitrary<bool>();
        std::erase_if(mPlates, [&](const auto& plate) { return change.sign.toBeRemovedDeleted && plate.second.state == kBlockToBeRemoved; });
        for (auto& [file, plate] : mPlates)
            plate.state = nextState(plate.state, change);
        std::vector<std::wstring> staying = files();
        std::erase_if(staying, [this](const std::wstring& file) { return !mPlates.contains(file); });
        mChain.stateChanges();
        RC_ASSERT(files() == staying);
    }
    void turn() {
        const AcGePoint3d base(*rc::gen::inRange(-50, 50), *rc::gen::inRange(-50, 50), 0.0);
        const double angle = *rc::gen::inRange(0, 360) * kPi / 180.0;
        switch (*rc::gen::inRange(0, 4)) {
        case 0: mChain.repos(base, angle); break;
        case 1: mChain.rotateBy(angle); break;
        case 2: mChain.setPosition(base); break;
        default: mChain.regen();
        }
    }
    static TRFC_BLOCK_TYPE nextState(TRFC_BLOCK_TYPE state, const TrfcStateChangeData& change) {
        switch (state) {
        case kBlockPlanned: return change.sign.plannedToExisting ? kBlockExisting : state;
        case kBlockExisting:
            return change.sign.existingToCovered ? kBlockCovered : change.sign.existingToBeRemoved ? kBlockToBeRemoved : state;
        case kBlockToBeRemoved: return state;
        case kBlockCovered: return change.sign.coveredToExisting ? kBlockExisting : state;
        }
        return state;
    }

    TrfcBlockChain mChain;
    std::map<std::wstring, Plate> mPlates; // by file, which is each plate's own
    int mMade = 0;
};
} // namespace

RC_GTEST_PROP(BlockChainProperties, every_sequence_of_edits_leaves_one_stack_of_the_same_plates, ()) {
    BlockChainProperty world;
    const int steps = *rc::gen::inRange(1, 30);
    for (int i = 0; i < steps; ++i) {
        world.step();
        world.check();
    }
}
