// Whatever is done to a chain, it stays one stack whose complementary signs belong to a main sign.
#include "SignsFixture.h"

#include <rapidcheck/gtest.h>

#include <algorithm>

namespace {
class BlockChainProperty : public SignsFixture {
public:
    void TestBody() override {}

    TrfcBlockChain chain;
    std::vector<std::wstring> files; // of the plates that should be there, in no order

    void step() {
        switch (*rc::gen::inRange(0, 7)) {
        case 0:
        case 1:
            add(true);
            break;
        case 2:
            add(false);
            break;
        case 3:
            onAny([this](int i) { int at = i; chain.moveDnBlock(i, &at); checkIndex(at); });
            break;
        case 4:
            onAny([this](int i) { int at = i; chain.moveUpBlock(i, &at); checkIndex(at); });
            break;
        case 5:
            onAny([this](int i) {
                files.erase(std::find(files.begin(), files.end(), chain[i]->descriptor().blockFile));
                chain.deleteBlock(i);
            });
            break;
        default:
            onAny([this](int i) {
                chain.setComplementary(i, *rc::gen::arbitrary<bool>());
                chain.resetComplIndices();
            });
        }
    }

    void check() {
        expectLaidWithoutGap(chain);
        std::vector<std::wstring> there;
        for (int i = 0; i < chain.size(); ++i)
            there.emplace_back(chain[i]->descriptor().blockFile);
        std::sort(there.begin(), there.end());
        std::sort(files.begin(), files.end());
        RC_ASSERT(there == files);
        int main = -1;
        for (int i = chain.upCount() - 1; i >= 0; --i) {
            const int index = TrfcTable::cast(chain[i])->complIndex();
            RC_ASSERT(index == -1 || index == main);
            if (index == -1)
                main = i;
        }
        RC_ASSERT(!testing::Test::HasFailure());
    }

private:
    void add(bool up) {
        const auto name = acFormat(L"p%d", ++mMade);
        TrfcTable* table = newTable(name, *rc::gen::element(0.5, 1.0, 2.0));
        if (up)
            chain.appendBlockUpward(table);
        else
            chain.appendBlockDownward(table);
        files.push_back(name);
    }
    template <class Action> void onAny(const Action& action) {
        if (chain.size() > 0)
            action(*rc::gen::inRange(0, chain.size()));
    }
    void checkIndex(int index) const { RC_ASSERT(index >= 0 && index < chain.size()); }
    int mMade = 0;
};
} // namespace

RC_GTEST_PROP(BlockChainProperties, every_sequence_of_edits_leaves_one_stack, ()) {
    BlockChainProperty world;
    const int steps = *rc::gen::inRange(1, 25);
    for (int i = 0; i < steps; ++i) {
        world.step();
        world.check();
    }
}
