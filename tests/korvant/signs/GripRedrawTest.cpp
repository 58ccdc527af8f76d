// A post is drawn again after a click on one of its grips and after a drag, however that ended.
#include "SignsFixture.h"

namespace {
class GripRedraw : public SignsFixture {
protected:
    AcDbObjectId drawnPost() {
        const AcDbObjectId id = resident(newPost(1));
        AcDbObjectPointer<TrfcPost>(id, AcDb::kForWrite)->recordGraphicsModified(false);
        return id;
    }
    static bool isToBeDrawnAgain(AcDbObjectId id) { return AcDbObjectPointer<TrfcPost>(id)->isGraphicsModified(); }
    // The hook of the grip hears of the status; nothing else of the drag happens.
    static void tell(AcDbObjectId id, const wchar_t* name, AcDbGripOperations::GripStatus status) {
        AcDbObjectPointer<TrfcPost> post(id);
        const Grips grips(*post.object());
        post.close();
        grips.find(name)->gripOpStatFunc()(grips.find(name), id, status);
    }
};
} // namespace

TEST_F(GripRedraw, a_post_is_drawn_again_when_a_drag_ends_or_is_aborted) {
    for (const auto status : {AcDbGripOperations::kGripEnd, AcDbGripOperations::kGripAbort}) {
        const AcDbObjectId id = drawnPost();
        tell(id, L"grip5", status);
        EXPECT_TRUE(isToBeDrawnAgain(id)) << status;
    }
}

TEST_F(GripRedraw, the_start_of_a_drag_leaves_its_picture) {
    const AcDbObjectId id = drawnPost();
    tell(id, L"grip5", AcDbGripOperations::kGripStart);
    EXPECT_FALSE(isToBeDrawnAgain(id));
}

TEST_F(GripRedraw, a_post_is_drawn_again_after_a_click) {
    const AcDbObjectId id = drawnPost();
    AcDbObjectPointer<TrfcPost> post(id);
    const Grips grips(*post.object());
    post.close();
    AcDbGripData* const grip = grips.find(L"gripPostProps");
    EXPECT_EQ(grip->hotGripFunc()(grip, id, 0), AcDbGripOperations::GripHotToWarm);
    EXPECT_TRUE(isToBeDrawnAgain(id));
}
