#include "EdGrips.h"

#include "core/EdDocuments.h"
#include "core/EdProperties.h"
#include "core/EdSysVars.h"
#include "core/EdView.h"

namespace {
void appendGripsOf(const AcDbEntity& entity, std::vector<EdGrip>& grips) {
    AcDbGripDataPtrArray data;
    const double pixel = edPixelSize(*edDatabase());
    if (entity.getGripPoints(data, pixel, EdSysVars::instance().getShort(L"GRIPSIZE"), AcGeVector3d::kZAxis, 0) == Acad::eOk) {
        for (AcDbGripData* const one : data)
            grips.push_back({entity.objectId(), one->gripPoint(), std::shared_ptr<AcDbGripData>(one), -1});
        return;
    }
    for (AcDbGripData* const one : data)
        delete one;
    AcGePoint3dArray points;
    AcIntArray modes, ids;
    if (entity.getGripPoints(points, modes, ids) != Acad::eOk)
        return;
    for (int i = 0; i < points.length(); ++i)
        grips.push_back({entity.objectId(), points[i], nullptr, i});
}
void tell(const EdGrip& grip, AcDbGripOperations::GripStatus status) {
    if (grip.data && grip.data->gripOpStatFunc() != nullptr)
        grip.data->gripOpStatFunc()(grip.data.get(), grip.entity, status);
}
Acad::ErrorStatus moveOn(AcDbEntity& entity, const EdGrip& grip, const AcGeVector3d& offset) {
    if (grip.data) {
        AcDbVoidPtrArray data;
        data.append(grip.data->appData());
        return entity.moveGripPointsAt(data, offset, 0);
    }
    AcIntArray indices;
    indices.append(grip.pointIndex);
    return entity.moveGripPointsAt(indices, offset);
}
Acad::ErrorStatus move(const EdGrip& grip, const AcGeVector3d& offset) {
    AcDbObjectPointer<AcDbEntity> entity(grip.entity, AcDb::kForWrite);
    if (!entity)
        return entity.openStatus();
    return moveOn(*entity.object(), grip, offset); // which also marks its picture as changed
}
Acad::ErrorStatus show(const EdGrip& grip, const AcGeVector3d& offset, std::vector<std::wstring>& primitives) {
    const AcDbObjectPointer<AcDbEntity> entity(grip.entity);
    if (!entity)
        return entity.openStatus();
    const std::unique_ptr<AcDbEntity> copy(AcDbEntity::cast(entity->clone()));
    if (copy == nullptr)
        return Acad::eNotApplicable;
    const Acad::ErrorStatus es = moveOn(*copy, grip, offset);
    if (es == Acad::eOk)
        primitives = giRecord(*copy, edNamer(), true, copy->startTraits());
    return es;
}
} // namespace

std::vector<EdGrip> edGripsOf(const AcDbObjectIdArray& ids) {
    std::vector<EdGrip> grips;
    for (const AcDbObjectId id : ids)
        if (const AcDbObjectPointer<AcDbEntity> entity(id); entity)
            appendGripsOf(*entity.object(), grips);
    return grips;
}
Acad::ErrorStatus edDragGrip(const EdGrip& grip, const AcGeVector3d& offset) {
    tell(grip, AcDbGripOperations::kGripStart);
    const Acad::ErrorStatus es = move(grip, offset);
    // The hook opens the object itself, so it is closed by now.
    tell(grip, es == Acad::eOk ? AcDbGripOperations::kGripEnd : AcDbGripOperations::kGripAbort);
    return es;
}
Acad::ErrorStatus edPreviewGripDrag(const EdGrip& grip, const AcGeVector3d& offset, std::vector<std::wstring>& primitives) {
    tell(grip, AcDbGripOperations::kGripStart);
    const Acad::ErrorStatus es = show(grip, offset, primitives);
    tell(grip, AcDbGripOperations::kGripAbort);
    return es;
}
void edClickGrip(const EdGrip& grip) {
    if (grip.data && grip.data->hotGripFunc() != nullptr) {
        grip.data->hotGripFunc()(grip.data.get(), grip.entity, 0);
        return;
    }
    tell(grip, AcDbGripOperations::kGripStart);
    tell(grip, AcDbGripOperations::kGripEnd);
}
