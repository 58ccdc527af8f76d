// GRIPLIST, GRIPDRAG, GRIPCLICK.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "core/EdStyleResolver.h"
#include "grips/EdGrips.h"

namespace {
// The grip with the index that is asked for; nothing with the reason told.
std::optional<EdGrip> askGrip() {
    const auto ids = edSelectObjects();
    if (!ids)
        return std::nullopt;
    const std::vector<EdGrip> grips = edGripsOf(*ids);
    int index = 0;
    EdRefusals refusals;
    for (;;) {
        if (!EdPrompt(L"Grip index: ").noNull().noNegative().integer(index).ok())
            return std::nullopt;
        if (static_cast<std::size_t>(index) < grips.size())
            break;
        if (!refusals.again(L"There is no grip " + std::to_wstring(index) + L".", std::to_wstring(index)))
            return std::nullopt;
    }
    EdGrip grip = grips[static_cast<std::size_t>(index)];
    const AcDbObjectPointer<AcDbEntity> entity(grip.entity);
    if (!entity)
        return std::nullopt;
    if (EdStyleResolver(*edDatabase()).isLocked(entity->layerId())) {
        edSay(L"The object is on a locked layer.");
        return std::nullopt;
    }
    return grip;
}
} // namespace

void edCmdGripList() {
    const auto ids = edSelectObjects();
    if (!ids)
        return;
    int index = 0;
    for (const EdGrip& grip : edGripsOf(*ids))
        edSay(acFormat(L"%3d  %-14s %s", index++, grip.name().c_str(), edPointText(grip.place, 6).c_str()));
}
void edCmdGripDrag() {
    const auto grip = askGrip();
    if (!grip)
        return;
    AcGePoint3d offset;
    if (!EdPrompt(L"Offset dx,dy: ").noNull().keepLastPoint().base(AcGePoint3d::kOrigin).point(offset).ok())
        return;
    if (const Acad::ErrorStatus es = edDragGrip(*grip, offset.asVector()); es != Acad::eOk)
        edFail(std::wstring(L"The grip cannot be moved: ") + acadErrorStatusText(es));
}
void edCmdGripClick() {
    if (const auto grip = askGrip())
        edClickGrip(*grip);
}
