// Pictures of a whole drawing: its display list and the preview that is saved with it.
#pragma once

#include "AcDbDatabase.h"

// All entities of model space, in drawing order. deviation: of curves, in drawing units.
GiDisplayList edDrawingPicture(AcDbDatabase& db, double deviation);
std::vector<Adesk::UInt8> edPreviewBitmap(AcDbDatabase& db);
