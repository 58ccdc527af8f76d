// The view of model space as the drawing keeps it, and what a pixel of it measures.
#pragma once

#include "AcDbDatabase.h"

struct EdView {
    AcGePoint3d center;
    double height = 297.0, width = 420.0; // drawing units
};
EdView edView(AcDbDatabase& db);
void edSetView(AcDbDatabase& db, const EdView& view);
// The view set so that the box fills it but for a small margin; nothing for an invalid box.
void edZoomTo(AcDbDatabase& db, const AcDbExtents& box);
// Drawing units of one pixel: the view is a thousand pixels high where no window says otherwise.
double edPixelSize(AcDbDatabase& db);
