// SELECT, ERASE, MOVE, COPY, ROTATE, SCALE, MIRROR, EXPLODE.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

namespace {
// Copies just made go to their place on a locked layer too.
void transformAll(const AcDbObjectIdArray& ids, const AcGeMatrix3d& matrix, bool areNew = false) {
    int refused = 0;
    for (const AcDbObjectId id : ids) {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite, false, areNew);
        if (!entity || entity->transformBy(matrix) != Acad::eOk)
            ++refused;
        else
            entity->recordGraphicsModified();
    }
    if (refused > 0)
        edSay(std::to_wstring(refused) + L" object(s) could not be changed.");
}
// Copies beside the originals, turned by the matrix.
AcDbObjectIdArray copyAll(const AcDbObjectIdArray& ids, const AcGeMatrix3d& matrix) {
    AcDbObjectIdArray copies;
    AcDbIdMapping map;
    AcDbDatabase& db = *edDatabase();
    if (const Acad::ErrorStatus es = db.deepCloneObjects(ids, db.currentSpaceId(), map); es != Acad::eOk) {
        edFail(std::wstring(L"The objects cannot be copied: ") + acadErrorStatusText(es));
        return copies;
    }
    for (const AcDbObjectId id : ids) {
        AcDbIdPair pair;
        pair.key = id;
        if (map.compute(pair) && !pair.value.isNull())
            copies.append(pair.value);
    }
    transformAll(copies, matrix, true);
    return copies;
}
// Base point and second point, or a displacement followed by Enter.
bool askDisplacement(AcGePoint3d& base, AcGeVector3d& offset) {
    if (!EdPrompt(L"Specify base point: ").noNull().point(base).ok())
        return false;
    AcGePoint3d second;
    const EdReply reply = EdPrompt(L"Specify second point or <use first point as displacement>: ").base(base).point(second);
    if (reply.cancelled())
        return false;
    offset = reply.none() ? base.asVector() : second - base;
    return true;
}
} // namespace

void edCmdSelect() {
    const auto ids = edSelectObjects(L"Select objects: ", {}, false);
    if (EdDocument* const document = EdDocuments::instance().current(); document != nullptr)
        document->selection().pickFirst = ids.value_or(AcDbObjectIdArray());
}
void edCmdErase() {
    const auto ids = edSelectForEdit();
    if (!ids)
        return;
    for (const AcDbObjectId id : *ids)
        if (AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite); entity)
            entity->erase();
}
void edCmdMove() {
    const auto ids = edSelectForEdit();
    AcGePoint3d base;
    AcGeVector3d offset;
    if (ids && askDisplacement(base, offset))
        transformAll(*ids, AcGeMatrix3d::translation(offset));
}
void edCmdCopy() {
    const auto ids = edSelectObjects();
    AcGePoint3d base;
    AcGeVector3d offset;
    if (!ids || !askDisplacement(base, offset))
        return;
    copyAll(*ids, AcGeMatrix3d::translation(offset));
}
void edCmdRotate() {
    const auto ids = edSelectForEdit();
    AcGePoint3d base;
    if (!ids || !EdPrompt(L"Specify base point: ").noNull().point(base).ok())
        return;
    double angle = 0.0;
    bool copy = false;
    for (;;) {
        const EdReply reply = EdPrompt(L"Specify rotation angle or [Copy/Reference] <0>: ", L"Copy Reference").base(base).angle(angle);
        if (reply.cancelled() || reply.none())
            return;
        if (reply.ok())
            break;
        if (reply.is(L"Copy")) {
            copy = true;
            continue;
        }
        double from = 0.0, to = 0.0;
        if (EdPrompt(L"Specify the reference angle <0>: ").angle(from).cancelled() || !EdPrompt(L"Specify the new angle: ").base(base).noNull().angle(to).ok())
            return;
        angle = to - from;
        break;
    }
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis, base);
    copy ? void(copyAll(*ids, turn)) : transformAll(*ids, turn);
}
void edCmdScale() {
    const auto ids = edSelectForEdit();
    AcGePoint3d base;
    if (!ids || !EdPrompt(L"Specify base point: ").noNull().point(base).ok())
        return;
    double factor = 1.0;
    bool copy = false;
    for (;;) {
        const EdReply reply = EdPrompt(L"Specify scale factor or [Copy/Reference] <1>: ", L"Copy Reference").base(base).noZero().noNegative().distance(factor);
        if (reply.cancelled() || reply.none())
            return;
        if (reply.ok())
            break;
        if (reply.is(L"Copy")) {
            copy = true;
            continue;
        }
        double from = 1.0, to = 1.0;
        if (EdPrompt(L"Specify reference length <1>: ").noZero().noNegative().distance(from).cancelled() ||
            !EdPrompt(L"Specify new length: ").base(base).noNull().noZero().noNegative().distance(to).ok())
            return;
        factor = to / from;
        break;
    }
    const AcGeMatrix3d grow = AcGeMatrix3d::scaling(factor, base);
    copy ? void(copyAll(*ids, grow)) : transformAll(*ids, grow);
}
void edCmdMirror() {
    const auto ids = edSelectForEdit();
    AcGePoint3d a, b;
    if (!ids || !EdPrompt(L"Specify first point of mirror line: ").noNull().point(a).ok() ||
        !EdPrompt(L"Specify second point of mirror line: ").base(a).noNull().point(b).ok())
        return;
    const AcGeVector3d along(b.x - a.x, b.y - a.y, 0.0);
    if (along.isZeroLength())
        return edFail(L"The mirror line needs two points.");
    const EdReply reply = EdPrompt(L"Erase source objects? [Yes/No] <N>: ", L"Yes No").keyword();
    if (reply.cancelled())
        return;
    const AcGeMatrix3d mirror = AcGeMatrix3d::mirroring(a, along.perpVector().normal());
    reply.is(L"Yes") ? transformAll(*ids, mirror) : void(copyAll(*ids, mirror));
}
void edCmdExplode() {
    const auto ids = edSelectForEdit();
    if (!ids)
        return;
    int refused = 0;
    for (const AcDbObjectId id : *ids) {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        AcDbVoidPtrArray parts;
        if (!entity || entity->explode(parts) != Acad::eOk) {
            ++refused;
            continue;
        }
        entity->erase();
        entity.close();
        for (void* const part : parts) {
            AcDbObjectId partId;
            auto* const made = static_cast<AcDbEntity*>(part);
            if (edAppend(*edDatabase(), made, partId) != Acad::eOk)
                delete made;
        }
    }
    if (refused > 0)
        edSay(std::to_wstring(refused) + L" could not be exploded.");
}
