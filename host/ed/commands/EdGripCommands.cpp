// GRIPLIST, GRIPDRAG, GRIPCLICK.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "grips/EdGrips.h"

namespace {
// By its index in the listing, or the first of that name.
const EdGrip* findGrip(const std::vector<EdGrip>& grips, const std::wstring& answer) {
    if (const auto index = edParseInt(answer))
        return *index >= 0 && static_cast<std::size_t>(*index) < grips.size() ? &grips[static_cast<std::size_t>(*index)] : nullptr;
    for (const EdGrip& grip : grips)
        if (edSameWord(grip.name(), answer))
            return &grip;
    return nullptr;
}
bool isMovable(const EdGrip& grip) {
    const AcDbObjectPointer<AcDbEntity> entity(grip.entity);
    if (entity && edIsOnLockedLayer(*entity.object()))
        edSay(L"The object is on a locked layer.");
    return entity && !edIsOnLockedLayer(*entity.object());
}
// The grip with the index that is asked for; nothing with the reason told.
std::optional<EdGrip> askGrip() {
    const auto ids = edSelectObjects();
    if (!ids)
        return std::nullopt;
    const std::vector<EdGrip> grips = edGripsOf(*ids);
    EdRefusals refusals;
    for (;;) {
        std::wstring answer;
        if (!EdPrompt(L"Grip index or name: ").noNull().word(answer).ok())
            return std::nullopt;
        if (const EdGrip* const grip = findGrip(grips, answer))
            return isMovable(*grip) ? std::optional<EdGrip>(*grip) : std::nullopt;
        if (!refusals.again(L"There is no such grip.", answer))
            return std::nullopt;
    }
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
