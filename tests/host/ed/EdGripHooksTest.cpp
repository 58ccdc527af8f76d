// What an object and its grips are told of a drag: the start, and how it ended.
#include "EdSession.h"
#include "core/EdProperties.h"
#include "grips/EdGrips.h"

#include <gtest/gtest.h>

namespace {
std::vector<AcDbGripOperations::GripStatus> gHeard;

// An object with one grip. Its picture follows from what lies outside the record, so that the record itself
// is not changed by a drag.
class HookedPoint : public AcDbEntity {
public:
    Acad::ErrorStatus answer = Acad::eOk; // of each move

protected:
    Acad::ErrorStatus subGetGripPoints(AcDbGripDataPtrArray& grips, double, int, const AcGeVector3d&, int) const override {
        auto* const grip = new AcDbGripData;
        grip->setGripOpStatFunc([](AcDbGripData*, const AcDbObjectId& id, AcDbGripOperations::GripStatus status) {
            gHeard.push_back(status);
            const AcDbObjectPointer<AcDbEntity> entity(id);
            EXPECT_TRUE(entity) << "the hook may open the object";
        });
        grips.append(grip);
        return Acad::eOk;
    }
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbVoidPtrArray&, const AcGeVector3d&, int) override { return answer; }
};

struct Dragged {
    explicit Dragged(EdSession& user, Acad::ErrorStatus answer) {
        gHeard.clear();
        auto* const point = new HookedPoint;
        point->answer = answer;
        EXPECT_EQ(edAppend(user.db(), point, id), Acad::eOk);
        AcDbObjectPointer<AcDbEntity>(id, AcDb::kForWrite)->recordGraphicsModified(false);
        AcDbObjectIdArray ids;
        ids.append(id);
        const std::vector<EdGrip> grips = edGripsOf(ids);
        EXPECT_EQ(grips.size(), 1u);
        result = edDragGrip(grips.at(0), AcGeVector3d(1.0, 0.0, 0.0));
    }
    bool isToBeDrawnAgain() const { return AcDbObjectPointer<AcDbEntity>(id)->isGraphicsModified(); }
    AcDbObjectId id;
    Acad::ErrorStatus result = Acad::eOk;
};
using Heard = std::vector<AcDbGripOperations::GripStatus>;
} // namespace

TEST(EdGripHooks, a_drag_that_came_through_is_ended_and_the_object_drawn_again) {
    EdSession user;
    const Dragged drag(user, Acad::eOk);
    EXPECT_EQ(drag.result, Acad::eOk);
    EXPECT_EQ(gHeard, (Heard{AcDbGripOperations::kGripStart, AcDbGripOperations::kGripEnd}));
    EXPECT_TRUE(drag.isToBeDrawnAgain());
}

TEST(EdGripHooks, a_drag_that_the_object_refuses_ends_as_an_abort) {
    EdSession user;
    const Dragged drag(user, Acad::eInvalidInput);
    EXPECT_EQ(drag.result, Acad::eInvalidInput);
    EXPECT_EQ(gHeard, (Heard{AcDbGripOperations::kGripStart, AcDbGripOperations::kGripAbort}));
}

TEST(EdGripHooks, an_object_that_others_hold_open_aborts_the_drag) {
    EdSession user;
    gHeard.clear();
    AcDbObjectId id;
    ASSERT_EQ(edAppend(user.db(), new HookedPoint, id), Acad::eOk);
    AcDbObjectIdArray ids;
    ids.append(id);
    const std::vector<EdGrip> grips = edGripsOf(ids);
    const AcDbObjectPointer<AcDbEntity> reader(id);
    EXPECT_EQ(edDragGrip(grips.at(0), AcGeVector3d(1.0, 0.0, 0.0)), Acad::eWasOpenForRead);
    EXPECT_EQ(gHeard, (Heard{AcDbGripOperations::kGripStart, AcDbGripOperations::kGripAbort}));
}
