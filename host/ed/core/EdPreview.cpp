#include "EdPreview.h"

#include "DbStyleResolver.h"
#include "GiPlot.h"

GiDisplayList edDrawingPicture(AcDbDatabase& db, double deviation) {
    GiDisplayListBuilder builder(false, kAcGiStandardDisplay, deviation);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId());
    if (!space)
        return builder.take();
    for (const AcDbObjectId id : space->entityIds())
        if (const AcDbObjectPointer<AcDbEntity> entity(id); entity)
            builder.add(*entity.object());
    return builder.take();
}
std::vector<Adesk::UInt8> edPreviewBitmap(AcDbDatabase& db) {
    const AcDbExtents box = db.extents();
    if (!box.isValid())
        return {};
    const double deviation = box.minPoint().distanceTo(box.maxPoint()) / 1000.0;
    const GiDisplayList list = edDrawingPicture(db, deviation > 0.0 ? deviation : 0.01);
    return giThumbnailDib(list, DbStyleResolver(db), giPlotWindowOf(list));
}
