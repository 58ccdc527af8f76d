// The grips of selected objects: listing, dragging, clicking. An object answers in one of two forms, grips
// with data and hooks or bare points; both look alike from here.
#pragma once

#include "AcDbEntity.h"

#include <memory>
#include <vector>

struct EdGrip {
    AcDbObjectId entity;
    AcGePoint3d place;
    std::shared_ptr<AcDbGripData> data; // null for a grip that is a bare point
    int pointIndex = -1;                // of a bare point
    std::wstring name() const { return data && *data->gripName() != L'\0' ? data->gripName() : L"grip"; }
};
std::vector<EdGrip> edGripsOf(const AcDbObjectIdArray& ids);
// Moves the grip and lets its object know the end of the operation.
Acad::ErrorStatus edDragGrip(const EdGrip& grip, const AcGeVector3d& offset);
// What the drag shows under the cursor, as DRAWLIST lists it; then the drag is aborted. A copy of the object
// is dragged, so the object stays as it is.
Acad::ErrorStatus edPreviewGripDrag(const EdGrip& grip, const AcGeVector3d& offset, std::vector<std::wstring>& primitives);
// A command grip runs its function; any other is taken up and put down where it stands.
void edClickGrip(const EdGrip& grip);
