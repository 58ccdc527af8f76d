// REGEN, ZOOM.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "core/EdView.h"

void edCmdRegen() {
    edSay(L"Regenerating model.");
}

namespace {
void zoomByFactor(AcDbDatabase& db, const std::wstring& text, EdRefusals& refusals, bool& done) {
    std::wstring number = edUpper(text);
    if (!number.empty() && number.back() == L'X')
        number.pop_back();
    const auto factor = edParseReal(number);
    if (!factor || *factor <= 0.0) {
        done = !refusals.again(L"Requires a positive number, nX, a point or an option.", text);
        return;
    }
    EdView view = edView(db);
    view.height /= *factor;
    view.width /= *factor;
    edSetView(db, view);
    done = true;
}
void zoomCenter(AcDbDatabase& db) {
    EdView view = edView(db);
    if (!EdPrompt(L"Specify center point: ").point(view.center).ok())
        return;
    double height = view.height;
    if (EdPrompt(L"Enter magnification or height <" + edNumber(height) + L">: ").noZero().noNegative().real(height).cancelled())
        return;
    view.width *= height / view.height;
    view.height = height;
    edSetView(db, view);
}
} // namespace

void edCmdZoom() {
    AcDbDatabase& db = *edDatabase();
    EdRefusals refusals;
    for (bool done = false; !done;) {
        std::wstring answer;
        AcGePoint3d a, b;
        const EdReply reply =
            EdPrompt(L"Specify corner of window, enter a scale factor (nX), or [All/Center/Extents/Window/Object] <real time>: ", L"All Center Extents Window Object").word(answer);
        if (reply.none() || reply.cancelled())
            return;
        done = true;
        if (reply.is(L"All") || reply.is(L"Extents")) {
            edZoomTo(db, db.extents());
        } else if (reply.is(L"Center")) {
            zoomCenter(db);
        } else if (reply.is(L"Object")) {
            AcDbExtents box;
            if (const auto ids = edSelectObjects())
                for (const AcDbObjectId id : *ids)
                    if (const AcDbObjectPointer<AcDbEntity> entity(id); entity) {
                        AcDbExtents one;
                        if (entity->getGeomExtents(one) == Acad::eOk)
                            box.addExt(one);
                    }
            edZoomTo(db, box);
        } else if (const auto first = reply.ok() ? edParsePoint(answer, edLastPoint()) : std::nullopt; first || reply.is(L"Window")) {
            if (!first && !EdPrompt(L"Specify first corner: ").noNull().point(a).ok())
                return;
            a = first.value_or(a);
            if (!EdPrompt(L"Specify opposite corner: ").base(a).noNull().point(b).ok())
                return;
            AcDbExtents box;
            box.addPoint(a);
            box.addPoint(b);
            edZoomTo(db, box);
        } else {
            zoomByFactor(db, answer, refusals, done);
        }
    }
}
