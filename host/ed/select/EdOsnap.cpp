#include "EdOsnap.h"

#include "AcUtText.h"
#include "core/EdDocuments.h"
#include "input/EdParse.h"
#include "EdPick.h"

namespace {
struct SnapWord {
    const wchar_t* word;
    AcDb::OsnapMode mode;
};
constexpr SnapWord kWords[] = {
    {L"ENDPOINT", AcDb::kOsModeEnd},  {L"MIDPOINT", AcDb::kOsModeMid},      {L"CENTER", AcDb::kOsModeCen},
    {L"NODE", AcDb::kOsModeNode},     {L"QUADRANT", AcDb::kOsModeQuad},     {L"INSERTION", AcDb::kOsModeIns},
    {L"PERPENDICULAR", AcDb::kOsModePerp}, {L"TANGENT", AcDb::kOsModeTan}, {L"NEAREST", AcDb::kOsModeNear},
};
} // namespace

std::optional<AcDb::OsnapMode> edOsnapModeOf(const std::wstring& word) {
    const std::wstring upper = edUpper(!word.empty() && word.front() == L'_' ? word.substr(1) : word);
    if (upper.size() < 3)
        return std::nullopt;
    for (const SnapWord& row : kWords)
        if (std::wstring_view(row.word).substr(0, upper.size()) == upper)
            return row.mode;
    return std::nullopt;
}

std::optional<AcGePoint3d> edSnap(AcDb::OsnapMode mode, const AcGePoint3d& pick, const AcGePoint3d& last) {
    std::optional<AcGePoint3d> best;
    for (const AcDbObjectId id : edPickAll(pick)) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        AcGePoint3dArray points;
        if (!entity || entity->getOsnapPoints(mode, points, pick, last) != Acad::eOk)
            continue;
        for (const AcGePoint3d& p : points)
            if (!best || p.distanceTo(pick) < best->distanceTo(pick))
                best = p;
    }
    if (!best)
        acutPrintf(L"No snap point found for the specified point.\n");
    return best;
}
