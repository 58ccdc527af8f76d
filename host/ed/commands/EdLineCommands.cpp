// LINE, POINT, SOLID, SPLINE: drawn by points alone.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "AcDbEntities.h"

#include <vector>

namespace {
void eraseObject(AcDbObjectId id) {
    // The command's own segment: it goes also where the current layer is locked.
    if (AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite, false, true); entity)
        entity->erase();
}
} // namespace

void edCmdLine() {
    AcGePoint3d p;
    if (!EdPrompt(L"Specify first point: ").point(p).ok())
        return;
    std::vector<AcGePoint3d> points{p};
    AcDbObjectIdArray drawn;
    for (;;) {
        const bool canClose = drawn.length() >= 2;
        const EdReply reply = EdPrompt(canClose ? L"Specify next point or [Close/Undo]: " : L"Specify next point or [Undo]: ", canClose ? L"Close Undo" : L"Undo")
                                  .base(points.back())
                                  .point(p);
        if (reply.none() || reply.cancelled())
            return;
        if (reply.is(L"Undo")) {
            if (drawn.isEmpty()) {
                acutPrintf(L"All segments already undone.\n");
                continue;
            }
            eraseObject(drawn.last());
            drawn.removeAt(drawn.length() - 1);
            points.pop_back();
            edSetLastPoint(points.back());
            continue;
        }
        const bool closing = reply.is(L"Close");
        const AcGePoint3d next = closing ? points.front() : p;
        drawn.append(edDraw(std::make_unique<AcDbLine>(points.back(), next)));
        points.push_back(next);
        if (closing)
            return;
    }
}

void edCmdPoint() {
    AcGePoint3d p;
    if (EdPrompt(L"Specify a point: ").point(p).ok())
        edDraw(std::make_unique<AcDbPoint>(p));
}

void edCmdSolid() {
    AcGePoint3d p[4];
    if (!EdPrompt(L"Specify first point: ").point(p[0]).ok() || !EdPrompt(L"Specify second point: ").point(p[1]).ok())
        return;
    for (;;) {
        if (!EdPrompt(L"Specify third point: ").point(p[2]).ok())
            return;
        const EdReply fourth = EdPrompt(L"Specify fourth point or <exit>: ").point(p[3]);
        if (fourth.cancelled())
            return;
        if (fourth.none())
            p[3] = p[2];
        auto solid = std::make_unique<AcDbSolid>();
        for (int i = 0; i < 4; ++i)
            solid->setPointAt(i, p[i]);
        edDraw(std::move(solid));
        if (fourth.none())
            return;
        p[0] = p[2]; // the next one hangs on the last edge
        p[1] = p[3];
    }
}

void edCmdSpline() {
    AcGePoint3d p;
    if (!EdPrompt(L"Specify first point: ").point(p).ok())
        return;
    std::vector<AcGePoint3d> points{p};
    bool closed = false;
    for (;;) {
        const EdReply reply = EdPrompt(L"Specify next point or [Close/Undo] <end>: ", L"Close Undo").base(points.back()).point(p);
        if (reply.cancelled())
            return;
        if (reply.is(L"Undo")) {
            if (points.size() > 1)
                points.pop_back();
            continue;
        }
        closed = reply.is(L"Close");
        if (reply.none() || closed)
            break;
        points.push_back(p);
    }
    if (closed)
        points.push_back(points.front());
    if (points.size() < 2)
        return;
    auto spline = std::make_unique<AcDbSpline>();
    spline->setFitPoints(points);
    edDraw(std::move(spline));
}
