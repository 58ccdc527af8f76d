// GRIPLIST, GRIPDRAG, GRIPCLICK.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "grips/EdGrips.h"

namespace {
constexpr const wchar_t* kNoGrips = L"The selected objects have no grips.";

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
// The grip that is asked for; nothing with the reason told. What the line says of an absent grip would
// answer other questions, so the run ends there.
std::optional<EdGrip> askGrip() {
    const auto ids = edSelectObjects();
    if (!ids)
        return std::nullopt;
    const std::vector<EdGrip> grips = edGripsOf(*ids);
    if (grips.empty()) {
        edFail(kNoGrips);
        return std::nullopt;
    }
    std::wstring answer;
    if (!EdPrompt(L"Grip index or name: ").noNull().word(answer).ok())
        return std::nullopt;
    const EdGrip* const grip = findGrip(grips, answer);
    if (grip == nullptr)
        edFail(acFormat(L"There is no grip %s.", answer.c_str()));
    return grip != nullptr ? std::optional<EdGrip>(*grip) : std::nullopt;
}

struct DragAnswer {
    AcGeVector3d offset;
    bool isPreview = false;
};
// The word Preview may stand before the offset or behind it on the same line.
std::optional<DragAnswer> askDrag() {
    DragAnswer drag;
    AcGePoint3d offset;
    const auto ask = [&offset](const wchar_t* text, const wchar_t* keywords) {
        return EdPrompt(text, keywords).noNull().keepLastPoint().base(AcGePoint3d::kOrigin).point(offset);
    };
    EdReply reply = ask(L"Offset dx,dy or [Preview]: ", L"Preview");
    if (reply.is(L"Preview")) {
        drag.isPreview = true;
        reply = ask(L"Offset dx,dy: ", L"");
    }
    if (!reply.ok())
        return std::nullopt;
    drag.offset = offset.asVector();
    drag.isPreview = drag.isPreview || EdInputStack::instance().takeOption(L"Preview");
    return drag;
}
std::vector<std::wstring> contentOf(AcDbObjectId id) {
    AcDbRecordingFiler filer;
    if (const AcDbObjectPointer<AcDbEntity> entity(id); entity)
        entity->dwgOut(&filer);
    return filer.lines();
}
void tellFailure(Acad::ErrorStatus es) {
    if (es != Acad::eOk)
        edFail(std::wstring(L"The grip cannot be moved: ") + acadErrorStatusText(es));
}
void preview(const EdGrip& grip, const AcGeVector3d& offset) {
    std::vector<std::wstring> primitives;
    tellFailure(edPreviewGripDrag(grip, offset, primitives));
    if (const AcDbObjectPointer<AcDbEntity> entity(grip.entity); entity)
        edSay(edHeadOf(*entity.object()));
    for (const std::wstring& line : primitives)
        edSay(L"  " + line);
}
void drag(const EdGrip& grip, const AcGeVector3d& offset) {
    const std::vector<std::wstring> before = contentOf(grip.entity);
    const Acad::ErrorStatus es = edDragGrip(grip, offset);
    tellFailure(es);
    if (es == Acad::eOk && contentOf(grip.entity) == before)
        edSay(L"The object is unchanged.");
}
} // namespace

void edCmdGripList() {
    const auto ids = edSelectObjects();
    if (!ids)
        return;
    const std::vector<EdGrip> grips = edGripsOf(*ids);
    if (grips.empty())
        edSay(kNoGrips);
    int index = 0;
    for (const EdGrip& grip : grips)
        edSay(acFormat(L"%3d  %-14s %s", index++, grip.name().c_str(), edPointText(grip.place, 6).c_str()));
}
void edCmdGripDrag() {
    const auto grip = askGrip();
    const auto answer = grip ? askDrag() : std::nullopt;
    if (!answer || !isMovable(*grip)) // asked for whole, so that nothing of the line is left over
        return;
    if (answer->isPreview)
        preview(*grip, answer->offset);
    else if (answer->offset.isZeroLength())
        edSay(L"The grip stays where it is.");
    else
        drag(*grip, answer->offset);
}
void edCmdGripClick() {
    if (const auto grip = askGrip(); grip && isMovable(*grip))
        edClickGrip(*grip);
}
