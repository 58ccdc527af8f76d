#include "EdPreview.h"

#include "AcDbEntities.h"
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
namespace {
// An attribute definition as the text that a fresh reference to the drawing would bear there.
void addFreshAttribute(const AcDbAttributeDefinition& definition, GiDisplayListBuilder& builder) {
    if (definition.isInvisible())
        return;
    AcDbAttribute attribute;
    attribute.setAttributeFromBlock(&definition, AcGeMatrix3d::kIdentity);
    builder.add(attribute);
}
// Previews show what a block drawn from the drawing would show.
GiDisplayList symbolPicture(AcDbDatabase& db, double deviation) {
    GiDisplayListBuilder builder(false, kAcGiStandardDisplay, deviation);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId());
    if (!space)
        return builder.take();
    for (const AcDbObjectId id : space->entityIds()) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (!entity)
            continue;
        if (const auto* const definition = AcDbAttributeDefinition::cast(entity.object()))
            addFreshAttribute(*definition, builder);
        else
            builder.add(*entity.object());
    }
    return builder.take();
}
// Browsers of drawings cut a fifth off each side of a preview, so the picture keeps to its middle.
GiPlotWindow withSideMargins(const GiPlotWindow& window) {
    constexpr double kPictureShare = 0.56;
    const double center = (window.lower.x + window.upper.x) / 2.0;
    const double half = (window.upper.x - window.lower.x) / 2.0 / kPictureShare;
    const double edge = (window.upper.y - window.lower.y) * 0.03;
    return {AcGePoint2d(center - half, window.lower.y - edge), AcGePoint2d(center + half, window.upper.y + edge)};
}
} // namespace

std::vector<Adesk::UInt8> edPreviewBitmap(AcDbDatabase& db) {
    const AcDbExtents box = db.extents();
    if (!box.isValid())
        return {};
    const double deviation = box.minPoint().distanceTo(box.maxPoint()) / 1000.0;
    const GiDisplayList list = symbolPicture(db, deviation > 0.0 ? deviation : 0.01);
    return giThumbnailDib(list, DbStyleResolver(db), withSideMargins(giPlotWindowOf(list)));
}
