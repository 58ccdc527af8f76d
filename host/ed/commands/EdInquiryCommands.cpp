// LIST, DIST, AREA, COUNT, FILERLIST, DRAWLIST.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "AcDbEntities.h"

#include <functional>
#include <map>

namespace {
void listOne(const AcDbEntity& entity) {
    edFreshLine();
    entity.list();
    edFreshLine();
    if (!entity.color().isByLayer())
        acutPrintf(L"%20s  %s\n", L"Color:", edColorName(entity.color()).c_str());
    if (!entity.linetypeId().isNull() && entity.linetypeId() != edDatabase()->byLayerLinetype())
        acutPrintf(L"%20s  %s\n", L"Linetype:", entity.linetypeName().c_str());
    if (entity.linetypeScale() != 1.0)
        acutPrintf(L"%20s  %s\n", L"Linetype scale:", edNumber(entity.linetypeScale()).c_str());
    if (entity.lineWeight() != AcDb::kLnWtByLayer)
        acutPrintf(L"%20s  %s\n", L"Lineweight:", edLineWeightName(entity.lineWeight()).c_str());
}
void forEachSelected(const std::function<void(const AcDbEntity&)>& visit) {
    if (const auto ids = edSelectObjects())
        for (const AcDbObjectId id : *ids)
            if (const AcDbObjectPointer<AcDbEntity> entity(id); entity)
                visit(*entity.object());
}
// Area of the polygon through the points, whichever way it runs.
double polygonArea(const std::vector<AcGePoint3d>& points) {
    return points.size() < 3 ? 0.0 : std::abs(giLoopArea(points));
}
std::optional<double> areaOf(const AcDbEntity& entity) {
    if (const auto* const polyline = AcDbPolyline::cast(&entity))
        return polyline->getArea();
    if (const auto* const circle = AcDbCircle::cast(&entity))
        return kPi * circle->radius() * circle->radius();
    if (const auto* const ellipse = AcDbEllipse::cast(&entity))
        return kPi * ellipse->majorAxis().lengthSqrd() * ellipse->radiusRatio();
    double area = 0.0;
    if (const auto* const hatch = AcDbHatch::cast(&entity); hatch != nullptr && hatch->getArea(area) == Acad::eOk)
        return area;
    return std::nullopt;
}
} // namespace

void edCmdList() {
    forEachSelected(listOne);
}

void edCmdDist() {
    AcGePoint3d a, b;
    if (!EdPrompt(L"Specify first point: ").point(a).ok() || !EdPrompt(L"Specify second point: ").base(a).point(b).ok())
        return;
    const AcGeVector3d d = b - a;
    edSay(L"Distance = " + edNumber(d.length()) + L",  Angle in XY Plane = " + edDegrees(AcGeVector2d(d.x, d.y).angle()));
    edSay(L"Delta X = " + edNumber(d.x) + L",  Delta Y = " + edNumber(d.y) + L",  Delta Z = " + edNumber(d.z));
}

void edCmdArea() {
    AcGePoint3d p;
    const EdReply reply = EdPrompt(L"Specify first corner point or [Object] <Object>: ", L"Object").point(p);
    if (reply.cancelled())
        return;
    if (!reply.ok()) {
        AcDbObjectId id;
        if (!edSelectOne(L"Select object: ", L"", id, p).ok())
            return;
        const AcDbObjectPointer<AcDbEntity> entity(id);
        const auto area = entity ? areaOf(*entity.object()) : std::nullopt;
        return area ? edSay(L"Area = " + edNumber(*area)) : edSay(L"The selected object has no area.");
    }
    std::vector<AcGePoint3d> points{p};
    for (;;) {
        const EdReply next = EdPrompt(L"Specify next point or <total>: ").base(points.back()).point(p);
        if (next.cancelled())
            return;
        if (next.none())
            break;
        points.push_back(p);
    }
    double length = points.back().distanceTo(points.front());
    for (std::size_t i = 1; i < points.size(); ++i)
        length += points[i].distanceTo(points[i - 1]);
    edSay(L"Area = " + edNumber(polygonArea(points)) + L", Perimeter = " + edNumber(length));
}

void edCmdCount() {
    std::map<std::wstring, int> counts;
    int total = 0;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(edDatabase()->modelSpaceId());
    if (!space)
        return;
    for (const AcDbObjectId id : space->entityIds())
        if (const AcDbObjectPointer<AcDbEntity> entity(id); entity) {
            ++counts[edTypeName(*entity.object())];
            ++total;
        }
    for (const auto& [type, count] : counts)
        edSay(acFormat(L"%6d  %s", count, type.c_str()));
    edSay(acFormat(L"%6d  in all", total));
}

void edCmdFilerList() {
    forEachSelected([](const AcDbEntity& entity) {
        edSay(edHeadOf(entity));
        AcDbRecordingFiler filer;
        entity.dwgOutFields(&filer);
        for (const std::wstring& line : filer.lines())
            edSay(L"  " + line);
    });
}

void edCmdDrawList() {
    forEachSelected([](const AcDbEntity& entity) {
        edSay(edHeadOf(entity));
        // A picture is drawn from an object open for read; the drawing operations are not const.
        for (const std::wstring& line : giRecord(const_cast<AcDbEntity&>(entity), edNamer(), false, entity.startTraits()))
            edSay(L"  " + line);
    });
}
