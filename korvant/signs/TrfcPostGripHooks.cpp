// The hooks of a post's grips: the end of a drag, a click, the glyphs.
#include "TrfcPostGripHooks.h"

#include "TrfcGrips.h"
#include "TrfcPost.h"
#include "TrfcPostDialogs.h"
#include "TrfcPostGripNames.h"

void postGripStatus(AcDbGripData* grip, const AcDbObjectId& entity, AcDbGripOperations::GripStatus status) {
    const bool ended = status == AcDbGripOperations::kGripEnd;
    const auto* data = static_cast<const TrfcGripAppData*>(grip->appData());
    if (data == nullptr || (!ended && status != AcDbGripOperations::kGripAbort))
        return;
    const AcDbObjectPointer<TrfcPost> post(entity, AcDb::kForWrite);
    if (!post)
        return;
    post->clearActiveGrip();
    if (ended && data->name == kGripAddLamp)
        post->addLampFromGrip();
    post->recordGraphicsModified(true);
}

AcDbGripOperations::ReturnStatus postGripHot(AcDbGripData* grip, const AcDbObjectId& entity, int) {
    const auto* data = static_cast<const TrfcGripAppData*>(grip->appData());
    const AcDbObjectPointer<TrfcPost> post(entity, AcDb::kForWrite);
    if (data != nullptr && post) {
        post->clearActiveGrip();
        if (data->name == kGripTables)
            post->editProperties(kPostPageTables);
        else if (data->name == kGripLampEd)
            post->editProperties(kPostPageFirstLamp + data->index);
        else if (data->name == kGripPostProps)
            post->editProperties(kPostPageGeneral);
        else if (data->name == kGripResetNote)
            post->resetAnnotation();
        post->recordGraphicsModified(true);
    }
    return AcDbGripOperations::GripHotToWarm;
}

bool postGripDraw(AcDbGripData* grip, AcGiWorldDraw* worldDraw, const AcDbObjectId&, AcDbGripOperations::DrawType type, AcGePoint3d*, double gripSize) {
    const auto* data = static_cast<const TrfcGripAppData*>(grip->appData());
    if (data == nullptr)
        return true;
    AcGiWorldGeometry& geometry = worldDraw->geometry();
    const AcGePoint3d place = grip->gripPoint();
    const std::wstring& name = data->name;
    if (name == kGripAddLamp)
        drawGripPlus(worldDraw, geometry, type, place, gripSize);
    else if (name == kGripResetNote)
        drawGripLeftTriangles(worldDraw, geometry, type, place, gripSize);
    else if (name == kGripLampRot || name == kGripTurn)
        drawGripArrowBent(worldDraw, geometry, type, place, gripSize, data->vector);
    else if (name == kGripArmLength)
        drawGripArrow(worldDraw, geometry, type, place, gripSize, data->vector);
    else if (name == kGripLampEd || name == kGripTables || name == kGripPostProps)
        drawGripBar(worldDraw, geometry, type, place, gripSize);
    return true;
}
