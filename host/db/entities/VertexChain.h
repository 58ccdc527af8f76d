// The vertices of a heavy polyline that stand in the database beside it.
#pragma once

#include "AcDbDatabase.h"
#include "AcDbEntities.h"
#include "ReadAccess.h"

namespace DbVertexFlag {
constexpr int kSplineFrame = 16; // a control point of a splined curve: not on the curve
} // namespace DbVertexFlag

// Puts a vertex under the polyline. eNotInDatabase when the polyline stands in none yet.
template <class Vertex>
Acad::ErrorStatus dbAppendVertex(AcDbEntity& polyline, AcDbObjectIdArray& ids, AcDbObjectId& id, Vertex* vertex) {
    if (vertex == nullptr)
        return Acad::eNullObjectPointer;
    if (polyline.database() == nullptr)
        return Acad::eNotInDatabase;
    const Acad::ErrorStatus es = polyline.database()->addAcDbObject(id, vertex);
    if (es != Acad::eOk)
        return es;
    vertex->setOwnerId(polyline.objectId());
    ids.append(id);
    return Acad::eOk;
}

// Calls `visit` with each vertex that is not erased.
template <class Vertex, class Visit> void dbForEachVertex(const AcDbObjectIdArray& ids, Visit visit) {
    for (const AcDbObjectId& id : ids)
        if (const DbReadAccess<Vertex> vertex(id); vertex)
            visit(*vertex.get());
}

// Calls `change` with each vertex, open for write. The polyline is open already, so no lock stands against it.
template <class Vertex, class Change> void dbChangeVertices(const AcDbObjectIdArray& ids, Change change) {
    int index = 0;
    for (const AcDbObjectId& id : ids) {
        const AcDbObjectPointer<Vertex> vertex(id, AcDb::kForWrite, false, true);
        if (vertex)
            change(*vertex.object(), index++);
    }
}
