// The number that an export gives to an object goes back with the command that gave it.
#include "SignsFixture.h"

namespace {
class ExchangeIdUndo : public SignsFixture {
protected:
    template <class T> void expectUndone(AcDbObjectId id) {
        AcDbObjectPointer<T>(id, AcDb::kForWrite)->setExchangeId(4711);
        database().startUndoRecord();
        AcDbObjectPointer<T>(id, AcDb::kForWrite)->setExchangeId(12);
        EXPECT_EQ(AcDbObjectPointer<T>(id)->exchangeId(), 12u);
        ASSERT_TRUE(database().undo());
        EXPECT_EQ(AcDbObjectPointer<T>(id)->exchangeId(), 4711u);
        ASSERT_TRUE(database().redo());
        EXPECT_EQ(AcDbObjectPointer<T>(id)->exchangeId(), 12u);
    }
};
} // namespace

TEST_F(ExchangeIdUndo, of_a_post) {
    expectUndone<TrfcPost>(resident(newPost()));
}

TEST_F(ExchangeIdUndo, of_a_marking) {
    expectUndone<TrfcBlockEnt>(resident(std::make_unique<TrfcBlockEnt>(plate(L"nyíl.dwg"))));
}

TEST_F(ExchangeIdUndo, an_object_that_is_open_for_read_takes_no_number) {
    const AcDbObjectId id = resident(newPost());
    const AcDbObjectPointer<TrfcPost> post(id);
    EXPECT_THROW(const_cast<TrfcPost*>(post.object())->setExchangeId(1), AcDbOpenRuleBreach);
    EXPECT_EQ(post->exchangeId(), 0u);
}
